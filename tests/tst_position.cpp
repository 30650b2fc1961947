// The clock's labels and slider, seeking with the slider, and the volume.
// Not here: 5 s steps (tst_navigation.cpp), the sliders themselves (tst_imagetracker.cpp).
#include "widgetfixture.h"

#include <QMouseEvent>
#include <QSignalSpy>

#include <limits>

namespace {

using Long = std::numeric_limits<long long>;

const QStringList nothing;
constexpr int moved = 7;  // where a test puts the slider to see whether it moves

QString times(const Player &player)
{
    return player.ui.lblElapsedTime->text() + QLatin1Char(' ') + player.ui.lblRemainTime->text();
}

void press(QWidget *widget, const QPoint &place)
{
    QMouseEvent event(QEvent::MouseButtonPress, place, widget->mapToGlobal(place), Qt::LeftButton,
                      Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &event);
}

void release(QWidget *widget, const QPoint &place)
{
    QMouseEvent event(QEvent::MouseButtonRelease, place, widget->mapToGlobal(place), Qt::LeftButton,
                      Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &event);
}

}  // namespace

class tst_Position : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { failOnAnyWarning(); }

    void startsAtNothing();
    void aTickShowsTheTimesAndTheShare_data();
    void aTickShowsTheTimesAndTheShare();
    void aTickPastTheEndStops();
    void aTickPastTheEndStopsWhatIsPaused();
    void theClockTicksEveryHalfSecond();
    void theTimesStayWhenItPauses();
    void theSliderStaysUnderThePointer();

    void releasingSeeks_data();
    void releasingSeeks();
    void releasingSeeksWhilePaused();
    void releasingWithoutAPressDoesNothing();
    void releasingWhileStoppedKeepsThePress();
    void aPressOutlivesTheEndOfItsItem();
    void releasingPastTheEndStops();
    void ignoresWhatASeekReturns();
    void clickingTheGrooveSeeksThere();

    void theVolumeReachesTheEngineWhileAnEditIsOpen();
    void theVolumeWaitsWhileStopped();
    void theEndButtonsSetTheVolumeOnce();
    void theEndButtonsMoveTheSliderWhileStopped();
    void clickingTheGrooveSetsTheVolume();
};

void tst_Position::startsAtNothing()
{
    const Player player;
    QCOMPARE(times(player), QString("00:00:00 -00:00:00"));
    QCOMPARE(player.ui.playTracker->getValue(), 0);
    QCOMPARE(player.ui.volumeTracker->getValue(), 100);
}

void tst_Position::aTickShowsTheTimesAndTheShare_data()
{
    QTest::addColumn<qint64>("duration");
    QTest::addColumn<qint64>("position");
    QTest::addColumn<QString>("times");
    QTest::addColumn<int>("share");
    const struct
    {
        const char *name;
        qint64 duration;
        qint64 position;
        const char *times;
        int share;
    } rows[] = {
        {"a quarter", 120000, 30000, "00:00:30 -00:01:30", 250},
        {"the start", 120000, 0, "00:00:00 -00:02:00", 0},
        {"the end", 120000, 120000, "00:02:00 -00:00:00", 1000},
        {"cut, not rounded", 120000, 119999, "00:01:59 -00:00:00", 999},
        {"just below one share", 120000, 119, "00:00:00 -00:01:59", 0},
        {"a third", 3000, 1000, "00:00:01 -00:00:02", 333},
        {"a hundred hours", 360000000, 180000000, "50:00:00 -50:00:00", 500},
        {"past 32 bits", 9000000000, 4500000000, "1250:00:00 -1250:00:00", 500},
        {"the shortest", 1, 1, "00:00:00 -00:00:00", 1000},
        {"no length", 0, 0, "00:00:00 -00:00:00", 0},
        {"no length, before the start", 0, -1000, "00:00:-1 -00:00:01", 0},
        {"the longest", Long::max(), 0, "00:00:00 -2562047788015:12:55", 0},
        {"the longest, at its end", Long::max(), Long::max(), "2562047788015:12:55 -00:00:00", 0},
        {"both ends of the numbers", Long::max(), Long::min(), "-2562047788015:-12:-55 -00:00:00",
         0},
        {"a negative length, at its end", -1000, -1000, "00:00:-1 -00:00:00", 1000},
        {"a negative length, before", -1000, -5000, "00:00:-5 -00:00:04", moved},
    };
    for (const auto &row : rows)
        QTest::newRow(row.name) << row.duration << row.position << QString(row.times) << row.share;
}

void tst_Position::aTickShowsTheTimesAndTheShare()
{
    QFETCH(qint64, duration);
    QFETCH(qint64, position);
    Player player;
    player.engine.setDuration(10, duration);
    player.play();
    player.ui.playTracker->setValue(moved);
    player.impl.position = position;
    Player::tick(player.impl.playUpdateTimer);
    QTEST(times(player), "times");
    QTEST(player.ui.playTracker->getValue(), "share");
    QCOMPARE(player.calls(), nothing);
    QCOMPARE(player.impl.playState, int(PlayWidget_Impl::Playing));
}

