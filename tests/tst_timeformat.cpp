// MillSecondsToStr: every part of a play time, from the shortest to the longest.
// Not here: which label shows it (tst_position.cpp).
#include "playwidget/timeformat.h"

#include <QTest>

#include <limits>

class tst_TimeFormat : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void writesHoursMinutesSecondsAndMilliseconds_data();
    void writesHoursMinutesSecondsAndMilliseconds();
};

void tst_TimeFormat::writesHoursMinutesSecondsAndMilliseconds_data()
{
    QTest::addColumn<qint64>("ms");
    QTest::addColumn<QString>("withMillis");
    QTest::addColumn<QString>("without");
    using Limits = std::numeric_limits<qint64>;
    const struct
    {
        const char *name;
        qint64 ms;
        const char *withMillis;
        const char *without;
    } rows[] = {
        {"nothing", 0, "00:00:00.000", "00:00:00"},
        {"one millisecond", 1, "00:00:00.001", "00:00:00"},
        {"just below a second", 999, "00:00:00.999", "00:00:00"},
        {"a second", 1000, "00:00:01.000", "00:00:01"},
        {"just below a minute", 59999, "00:00:59.999", "00:00:59"},
        {"a minute", 60000, "00:01:00.000", "00:01:00"},
        {"just below an hour", 3599999, "00:59:59.999", "00:59:59"},
        {"an hour", 3600000, "01:00:00.000", "01:00:00"},
        {"all parts", 3723004, "01:02:03.004", "01:02:03"},
        {"cut, not rounded", 3723999, "01:02:03.999", "01:02:03"},
        {"the longest with two digits", 359999999, "99:59:59.999", "99:59:59"},
        {"a hundred hours", 360000000, "100:00:00.000", "100:00:00"},
        {"past 32 bits", 4294967296, "1193:02:47.296", "1193:02:47"},
        {"the longest", Limits::max(), "2562047788015:12:55.807", "2562047788015:12:55"},
        {"below nothing", -1005, "00:00:-1.-05", "00:00:-1"},
        {"each part has the sign", -3723004, "-1:-2:-3.-04", "-1:-2:-3"},
        {"the shortest", Limits::min(), "-2562047788015:-12:-55.-808", "-2562047788015:-12:-55"},
    };
    for (const auto &row : rows)
        QTest::newRow(row.name) << row.ms << QString(row.withMillis) << QString(row.without);
}

void tst_TimeFormat::writesHoursMinutesSecondsAndMilliseconds()
{
    QFETCH(qint64, ms);
    QTEST(MillSecondsToStr(ms, true), "withMillis");
    QTEST(MillSecondsToStr(ms, false), "without");
}

QTEST_APPLESS_MAIN(tst_TimeFormat)
#include "tst_timeformat.moc"
