// The play list, the selection and the steps: from file to file, and 5 s within a film.
// Not here: what starting and stopping do besides (tst_transport.cpp).
#include "widgetfixture.h"

#include <limits>

namespace {

using Int = std::numeric_limits<int>;
using Long = std::numeric_limits<long long>;

const QStringList nothing;

bool current(const Player &player, int fileId, const char *name, bool audioOnly)
{
    return player.impl.currentFileId == fileId && player.impl.currentFileName == QLatin1String(name)
        && player.impl.currentAudioOnly == audioOnly;
}

bool fileButtons(const Player &player, bool prior, bool next)
{
    return player.ui.btnPriorFile->isEnabled() == prior
        && player.ui.btnNextFile->isEnabled() == next;
}

}  // namespace

class tst_Navigation : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { failOnAnyWarning(); }

    void addsAnItemAsGiven();
    void findsAnItemByIndexOrNone();
    void findsTheFirstItemByFileId();

    void selectingStartsTheItem();
    void selectingOutsideTheListSelectsTheFirst_data();
    void selectingOutsideTheListSelectsTheFirst();
    void selectingInAnEmptyListSelectsNothing();
    void selectingInAnEmptiedListLeavesPlaybackAlone_data();
    void selectingInAnEmptiedListLeavesPlaybackAlone();
    void selectingWhilePlayingBeginsWithoutEnding();
    void selectingWhilePausedOnlyResumes();
    void selectingAnItemThatCannotStartSelectsItAllTheSame();

    void clearKeepsPlayingAndSelectsZero();
    void clearLeavesNothingToStep();
    void playAfterClearDoesNothing();
    void playsAnotherItemUnderTheSelectedNameAndLength();

    void knowsItsNeighbours_data();
    void knowsItsNeighbours();
    void enablesTheFileButtonsByTheNeighbours_data();
    void enablesTheFileButtonsByTheNeighbours();
    void movesTheSelectionWithoutPlaying();

    void stepsToTheNextFile();
    void stepsToThePriorFile();
    void enablesTheFileButtonsOnceTheItemPlays();
    void stepsWhileStoppedWithoutStopping();
    void stepsWhilePausedAndPlays();
    void doesNotStepPastTheEnds();
    void leavesThePartButtonsAlone();

    void stepsWithinTheFilm_data();
    void stepsWithinTheFilm();
    void doesNotStepWithinWhileStopped();
    void ignoresWhatAPartStepReturns();
};

void tst_Navigation::addsAnItemAsGiven()
{
    Player player(0);
    player.widget->addPlayItem(-7, "C:/films/two words.avi", true, 3, -0.5);
    QCOMPARE(player.impl.playItemCount(), 1);
    const PlayItem &item = *player.impl.playItem(0);
    QCOMPARE(item.fileId, -7);
    QCOMPARE(item.fileName, QString("C:/films/two words.avi"));
    QCOMPARE(item.audioOnly, true);
    QCOMPARE(item.mode, 3);
    QCOMPARE(item.savedMode, 3);
    QCOMPARE(item.depth, -0.5);
    QCOMPARE(item.savedDepth, -0.5);
    QCOMPARE(player.impl.playIndex(), -1);
    QCOMPARE(player.calls(), nothing);
    QVERIFY(fileButtons(player, true, true));  // as the form made them
}

void tst_Navigation::findsAnItemByIndexOrNone()
{
    const Player player(2);
    QCOMPARE(player.impl.playItem(0)->fileId, 10);
    QCOMPARE(player.impl.playItem(1)->fileId, 20);
    for (int index : {-1, 2, Int::max(), Int::min()})
        QCOMPARE(player.impl.playItem(index), nullptr);
    QCOMPARE(Player(0).impl.playItem(0), nullptr);
}

void tst_Navigation::findsTheFirstItemByFileId()
{
    Player player(2);
    player.widget->addPlayItem(20, "again", false, 11, 0.0);
    QCOMPARE(player.impl.playItemByFileID(20), player.impl.playItem(1));
    QCOMPARE(player.impl.playItemByFileID(10), player.impl.playItem(0));
    QCOMPARE(player.impl.playItemByFileID(0), nullptr);
    QCOMPARE(player.impl.playItemByFileID(-1), nullptr);
}

