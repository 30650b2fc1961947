// Engine, window, dialog and widget go while a film plays, in each of their 24 orders: whatever is
// left stays usable. Not here: how often that can be done (tst_lifetime.cpp).
#include "engine/mpv/kest_host.h"
#include "playwidget/playwidget.h"

#include <QDialog>
#include <QPointer>
#include <QtTest>

#include <algorithm>
#include <functional>
#include <map>

class tst_Destruction : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyOrder_data();
    void everyOrder();
};

void tst_Destruction::everyOrder_data()
{
    QTest::addColumn<QString>("order");
    QString order = QStringLiteral("degw");  // the first of all, for it is sorted
    do {
        QTest::newRow(qPrintable(order)) << order;
    } while (std::next_permutation(order.begin(), order.end()));
}

void tst_Destruction::everyOrder()
{
    QFETCH(QString, order);
    void *const engine = KestOpen("null");
    QVERIFY(engine);
    QCOMPARE(KestAddFile(engine, 1, SAMPLES "/depth.mkv"), int(KestOk));
    const QPointer<QWidget> window = new QWidget;
    const QPointer<QDialog> dialog = new QDialog(window);
    const QPointer<PlayWidget> widget = new PlayWidget(dialog);
    window->show();
    dialog->show();
    widget->initialize(engine, Kest3DTurnOff);
    widget->addPlayItem(1, QStringLiteral("depth.mkv"), false, Kest3DRedCyan, 0.01);
    widget->setPlayIndex(0);
    QCOMPARE(widget->errorString(), QString());
    QCoreApplication::processEvents();

    const std::map<QChar, std::function<void()>> ends = {{'d', [&] { delete dialog; }},
                                                         {'e', [&] { KestClose(engine); }},
                                                         {'g', [&] { delete widget; }},
                                                         {'w', [&] { delete window; }}};
    for (const QChar which : order) {
        ends.at(which)();
        QCoreApplication::processEvents();
        if (!widget)
            continue;
        widget->setPlayIndex(0);
        QCOMPARE(widget->playIndex(), 0);
        QVERIFY(!widget->grab().isNull());
    }
    QVERIFY(!widget && !dialog && !window);
    QCOMPARE(KestPlay(engine), int(KestErrorHandle));
}

QTEST_MAIN(tst_Destruction)
#include "tst_destruction.moc"
