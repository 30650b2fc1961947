// The plugin for Qt Designer: what it offers, and that each widget can be made without an engine.
// Not here: Designer.
#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>

#include <QIcon>
#include <QPluginLoader>
#include <QTest>
#include <QXmlStreamReader>

#include <memory>

class tst_Designer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void offersTheWidgetAndTheControls();
    void makesEveryWidget_data();
    void makesEveryWidget();

private:
    QList<QDesignerCustomWidgetInterface *> entries;
};

void tst_Designer::initTestCase()
{
    QPluginLoader loader(PLUGIN);
    QVERIFY2(loader.load(), qPrintable(loader.errorString()));
    auto *collection = qobject_cast<QDesignerCustomWidgetCollectionInterface *>(loader.instance());
    QVERIFY(collection);
    entries = collection->customWidgets();
}

void tst_Designer::offersTheWidgetAndTheControls()
{
    QStringList names;
    for (QDesignerCustomWidgetInterface *entry : entries)
        names.append(entry->name() + ' ' + entry->includeFile());
    QCOMPARE(
        names,
        QStringList({"PlayWidget playwidget/playwidget.h", "ImageTracker controls/imagetracker.h",
                     "IconButton controls/iconbutton.h"}));
}

void tst_Designer::makesEveryWidget_data()
{
    QTest::addColumn<int>("index");
    for (int i = 0; i < entries.size(); ++i)
        QTest::newRow(qPrintable(entries[i]->name())) << i;
}

void tst_Designer::makesEveryWidget()
{
    QFETCH(int, index);
    QDesignerCustomWidgetInterface &entry = *entries[index];
    QCOMPARE(entry.group(), "PlayWidget");
    QVERIFY(!entry.toolTip().isEmpty());
    QVERIFY(!entry.isContainer());
    QCOMPARE(entry.icon().availableSizes(), QList<QSize>({QSize(22, 22)}));

    QStringList classes;
    QXmlStreamReader form(entry.domXml());
    while (!form.atEnd())
        if (form.readNext() == QXmlStreamReader::StartElement && form.name() == u"widget")
            classes.append(form.attributes().value("class").toString());
    QVERIFY2(!form.hasError(), qPrintable(form.errorString()));
    QCOMPARE(classes, QStringList({entry.name()}));

    QWidget parent;
    QWidget *widget = entry.createWidget(&parent);
    QCOMPARE(widget->parentWidget(), &parent);
    QCOMPARE(QString(widget->metaObject()->className()), entry.name());
    widget->resize(100, 100);
    QImage painted(100, 100, QImage::Format_ARGB32);
    painted.fill(Qt::transparent);
    widget->render(&painted, QPoint(), QRegion(), QWidget::DrawChildren);
    QImage nothing = painted;
    nothing.fill(Qt::transparent);
    QVERIFY(painted != nothing);
}

QTEST_MAIN(tst_Designer)
#include "tst_designer.moc"