void tst_Navigation::selectingStartsTheItem()
{
    Player player(3);
    player.impl.playItem(1)->audioOnly = true;
    player.widget->setPlayIndex(1);
    QCOMPARE(player.calls(), Player::startCalls(20));
    QCOMPARE(player.impl.playIndex(), 1);
    QVERIFY(current(player, 20, "/films/20.avi", true));
    QVERIFY(fileButtons(player, true, true));

    player.impl.playItem(1)->fileName = "renamed";
    player.impl.playItem(1)->audioOnly = false;
    QVERIFY(current(player, 20, "/films/20.avi", true));  // copies, taken once
}

void tst_Navigation::selectingOutsideTheListSelectsTheFirst_data()
{
    QTest::addColumn<int>("index");
    QTest::newRow("far") << 7;
    QTest::newRow("count") << 3;
    QTest::newRow("-1") << -1;
    QTest::newRow("-5") << -5;
    QTest::newRow("largest") << Int::max();
    QTest::newRow("smallest") << Int::min();
}

void tst_Navigation::selectingOutsideTheListSelectsTheFirst()
{
    QFETCH(int, index);
    Player player(3);
    player.widget->setPlayIndex(index);
    QCOMPARE(player.impl.playIndex(), 0);
    QCOMPARE(player.calls(), Player::startCalls(10));
    QVERIFY(current(player, 10, "/films/10.avi", false));
    QVERIFY(fileButtons(player, false, true));
}

void tst_Navigation::selectingInAnEmptyListSelectsNothing()
{
    for (int index : {0, 3, -1}) {
        Player player(0);
        player.widget->clear();
        QCOMPARE(player.impl.playIndex(), 0);
        player.widget->setPlayIndex(index);
        QCOMPARE(player.impl.playIndex(), -1);
        QCOMPARE(player.calls(), nothing);
        QCOMPARE(player.impl.playState, int(PlayWidget_Impl::Stopped));
        QVERIFY(fileButtons(player, false, false));
    }
}

void tst_Navigation::selectingInAnEmptiedListLeavesPlaybackAlone_data()
{
    QTest::addColumn<bool>("paused");
    QTest::newRow("playing") << false;
    QTest::newRow("paused") << true;
}

void tst_Navigation::selectingInAnEmptiedListLeavesPlaybackAlone()
{
    QFETCH(bool, paused);
    Player player(3);
    player.play(1);
    if (paused)
        player.pause();
    const int state = player.impl.playState;
    player.widget->clear();
    player.widget->setPlayIndex(0);
    QCOMPARE(player.calls(), nothing);
    QCOMPARE(player.impl.playState, state);
    QCOMPARE(player.impl.playIndex(), -1);
    QVERIFY(current(player, 20, "/films/20.avi", false));
    QVERIFY(fileButtons(player, false, false));
}

void tst_Navigation::selectingWhilePlayingBeginsWithoutEnding()
{
    Player player(3);
    player.play(0);
    player.impl.reapplyPending = false;  // the start before has nothing to do with this one
    player.widget->setPlayIndex(2);
    QStringList calls = Player::startCalls(30);
    calls[4] = "KestAddFilter(9, mode 11, depth 0)";  // an edit is open already
    QCOMPARE(player.calls(), calls);
    QVERIFY(current(player, 30, "/films/30.avi", false));
    QCOMPARE(player.ui.lblFileName->text(), QString("30.avi"));
    QCOMPARE(player.impl.playState, int(PlayWidget_Impl::Playing));
    QVERIFY(fileButtons(player, true, false));
}

void tst_Navigation::selectingWhilePausedOnlyResumes()
{
    Player player(3);
    player.play(0);
    player.pause();
    player.widget->setPlayIndex(2);
    QCOMPARE(player.calls(), QStringList{"KestPlay()"});
    QCOMPARE(player.impl.playIndex(), 2);
    QVERIFY(current(player, 30, "/films/30.avi", false));
    QCOMPARE(player.ui.lblFileName->text(), QString("10.avi"));
    QVERIFY(fileButtons(player, true, false));
}