void tst_Position::aTickPastTheEndStops()
{
    Player player;
    player.play();
    player.report(3, 60000);
    Player::tick(player.impl.playUpdateTimer);
    QCOMPARE(player.calls(), nothing);
    player.report(3, 60001);
    Player::tick(player.impl.playUpdateTimer);
    QCOMPARE(player.calls(), Player::stopCalls(true));
    QCOMPARE(times(player), QString("00:01:00 -00:00:00"));
    QCOMPARE(player.ui.playTracker->getValue(), 0);
}

void tst_Position::aTickPastTheEndStopsWhatIsPaused()
{
    Player player;
    player.play();
    player.pause();
    player.report(3, 60001);
    Player::tick(player.impl.playUpdateTimer);
    QCOMPARE(player.calls(), Player::stopCalls(true));
}

void tst_Position::theClockTicksEveryHalfSecond()
{
    Player player;
    QSignalSpy ticks(player.impl.playUpdateTimer, &QTimer::timeout);
    QElapsedTimer time;
    time.start();
    player.play();
    player.report(3, 4500);
    QTRY_COMPARE(ticks.count(), 2);
    QVERIFY(time.elapsed() >= 900);
    QCOMPARE(times(player), QString("00:00:04 -00:00:55"));
    QCOMPARE(player.ui.playTracker->getValue(), 75);
}

void tst_Position::theTimesStayWhenItPauses()
{
    Player player;
    player.play();
    player.report(3, 4500);
    Player::tick(player.impl.playUpdateTimer);
    player.pause();
    player.report(3, 9000);
    QCOMPARE(times(player), QString("00:00:04 -00:00:55"));
    QVERIFY(!player.impl.playUpdateTimer->isActive());
}

void tst_Position::theSliderStaysUnderThePointer()
{
    Player player;
    player.play();
    player.pressPlayTracker();
    QVERIFY(player.impl.trackerPressed);
    player.ui.playTracker->setValue(moved);
    player.report(3, 30000);
    Player::tick(player.impl.playUpdateTimer);
    QCOMPARE(player.ui.playTracker->getValue(), moved);
    QCOMPARE(times(player), QString("00:00:30 -00:00:30"));
}

void tst_Position::releasingSeeks_data()
{
    QTest::addColumn<qint64>("duration");
    QTest::addColumn<int>("value");
    QTest::addColumn<qint64>("position");
    QTest::addColumn<quint32>("sent");
    QTest::addColumn<QString>("times");
    QTest::addColumn<int>("share");
    const struct
    {
        const char *name;
        qint64 duration;
        int value;
        qint64 position;
        quint32 sent;
        const char *times;
        int share;
    } rows[] = {
        {"the middle", 120000, 500, 60000, 60000, "00:01:00 -00:01:00", 500},
        {"the start", 120000, 0, 0, 0, "00:00:00 -00:02:00", 0},
        {"the end", 120000, 1000, 120000, 120000, "00:02:00 -00:00:00", 1000},
        {"cut, not rounded", 1999, 500, 999, 999, "00:00:00 -00:00:01", 499},
        {"past 32 bits", 9000000000, 500, 4500000000, 205032704, "1250:00:00 -1250:00:00", 500},
        {"no length", 0, 500, 0, 0, "00:00:00 -00:00:00", 0},
        {"a negative length", -1000, 1000, -1000, 4294966296, "00:00:-1 -00:00:00", 1000},
        {"the longest", Long::max(), 500, 0, 0, "00:00:00 -2562047788015:12:55", 0},
        {"the longest, to its end", Long::max(), 1000, -1, 4294967295,
         "00:00:00 --2562047788015:-12:-55", 0},
    };
    for (const auto &row : rows) {
        QTest::newRow(row.name) << row.duration << row.value << row.position << row.sent
                                << QString(row.times) << row.share;
    }
}

void tst_Position::releasingSeeks()
{
    QFETCH(qint64, duration);
    QFETCH(int, value);
    QFETCH(quint32, sent);
    Player player;
    player.engine.setDuration(10, duration);
    player.play();
    player.pressPlayTracker();
    player.releasePlayTracker(value);
    QCOMPARE(player.calls(), QStringList{QStringLiteral("KestSetCurPos(%1)").arg(sent)});
    QTEST(player.impl.position, "position");
    QVERIFY(!player.impl.trackerPressed);
    QTEST(times(player), "times");  // at once
    QTEST(player.ui.playTracker->getValue(), "share");
}

void tst_Position::releasingSeeksWhilePaused()
{
    Player player;
    player.play();
    player.pause();
    player.pressPlayTracker();
    player.releasePlayTracker(250);
    QCOMPARE(player.calls(), QStringList{"KestSetCurPos(15000)"});
    QCOMPARE(times(player), QString("00:00:15 -00:00:45"));
    QCOMPARE(player.impl.playState, int(PlayWidget_Impl::Paused));
    QVERIFY(!player.impl.playUpdateTimer->isActive());
}

