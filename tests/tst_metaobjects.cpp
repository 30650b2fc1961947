// What the classes show through Qt's meta-object: signals and slots by name, order and type.
// Not here: what they do.
#include "controls/iconbutton.h"
#include "controls/imagetracker.h"
#include "engine/videownd.h"
#include "playwidget/playwidget.h"
#include "playwidget/playwidget_impl.h"

#include <QMetaMethod>
#include <QTest>

Q_DECLARE_METATYPE(const QMetaObject *)

namespace {

QString written(const QMetaMethod &method)
{
    const QList<QByteArray> types = method.parameterTypes();
    const QList<QByteArray> names = method.parameterNames();
    QStringList parameters;
    for (int i = 0; i < types.size(); ++i)
        parameters += QString::fromLatin1(types[i] + ' ' + names[i]);
    const char *kind = method.methodType() == QMetaMethod::Signal ? "signal"
        : method.access() == QMetaMethod::Public                  ? "slot"
                                                                  : "hidden slot";
    return QStringLiteral("%1 %2 %3(%4)")
        .arg(kind, method.typeName(), method.name(), parameters.join(QStringLiteral(", ")));
}

}  // namespace

class tst_MetaObjects : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void listSignalsAndSlotsInOrder_data();
    void listSignalsAndSlotsInOrder();
    void holdNothingElse_data() { listSignalsAndSlotsInOrder_data(); }
    void holdNothingElse();
    void leaveTheVideoWindowAPlainWidget();
};

void tst_MetaObjects::listSignalsAndSlotsInOrder_data()
{
    QTest::addColumn<const QMetaObject *>("meta");
    QTest::addColumn<QString>("name");
    QTest::addColumn<const QMetaObject *>("base");
    QTest::addColumn<QStringList>("methods");
    QTest::newRow("facade") << &PlayWidget::staticMetaObject << "PlayWidget"
                            << &QWidget::staticMetaObject
                            << QStringList{"signal void accepted()", "signal void rejected()"};
    QTest::newRow("player") << &PlayWidget_Impl::staticMetaObject << "PlayWidget_Impl"
                            << &QWidget::staticMetaObject
                            << QStringList{"signal void updatePlayState(int velmoState, uint t)",
                                           "signal void accepted()",
                                           "signal void rejected()",
                                           "slot void doUpdatePlayState(int velmoState, uint t)",
                                           "slot void mouseDetectTimerTimeOut()",
                                           "slot void playUpdateTimerTimeOut()",
                                           "slot void btnPlayClick()",
                                           "slot bool playVideo()",
                                           "slot bool pauseVideo()",
                                           "slot void stopVideo(bool bSave)",
                                           "slot void snapShotVideo()",
                                           "slot void sanpShotMenu()",
                                           "slot void openSnapShotDir()",
                                           "slot void changeSnapShotDir()",
                                           "slot void playTrackerPressed()",
                                           "slot void playTrackerReleased()",
                                           "slot void volumeChanged(int value)",
                                           "slot void minimizeVolume()",
                                           "slot void maximizeVolume()",
                                           "slot void playPriorFile()",
                                           "slot void playNextFile()",
                                           "slot void playPriorPart()",
                                           "slot void playNextPart()",
                                           "slot void cbx3DModeCurrentIndexChanged(int index)",
                                           "slot void edt3DPosValueChanged(int value)",
                                           "slot void effectValueChanged(int value)",
                                           "slot void delaySetAgain()",
                                           "slot void buttonBoxClicked(QAbstractButton* button)"};
    QTest::newRow("slider") << &ImageTracker::staticMetaObject << "ImageTracker"
                            << &QWidget::staticMetaObject
                            << QStringList{"signal void valueChanged(int lValue)",
                                           "signal void sliderReleased()",
                                           "signal void sliderPressed()",
                                           "slot void setValue(int lValue)"};
    QTest::newRow("button") << &IconButton::staticMetaObject << "IconButton"
                            << &QToolButton::staticMetaObject << QStringList();
}

void tst_MetaObjects::listSignalsAndSlotsInOrder()
{
    QFETCH(const QMetaObject *, meta);
    QFETCH(QString, name);
    QFETCH(const QMetaObject *, base);
    QFETCH(QStringList, methods);
    QCOMPARE(QString::fromLatin1(meta->className()), name);
    QCOMPARE(meta->superClass(), base);
    QStringList found;
    for (int i = meta->methodOffset(); i < meta->methodCount(); ++i)
        found += written(meta->method(i));
    QCOMPARE(found, methods);
}

void tst_MetaObjects::holdNothingElse()
{
    QFETCH(const QMetaObject *, meta);
    QCOMPARE(meta->propertyCount(), meta->propertyOffset());
    QCOMPARE(meta->enumeratorCount(), meta->enumeratorOffset());
    QCOMPARE(meta->classInfoCount(), meta->classInfoOffset());
    QCOMPARE(meta->constructorCount(), 0);
}

// Whoever brings another engine writes its four functions, without moc.
void tst_MetaObjects::leaveTheVideoWindowAPlainWidget()
{
    const CVideoWnd window;
    QCOMPARE(window.metaObject(), &QWidget::staticMetaObject);
    QVERIFY(!window.inherits("CVideoWnd"));
}

QTEST_MAIN(tst_MetaObjects)
#include "tst_metaobjects.moc"