void tst_Navigation::selectingAnItemThatCannotStartSelectsItAllTheSame()
{
    Player player(3);
    player.engine.setResult("KestPlay", 1);
    player.widget->setPlayIndex(2);
    QCOMPARE(player.impl.playIndex(), 2);
    QCOMPARE(player.impl.playState, int(PlayWidget_Impl::Stopped));
    QVERIFY(fileButtons(player, true, false));
}

void tst_Navigation::clearKeepsPlayingAndSelectsZero()
{
    Player player(3);
    player.impl.playItem(1)->audioOnly = true;
    player.play(1);
    player.widget->clear();
    QCOMPARE(player.impl.playItemCount(), 0);
    QCOMPARE(player.impl.playIndex(), 0);
    QCOMPARE(player.calls(), nothing);
    QCOMPARE(player.impl.playState, int(PlayWidget_Impl::Playing));
    QVERIFY(current(player, 20, "/films/20.avi", true));
    QVERIFY(fileButtons(player, true, true));  // not brought up to date

    player.impl.stopVideo(true);
    QCOMPARE(player.calls(), Player::stopCalls(true));
}

void tst_Navigation::clearLeavesNothingToStep()
{
    Player player(3);
    player.play(1);
    player.widget->clear();
    QVERIFY(!player.impl.hasPrirorFile());
    QVERIFY(!player.impl.hasNextFile());
    player.ui.btnPriorFile->click();
    player.ui.btnNextFile->click();
    QCOMPARE(player.calls(), nothing);
    player.impl.updatePriorAndNextState();
    QVERIFY(fileButtons(player, false, false));
}

void tst_Navigation::playAfterClearDoesNothing()
{
    Player player(3);
    player.play(1);
    player.impl.stopVideo(true);
    player.widget->clear();
    player.calls();
    player.ui.btnPlay->click();
    QCOMPARE(player.calls(), nothing);
    QCOMPARE(player.impl.playState, int(PlayWidget_Impl::Stopped));
}

// Name and length are those of the selection, which is older than the list; the edit is the item's.
void tst_Navigation::playsAnotherItemUnderTheSelectedNameAndLength()
{
    Player player(3);
    player.play(1);
    player.impl.stopVideo(true);
    player.impl.reapplyPending = false;
    player.widget->clear();
    player.widget->addPlayItem(99, "/films/99.avi", false, Kest3DTurnOff, 0.0);
    player.calls();
    player.ui.btnPlay->click();
    QStringList calls = Player::startCalls(99);
    calls[0] = "KestGetMediaDuration(20)";
    calls[4] = "KestAddFilter2(20, 9, mode 11, depth 0)";
    QCOMPARE(player.calls(), calls);
    QCOMPARE(player.ui.lblFileName->text(), QString("20.avi"));
}

void tst_Navigation::knowsItsNeighbours_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("index");
    QTest::addColumn<bool>("prior");
    QTest::addColumn<bool>("next");
    QTest::newRow("none selected") << 3 << -1 << false << false;
    QTest::newRow("first of three") << 3 << 0 << false << true;
    QTest::newRow("second of three") << 3 << 1 << true << true;
    QTest::newRow("third of three") << 3 << 2 << true << false;
    QTest::newRow("just past the end") << 3 << 3 << false << false;
    QTest::newRow("only one") << 1 << 0 << false << false;
    QTest::newRow("empty, none selected") << 0 << -1 << false << false;
    QTest::newRow("empty, zero selected") << 0 << 0 << false << false;
    QTest::newRow("largest") << 3 << Int::max() << false << false;
    QTest::newRow("smallest") << 3 << Int::min() << false << false;
}

void tst_Navigation::knowsItsNeighbours()
{
    QFETCH(int, count);
    QFETCH(int, index);
    Player player(count);
    player.impl.currentIndex = index;
    QTEST(player.impl.hasPrirorFile(), "prior");
    QTEST(player.impl.hasNextFile(), "next");
}

