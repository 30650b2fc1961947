// Times in words: which parts are said, in which number, and what is no time.
// Not here: the digits (tst_timeformat).
#include "playwidget/spokentime.h"

#include <QTest>

class tst_SpokenTime : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void saysATimeInWords_data();
    void saysATimeInWords();
    void readsATimeInDigits_data();
    void readsATimeInDigits();
};

void tst_SpokenTime::saysATimeInWords_data()
{
    QTest::addColumn<long long>("ms");
    QTest::addColumn<QString>("words");
    QTest::newRow("nothing") << 0LL << "0 seconds";
    QTest::newRow("less than a second") << 999LL << "0 seconds";
    QTest::newRow("one second") << 1000LL << "1 second";
    QTest::newRow("cut off, not rounded") << 2999LL << "2 seconds";
    QTest::newRow("one minute") << 60000LL << "1 minute";
    QTest::newRow("minutes and seconds") << 125000LL << "2 minutes 5 seconds";
    QTest::newRow("one hour") << 3600000LL << "1 hour";
    QTest::newRow("one of each") << 3661000LL << "1 hour 1 minute 1 second";
    QTest::newRow("many hours") << 360000000LL << "100 hours";
    QTest::newRow("negative") << -65000LL << "1 minute 5 seconds";
}

void tst_SpokenTime::saysATimeInWords()
{
    QFETCH(long long, ms);
    QTEST(spokenTime(ms), "words");
}

void tst_SpokenTime::readsATimeInDigits_data()
{
    QTest::addColumn<QString>("digits");
    QTest::addColumn<QString>("words");
    QTest::newRow("elapsed") << "00:01:05"
                             << "1 minute 5 seconds";
    QTest::newRow("remaining") << "-00:02:55"
                               << "2 minutes 55 seconds";
    QTest::newRow("at the end") << "-00:00:00"
                                << "0 seconds";
    QTest::newRow("many hours") << "100:00:01"
                                << "100 hours 1 second";
    QTest::newRow("more hours than can be") << "9999999999999:00:00"
                                            << "9999999999999:00:00";
    QTest::newRow("no time") << "soon"
                             << "soon";
    QTest::newRow("nothing") << ""
                             << "";
}

void tst_SpokenTime::readsATimeInDigits()
{
    QFETCH(QString, digits);
    QTEST(spokenClock(digits), "words");
}

QTEST_MAIN(tst_SpokenTime)
#include "tst_spokentime.moc"