void tst_Position::releasingWithoutAPressDoesNothing()
{
    Player player;
    player.play();
    player.releasePlayTracker(250);
    QCOMPARE(player.calls(), nothing);
    QCOMPARE(player.impl.position, 0LL);
    QCOMPARE(times(player), QString("00:00:00 -00:00:00"));
}

void tst_Position::releasingWhileStoppedKeepsThePress()
{
    Player player;
    player.play();
    player.impl.stopVideo(true);
    player.calls();
    player.pressPlayTracker();
    player.releasePlayTracker(250);
    QCOMPARE(player.calls(), nothing);
    QVERIFY(player.impl.trackerPressed);
    QCOMPARE(player.impl.position, 0LL);

    player.play();
    player.releasePlayTracker(500);
    QCOMPARE(player.calls(), QStringList{"KestSetCurPos(30000)"});
    QVERIFY(!player.impl.trackerPressed);
}

// The user still holds the slider; until it seeks, no item moves it.
void tst_Position::aPressOutlivesTheEndOfItsItem()
{
    Player player;
    player.play(0);
    player.pressPlayTracker();
    player.impl.stopVideo(true);
    QVERIFY(player.impl.trackerPressed);
    player.play(1);
    player.ui.playTracker->setValue(moved);
    player.report(3, 30000);
    Player::tick(player.impl.playUpdateTimer);
    QCOMPARE(player.ui.playTracker->getValue(), moved);
}

// A handle of an odd width can be dragged a little past the maximum.
void tst_Position::releasingPastTheEndStops()
{
    Player player;
    player.play();
    player.ui.playTracker->setMaxValue(1004);
    player.pressPlayTracker();
    player.releasePlayTracker(1004);
    QCOMPARE(player.calls(), QStringList{"KestSetCurPos(60240)"} + Player::stopCalls(true));
    QVERIFY(!player.impl.trackerPressed);
}

void tst_Position::ignoresWhatASeekReturns()
{
    Player player;
    player.play();
    player.engine.setResult("KestSetCurPos", 5);
    player.pressPlayTracker();
    player.releasePlayTracker(500);
    QCOMPARE(player.impl.position, 30000LL);
    QVERIFY(!player.impl.trackerPressed);
    QCOMPARE(player.widget->errorString(), QString());
}

void tst_Position::clickingTheGrooveSeeksThere()
{
    Player player;
    player.play();
    player.ui.playTracker->resize(240, 15);
    const QPoint middle(120, 7);
    press(player.ui.playTracker, middle);
    QCOMPARE(player.calls(), nothing);
    const int value = player.ui.playTracker->getValue();
    QCOMPARE(value, (120 - 7) * 1000 / 225);
    release(player.ui.playTracker, middle);
    QCOMPARE(player.calls(), QStringList{QStringLiteral("KestSetCurPos(%1)").arg(value * 60)});
}

void tst_Position::theVolumeReachesTheEngineWhileAnEditIsOpen()
{
    Player player;
    player.play();
    player.impl.volumeChanged(37);
    player.pause();
    player.impl.volumeChanged(0);
    player.impl.volumeChanged(201);
    QCOMPARE(player.calls(), QStringList({"KestChangeVolume(0)", "KestChangeVolume(201)"}));
}

void tst_Position::theVolumeWaitsWhileStopped()
{
    Player player;
    player.impl.volumeChanged(37);
    Q_EMIT player.ui.volumeTracker->valueChanged(37);
    QCOMPARE(player.calls(), nothing);
}

void tst_Position::theEndButtonsSetTheVolumeOnce()
{
    Player player;
    player.play();
    player.ui.btnVolumeLeft->click();
    QCOMPARE(player.ui.volumeTracker->getValue(), 0);
    QCOMPARE(player.calls(), QStringList{"KestChangeVolume(0)"});
    player.ui.btnVolumeRight->click();
    QCOMPARE(player.ui.volumeTracker->getValue(), 200);
    QCOMPARE(player.calls(), QStringList{"KestChangeVolume(200)"});
    player.pause();
    player.ui.btnVolumeRight->click();
    QCOMPARE(player.calls(), QStringList{"KestChangeVolume(200)"});
    player.ui.btnVolumeLeft->click();
    QCOMPARE(player.calls(), QStringList{"KestChangeVolume(0)"});
}

void tst_Position::theEndButtonsMoveTheSliderWhileStopped()
{
    Player player;
    player.ui.btnVolumeLeft->click();
    QCOMPARE(player.ui.volumeTracker->getValue(), 0);
    player.ui.btnVolumeRight->click();
    QCOMPARE(player.ui.volumeTracker->getValue(), 200);
    QCOMPARE(player.calls(), nothing);
    player.widget->setPlayIndex(0);
    QCOMPARE(player.calls().at(6), QString("KestChangeVolume(200)"));
}

void tst_Position::clickingTheGrooveSetsTheVolume()
{
    Player player;
    player.play();
    press(player.ui.volumeTracker, QPoint(0, 5));
    QCOMPARE(player.ui.volumeTracker->getValue(), 0);
    QCOMPARE(player.calls(), QStringList{"KestChangeVolume(0)"});
}

QTEST_MAIN(tst_Position)
#include "tst_position.moc"