void tst_Navigation::enablesTheFileButtonsByTheNeighbours_data()
{
    knowsItsNeighbours_data();
}

void tst_Navigation::enablesTheFileButtonsByTheNeighbours()
{
    QFETCH(int, count);
    QFETCH(int, index);
    QFETCH(bool, prior);
    QFETCH(bool, next);
    Player player(count);
    player.impl.currentIndex = index;
    player.ui.btnPriorFile->setEnabled(!prior);
    player.ui.btnNextFile->setEnabled(!next);
    player.impl.updatePriorAndNextState();
    QVERIFY(fileButtons(player, prior, next));
}

void tst_Navigation::movesTheSelectionWithoutPlaying()
{
    Player player(2);
    player.impl.playItem(1)->audioOnly = true;
    player.impl.currentIndex = 0;
    QVERIFY(!player.impl.priorFileId());
    QVERIFY(player.impl.nextFileId());
    QCOMPARE(player.impl.playIndex(), 1);
    QVERIFY(current(player, 20, "/films/20.avi", true));
    QVERIFY(!player.impl.nextFileId());
    QCOMPARE(player.impl.playIndex(), 1);
    QVERIFY(player.impl.priorFileId());
    QCOMPARE(player.impl.playIndex(), 0);
    QVERIFY(current(player, 10, "/films/10.avi", false));
    QCOMPARE(player.calls(), nothing);
}

void tst_Navigation::stepsToTheNextFile()
{
    Player player(3);
    player.play(1);
    player.impl.reapplyPending = false;
    player.impl.playNextFile();
    QCOMPARE(player.calls(), Player::stopCalls(true) + Player::startCalls(30));
    QCOMPARE(player.impl.playIndex(), 2);
    QVERIFY(current(player, 30, "/films/30.avi", false));
    QVERIFY(fileButtons(player, true, false));
}

void tst_Navigation::stepsToThePriorFile()
{
    Player player(3);
    player.play(1);
    player.impl.reapplyPending = false;
    player.impl.playPriorFile();
    QCOMPARE(player.calls(), Player::stopCalls(true) + Player::startCalls(10));
    QCOMPARE(player.impl.playIndex(), 0);
    QVERIFY(current(player, 10, "/films/10.avi", false));
    QVERIFY(fileButtons(player, false, true));
}

void tst_Navigation::enablesTheFileButtonsOnceTheItemPlays()
{
    Player player(3);
    const NoteOnEvent next(player.ui.btnNextFile, QEvent::EnabledChange,
                           [] { return QStringLiteral("next"); });
    const NoteOnEvent prior(player.ui.btnPriorFile, QEvent::EnabledChange,
                            [] { return QStringLiteral("prior"); });
    player.widget->setPlayIndex(2);
    QCOMPARE(player.calls().mid(7), QStringList({"KestPlay()", "next"}));
    player.impl.playPriorFile();
    QCOMPARE(player.calls().last(), QString("next"));
    player.impl.playPriorFile();
    QCOMPARE(player.calls().last(), QString("prior"));
    player.impl.playNextFile();
    QCOMPARE(player.calls().last(), QString("prior"));
}

void tst_Navigation::stepsWhileStoppedWithoutStopping()
{
    Player player(3);
    player.play(0);
    player.impl.stopVideo(false);
    player.calls();
    player.impl.playNextFile();
    QCOMPARE(player.calls(), Player::startCalls(20));
    player.impl.stopVideo(false);
    player.calls();
    player.impl.playPriorFile();
    QCOMPARE(player.calls(), Player::startCalls(10));
}

void tst_Navigation::stepsWhilePausedAndPlays()
{
    Player player(3);
    player.play(0);
    player.pause();
    player.impl.playNextFile();
    QCOMPARE(player.calls(), Player::stopCalls(true) + Player::startCalls(20));
    QCOMPARE(player.impl.playState, int(PlayWidget_Impl::Playing));
}

void tst_Navigation::doesNotStepPastTheEnds()
{
    Player player(2);
    player.play(0);
    player.impl.playPriorFile();
    QCOMPARE(player.calls(), nothing);
    player.play(1);
    player.impl.playNextFile();
    QCOMPARE(player.calls(), nothing);
    QCOMPARE(player.impl.playIndex(), 1);
}

