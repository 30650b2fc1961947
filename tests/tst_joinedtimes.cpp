// JoinedTimes: the times of pictures that jump back, as numbers.
// Not here: films in which they do (tst_streamcopy.cpp).
#include "host/joinedtimes.h"

#include <QtTest>

#include <limits>

namespace {

using Times = QList<std::int64_t>;

constexpr std::int64_t lowest = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t highest = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t furthest = 1000000000000000;

Times joined(const Times &inFile)
{
    JoinedTimes times;
    Times due;
    for (const std::int64_t time : inFile)
        due << times.next(time);
    return due;
}

}  // namespace

class tst_JoinedTimes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void timesThatGoOnStayAsTheyAre()
    {
        QCOMPARE(joined({-80, -40, 0, 40, 1000, 1040}), Times({-80, -40, 0, 40, 1000, 1040}));
    }

    void timesThatJumpBackGoOnAfterTheLast()
    {
        QCOMPARE(joined({1000, 1040, 1000000, 1000040, 500, 700, 500, 540}),
                 Times({1000, 1040, 1000000, 1000040, 1000080, 1000280, 1000480, 1000520}));
    }

    void aFileThatIsMerelyUntidyIsNotJoined()
    {
        QCOMPARE(joined({0, 200, 100, 240}), Times({0, 200, 100, 240}));
        QCOMPARE(joined({0, 200, 99, 139}), Times({0, 200, 400, 440}));
    }

    void tellsWhereItIsAndByHowMuchItMoves()
    {
        JoinedTimes times;
        QCOMPARE(times.latest(), std::int64_t(0));
        times.next(400);
        times.next(440);
        QCOMPARE(times.shift(), std::int64_t(0));
        times.next(0);
        QCOMPARE(times.shift(), std::int64_t(480));
        QCOMPARE(times.latest(), std::int64_t(480));
    }

    void numbersThatAreNoTimesAreBounded()
    {
        QCOMPARE(joined({highest}), Times({furthest}));
        QCOMPARE(joined({lowest}), Times({-furthest}));
        Times wild;
        for (int i = 0; i < 20000; ++i)
            wild << highest << lowest;
        QCOMPARE(joined(wild).last(), std::int64_t(0));
    }
};

QTEST_APPLESS_MAIN(tst_JoinedTimes)
#include "tst_joinedtimes.moc"
