// The shared library as a whole: its skin comes and goes with it, whether or not a widget is made.
// Not here: what the bundle holds (tst_resources.cpp).
#include <QFile>
#include <QLibrary>
#include <QTest>

class tst_LibraryLoad : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void bringsTheSkinAndTakesItAway();
};

void tst_LibraryLoad::bringsTheSkinAndTakesItAway()
{
    const QStringList bundle = {":/qss/Varlume.qss", ":/skin/music.png", ":/skin/playslider.png"};
    QLibrary library(PLAYWIDGET_LIBRARY);
    for (int round = 0; round < 2; ++round) {
        for (const QString &file : bundle)
            QVERIFY(!QFile::exists(file));
        QVERIFY2(library.load(), qPrintable(library.errorString()));
        for (const QString &file : bundle)
            QVERIFY(QFile::exists(file));
        QVERIFY2(library.unload(), qPrintable(library.errorString()));
    }
    QVERIFY(!QFile::exists(bundle.first()));
}

QTEST_MAIN(tst_LibraryLoad)
#include "tst_libraryload.moc"