void tst_Navigation::leavesThePartButtonsAlone()
{
    Player player(1);
    player.play(0);
    QVERIFY(player.ui.btnPriorPart->isEnabled());
    player.ui.btnNextPart->setEnabled(false);
    player.impl.updatePriorAndNextState();
    player.impl.stopVideo(true);
    QVERIFY(player.ui.btnPriorPart->isEnabled());
    QVERIFY(!player.ui.btnNextPart->isEnabled());
}

void tst_Navigation::stepsWithinTheFilm_data()
{
    QTest::addColumn<qint64>("duration");
    QTest::addColumn<qint64>("position");
    QTest::addColumn<quint32>("prior");
    QTest::addColumn<quint32>("next");
    const struct
    {
        const char *name;
        qint64 duration;
        qint64 position;
        quint32 prior;
        quint32 next;
    } rows[] = {
        {"in the middle", 60000, 30000, 25000, 35000},
        {"just not past the end", 60000, 55000, 50000, 60000},
        {"past the end", 60000, 58000, 53000, 60000},
        {"at the end", 60000, 60000, 55000, 60000},
        {"before the start", 60000, 3000, 0, 8000},
        {"to the start", 60000, 5000, 0, 10000},
        {"just behind the start", 60000, 5001, 1, 10001},
        {"at the start", 60000, 0, 0, 5000},
        {"no length", 0, 0, 0, 0},
        {"a negative length", -1, 0, 0, 4294967295},
        {"a negative position", 60000, -6000, 0, 4294966296},
        {"only the low half counts", Long::max(), 4294967296 + 30000, 25000, 35000},
        {"the largest sum", Long::max(), 2147478647, 2147473647, 2147483647},
        {"a sum past 31 bits is negative", Long::max(), 2147478648, 2147473648, 2147483648},
        {"a position past 31 bits is negative", Long::max(), 3000000000, 0, 3000005000},
        {"the smallest difference wraps", Long::max(), 2147483648, 2147478648, 2147488648},
        {"the largest position", Long::max(), Long::max(), 0, 4999},
        {"the smallest position", Long::max(), Long::min(), 0, 5000},
        {"a length past 32 bits", 4294967296 + 7, 30000, 25000, 35000},
    };
    for (const auto &row : rows)
        QTest::newRow(row.name) << row.duration << row.position << row.prior << row.next;
}

void tst_Navigation::stepsWithinTheFilm()
{
    QFETCH(qint64, duration);
    QFETCH(qint64, position);
    QFETCH(quint32, prior);
    QFETCH(quint32, next);
    const QStringList steps = {QStringLiteral("KestSetCurPos(%1)").arg(prior),
                               QStringLiteral("KestSetCurPos(%1)").arg(next)};
    Player player;
    player.play();
    player.impl.duration = duration;
    player.impl.position = position;
    player.impl.playPriorPart();
    player.impl.playNextPart();
    QCOMPARE(player.calls(), steps);
    player.pause();
    player.impl.playPriorPart();
    player.impl.playNextPart();
    QCOMPARE(player.calls(), steps);
    QCOMPARE(player.impl.position, position);
}

void tst_Navigation::doesNotStepWithinWhileStopped()
{
    Player player;
    player.play();
    player.report(3, 30000);
    player.impl.stopVideo(true);
    player.calls();
    player.impl.playPriorPart();
    player.impl.playNextPart();
    QCOMPARE(player.calls(), nothing);
}

void tst_Navigation::ignoresWhatAPartStepReturns()
{
    Player player;
    player.play();
    player.engine.setResult("KestSetCurPos", 5);
    player.impl.playNextPart();
    player.impl.playPriorPart();
    QCOMPARE(player.calls(), QStringList({"KestSetCurPos(5000)", "KestSetCurPos(0)"}));
    QCOMPARE(player.widget->errorString(), QString());
}

QTEST_MAIN(tst_Navigation)
#include "tst_navigation.moc"
