// PlayWidget: what a host gets from each call, and what it may do inside a signal.
// Not here: what the player behind it does with the calls; that is the other tests of the widget.
#include "widgetfixture.h"

#include <QFile>
#include <QPushButton>
#include <QSignalSpy>

#include <limits>
#include <thread>

namespace {

constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

struct Props
{
    bool found;
    bool changed;
    int mode;
    double depth;
};

// Outputs of a call start as (changed, -77, -7.5), to see which of them it writes.
Props byIndex(const PlayWidget &widget, int index, bool changed = false)
{
    Props props = {false, changed, -77, -7.5};
    props.found = widget.movie3DPropsByIndex(index, props.changed, props.mode, props.depth);
    return props;
}

Props byFileId(const PlayWidget &widget, int fileId, bool changed = false)
{
    Props props = {false, changed, -77, -7.5};
    props.found = widget.movie3DPropsByFileID(fileId, props.changed, props.mode, props.depth);
    return props;
}

bool operator==(const Props &a, const Props &b)
{
    const bool sameDepth = a.depth == b.depth || (qIsNaN(a.depth) && qIsNaN(b.depth));
    return a.found == b.found && a.changed == b.changed && a.mode == b.mode && sameDepth;
}

enum class WayOut { Ok, Cancel, Escape };

void take(Player &player, WayOut way)
{
    const auto standard = way == WayOut::Ok ? QDialogButtonBox::Ok : QDialogButtonBox::Cancel;
    if (way == WayOut::Escape)
        QTest::keyClick(&player.impl, Qt::Key_Escape);
    else
        player.ui.buttonBox->button(standard)->click();
}

void addWaysOut()
{
    QTest::addColumn<WayOut>("way");
    QTest::newRow("OK") << WayOut::Ok;
    QTest::newRow("Cancel") << WayOut::Cancel;
    QTest::newRow("Escape") << WayOut::Escape;
}

}  // namespace

Q_DECLARE_METATYPE(WayOut)

class tst_PlayWidget : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { failOnAnyWarning(); }

    void bringsItsSkinBeforeAnyWidgetExists();
    void startsEmpty();
    void takesAParentOrNone();
    void holdsOnePlainChildAtTheTopLeft();
    void asksForOneSizeAlways();

    void initializeRemovesTheModeBeforeItTakesTheHandle();
    void initializeTakesAnyHandleAsItIs();
    void initializeKeepsOffInTheList();

    void countsTheItemsAndTellsTheSelectedOne();
    void tellsWhetherToApplyToAll();
    void removesAMode();
    void replacesATextUnderTheSameIds();
    void setsThePropsOfAFileDirectly();

    void readsNothingOfAnItemThatIsNotThere_data();
    void readsNothingOfAnItemThatIsNotThere();
    void readsAnUntouchedItemAsUnchanged();
    void readsTheCurrentValuesOfAChangedItem_data();
    void readsTheCurrentValuesOfAChangedItem();
    void findsTheFirstItemOfAFileId();

    void joinsTheErrorsWithLineEnds();
    void keepsTheErrorsForGood();

    void signalsEachWayOutOnce_data();
    void signalsEachWayOutOnce();
    void passesTheSignalsOn();
    void passesASignalOfAnotherThreadOnInItsOwn();
    void mayBeDeletedLaterInsideASignal_data();
    void mayBeDeletedLaterInsideASignal();
    void mayBeDeletedInsideASignal_data();
    void mayBeDeletedInsideASignal();
    void mayBeDeletedInsideAnEvent_data();
    void mayBeDeletedInsideAnEvent();

    void deletingItEndsTheEditWithoutSaving_data();
    void deletingItEndsTheEditWithoutSaving();
    void deletingItWhileStoppedCallsNothing();
    void isStillThePlayerWhileItEndsTheEdit();
    void diesWithItsParent();
};

void tst_PlayWidget::bringsItsSkinBeforeAnyWidgetExists()
{
    QVERIFY(QFile::exists(":/qss/Varlume.qss"));
    QVERIFY(QFile::exists(":/skin/music.png"));
}

void tst_PlayWidget::startsEmpty()
{
    const PlayWidget widget;
    QCOMPARE(widget.playIndex(), -1);
    QCOMPARE(widget.playItemCount(), 0);
    QCOMPARE(widget.getApplyToAll(), false);
    QCOMPARE(widget.errorString(), QString());
    QCOMPARE(widget.m_impl->engine, nullptr);
}

void tst_PlayWidget::takesAParentOrNone()
{
    QWidget parent;
    QCOMPARE(PlayWidget(&parent).parentWidget(), &parent);
    QCOMPARE(PlayWidget().parentWidget(), nullptr);
}

void tst_PlayWidget::holdsOnePlainChildAtTheTopLeft()
{
    PlayWidget widget;
    QCOMPARE(widget.children(), QObjectList{widget.m_impl});
    QCOMPARE(widget.layout(), nullptr);
    QCOMPARE(widget.m_impl->minimumSize(), QSize(702, 585));
    widget.resize(900, 800);
    widget.show();
    QCOMPARE(widget.m_impl->pos(), QPoint(0, 0));
    QCOMPARE(widget.m_impl->size(), QSize(702, 585));
}

void tst_PlayWidget::asksForOneSizeAlways()
{
    PlayWidget widget;
    QCOMPARE(widget.actualSize(), QSize(702, 585));
    widget.resize(30, 20);
    widget.initialize(FakeKest::handle(), Kest3DRedCyan);
    widget.addPlayItem(1, "a", false, 11, 0.0);
    QCOMPARE(widget.actualSize(), QSize(702, 585));
    widget.clear();
    QCOMPARE(widget.actualSize(), QSize(702, 585));
}

void tst_PlayWidget::initializeRemovesTheModeBeforeItTakesTheHandle()
{
    FakeKest::instance().reset();
    PlayWidget widget;
    QComboBox *modes = widget.m_impl->ui.cbx3DMode;
    modes->setCurrentIndex(1);
    widget.initialize(FakeKest::handle(), Kest3DRedCyan);

    QCOMPARE(modes->count(), 6);
    QCOMPARE(modes->itemText(1), QString("Red/Green"));
    QCOMPARE(widget.m_impl->engine, FakeKest::handle());
    // The list lost its current entry, which is a change, but there was no engine yet to hear of it.
    QCOMPARE(FakeKest::instance().takeCalls(), QStringList());
}

void tst_PlayWidget::initializeTakesAnyHandleAsItIs()
{
    int other = 0;
    PlayWidget widget;
    widget.initialize(FakeKest::handle(), Kest3DTurnOff);
    QCOMPARE(widget.m_impl->engine, FakeKest::handle());
    widget.initialize(&other, Kest3DTurnOff);
    QCOMPARE(widget.m_impl->engine, static_cast<void *>(&other));
    widget.initialize(nullptr, Kest3DTurnOff);
    QCOMPARE(widget.m_impl->engine, nullptr);
}

void tst_PlayWidget::initializeKeepsOffInTheList()
{
    PlayWidget widget;
    widget.initialize(FakeKest::handle(), Kest3DTurnOff);
    QCOMPARE(widget.m_impl->ui.cbx3DMode->count(), 7);
}

void tst_PlayWidget::countsTheItemsAndTellsTheSelectedOne()
{
    Player player(3);
    QCOMPARE(player.widget->playItemCount(), 3);
    QCOMPARE(player.widget->playIndex(), -1);
    player.play(2);
    QCOMPARE(player.widget->playIndex(), 2);
    player.widget->clear();
    QCOMPARE(player.widget->playItemCount(), 0);
    QCOMPARE(player.widget->playIndex(), 0);
}

void tst_PlayWidget::tellsWhetherToApplyToAll()
{
    Player player;
    QCOMPARE(player.widget->getApplyToAll(), false);
    player.ui.chxApplyToAll->click();
    QCOMPARE(player.widget->getApplyToAll(), true);
    player.ui.chxApplyToAll->click();
    QCOMPARE(player.widget->getApplyToAll(), false);
}

void tst_PlayWidget::removesAMode()
{
    Player player;
    player.widget->set3DModeVisible(Kest3DInterleaved);
    QCOMPARE(player.ui.cbx3DMode->count(), 6);
    QCOMPARE(player.ui.cbx3DMode->findData(int(Kest3DInterleaved)), -1);
}

void tst_PlayWidget::replacesATextUnderTheSameIds()
{
    QCOMPARE(int(PlayWidget::VolumeLeftTip), 0);
    QCOMPARE(int(PlayWidget::CancelButtonText), 18);
    QCOMPARE(int(PlayWidget_Impl::VolumeLeftTip), 0);
    QCOMPARE(int(PlayWidget_Impl::CancelButtonText), 18);
    Player player;
    player.widget->setTranslationText(PlayWidget::DepthLabelText, "Tiefe");
    QCOMPARE(player.ui.lbl3DDepth->text(), QString("Tiefe"));
}

void tst_PlayWidget::setsThePropsOfAFileDirectly()
{
    Player player;
    player.play();
    int other = 0;
    QCOMPARE(PlayWidget::setMovie3DPropsDirect(&other, 10, 4, 0.06), 0);
    QCOMPARE(player.engine.lastEngine(), static_cast<void *>(&other));
    player.engine.setResult("KestAddFilter2", -9);
    QCOMPARE(PlayWidget::setMovie3DPropsDirect(&other, 99, 6, -0.3), -9);

    QCOMPARE(player.calls(),
             QStringList({"KestAddFilter2(10, 9, mode 4, depth 0.06)",
                          "KestAddFilter2(99, 9, mode 6, depth -0.3)"}));
    QVERIFY(byFileId(*player.widget, 10) == (Props{true, false, 11, 0.0}));
    QCOMPARE(player.ui.cbx3DMode->currentIndex(), 0);
    QCOMPARE(player.widget->errorString(), QString());
}

void tst_PlayWidget::readsNothingOfAnItemThatIsNotThere_data()
{
    QTest::addColumn<int>("number");
    QTest::newRow("-1") << -1;
    QTest::newRow("count") << 3;
    QTest::newRow("largest") << std::numeric_limits<int>::max();
    QTest::newRow("smallest") << std::numeric_limits<int>::min();
}

void tst_PlayWidget::readsNothingOfAnItemThatIsNotThere()
{
    QFETCH(int, number);
    const Player player(3, 4, 0.5);
    for (bool changed : {false, true}) {
        const Props untouched = {false, changed, -77, -7.5};
        QVERIFY(byIndex(*player.widget, number, changed) == untouched);
        QVERIFY(byFileId(*player.widget, number, changed) == untouched);
        QVERIFY(byIndex(PlayWidget(), 0, changed) == untouched);
    }
}

void tst_PlayWidget::readsAnUntouchedItemAsUnchanged()
{
    PlayWidget widget;
    widget.addPlayItem(7, "a", false, 3, 0.5);
    widget.addPlayItem(8, "b", true, 4, 0.06);
    const Props first = {true, false, 3, 0.5};
    const Props second = {true, false, 4, 0.06};
    QVERIFY(byIndex(widget, 0, true) == first);
    QVERIFY(byIndex(widget, 1, true) == second);
    QVERIFY(byFileId(widget, 7, true) == first);
    QVERIFY(byFileId(widget, 8, true) == second);
}

void tst_PlayWidget::readsTheCurrentValuesOfAChangedItem_data()
{
    QTest::addColumn<double>("saved");
    QTest::addColumn<int>("mode");
    QTest::addColumn<double>("depth");
    QTest::addColumn<bool>("changed");
    QTest::newRow("nothing") << 0.06 << 4 << 0.06 << false;
    QTest::newRow("the mode") << 0.06 << 11 << 0.06 << true;
    QTest::newRow("the depth") << 0.06 << 4 << 0.0600000001 << true;
    QTest::newRow("both") << 0.06 << 9 << -0.3 << true;
    QTest::newRow("the sign of nothing") << 0.0 << 4 << -0.0 << false;
    QTest::newRow("infinite") << infinity << 4 << infinity << false;
    QTest::newRow("infinite the other way") << infinity << 4 << -infinity << true;
    QTest::newRow("now no number") << 0.06 << 4 << noNumber << true;
    QTest::newRow("no longer no number") << noNumber << 4 << 0.06 << true;
    QTest::newRow("never a number") << noNumber << 4 << noNumber << true;
}

void tst_PlayWidget::readsTheCurrentValuesOfAChangedItem()
{
    QFETCH(double, saved);
    QFETCH(int, mode);
    QFETCH(double, depth);
    QFETCH(bool, changed);
    Player player(2, 4, saved);
    player.impl.addFilter(1, mode, depth);
    const Props expected = {true, changed, mode, depth};
    QVERIFY(byIndex(*player.widget, 1, !changed) == expected);
    QVERIFY(byFileId(*player.widget, 20, !changed) == expected);
    QCOMPARE(player.impl.playItem(1)->savedMode, 4);
    QCOMPARE(player.impl.playItem(1)->savedDepth, saved);
}

void tst_PlayWidget::findsTheFirstItemOfAFileId()
{
    PlayWidget widget;
    widget.addPlayItem(7, "a", false, 1, 0.1);
    widget.addPlayItem(-1, "b", false, 2, 0.2);
    widget.addPlayItem(7, "c", false, 4, 0.3);
    QVERIFY(byFileId(widget, 7) == (Props{true, false, 1, 0.1}));
    QVERIFY(byFileId(widget, -1) == (Props{true, false, 2, 0.2}));
}

void tst_PlayWidget::joinsTheErrorsWithLineEnds()
{
    Player player;
    player.engine.setResult("KestPlay", 3);
    player.widget->setPlayIndex(0);
    QCOMPARE(player.widget->errorString(), QString("ERROR: KestPlay function failed. [Code: 3]"));
    player.engine.setResult("KestPlay", -4);
    player.widget->setPlayIndex(1);
    player.impl.errorList().addError("last");
    QCOMPARE(player.widget->errorString(),
             QString("ERROR: KestPlay function failed. [Code: 3]\r\n"
                     "ERROR: KestPlay function failed. [Code: -4]\r\n"
                     "last"));
}

void tst_PlayWidget::keepsTheErrorsForGood()
{
    Player player;
    player.engine.setResult("KestPause", 5);
    player.play();
    player.impl.pauseVideo();
    const QString line = "ERROR: KestPause function failed. [Code: 5]";
    QCOMPARE(player.widget->errorString(), line);
    QCOMPARE(player.widget->errorString(), line);
    player.impl.stopVideo(true);
    player.widget->clear();
    player.widget->addPlayItem(1, "a", false, 11, 0.0);
    player.widget->setPlayIndex(0);
    player.widget->initialize(nullptr, Kest3DRedCyan);
    QCOMPARE(player.widget->errorString(), line);
}

void tst_PlayWidget::signalsEachWayOutOnce_data()
{
    addWaysOut();
}

void tst_PlayWidget::signalsEachWayOutOnce()
{
    QFETCH(WayOut, way);
    Player player;
    player.play();
    QSignalSpy accepted(player.widget.get(), &PlayWidget::accepted);
    QSignalSpy rejected(player.widget.get(), &PlayWidget::rejected);
    take(player, way);
    QCOMPARE(accepted.count(), way == WayOut::Ok ? 1 : 0);
    QCOMPARE(rejected.count(), way == WayOut::Ok ? 0 : 1);
    QCOMPARE(player.calls(), Player::stopCalls(way == WayOut::Ok));
}

void tst_PlayWidget::passesTheSignalsOn()
{
    PlayWidget widget;
    QSignalSpy accepted(&widget, &PlayWidget::accepted);
    QSignalSpy rejected(&widget, &PlayWidget::rejected);
    Q_EMIT widget.m_impl->accepted();
    QCOMPARE(accepted.count(), 1);
    QCOMPARE(rejected.count(), 0);
    Q_EMIT widget.m_impl->rejected();
    QCOMPARE(accepted.count(), 1);
    QCOMPARE(rejected.count(), 1);
}

void tst_PlayWidget::passesASignalOfAnotherThreadOnInItsOwn()
{
    PlayWidget widget;
    QSignalSpy accepted(&widget, &PlayWidget::accepted);
    QSignalSpy rejected(&widget, &PlayWidget::rejected);
    std::thread([&] {
        Q_EMIT widget.m_impl->accepted();
        Q_EMIT widget.m_impl->rejected();
    }).join();
    QCOMPARE(accepted.count() + rejected.count(), 0);
    QTRY_COMPARE(accepted.count(), 1);
    QTRY_COMPARE(rejected.count(), 1);
}

void tst_PlayWidget::mayBeDeletedLaterInsideASignal_data()
{
    addWaysOut();
}

void tst_PlayWidget::mayBeDeletedLaterInsideASignal()
{
    QFETCH(WayOut, way);
    Player player;
    player.play();
    const QPointer<PlayWidget> widget = player.widget.release();
    connect(widget, &PlayWidget::accepted, widget, &QObject::deleteLater);
    connect(widget, &PlayWidget::rejected, widget, &QObject::deleteLater);
    take(player, way);
    QVERIFY(widget);
    QTRY_VERIFY(!widget);
}

void tst_PlayWidget::mayBeDeletedInsideASignal_data()
{
    addWaysOut();
}

void tst_PlayWidget::mayBeDeletedInsideASignal()
{
    QFETCH(WayOut, way);
    Player player;
    player.play();
    const QPointer<PlayWidget> widget = player.widget.release();
    connect(widget, &PlayWidget::accepted, [&] { delete widget; });
    connect(widget, &PlayWidget::rejected, [&] { delete widget; });
    take(player, way);
    QVERIFY(!widget);
}

void tst_PlayWidget::mayBeDeletedInsideAnEvent_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<bool>("saved");
    QTest::addColumn<bool>("queued");
    for (const bool queued : {false, true}) {
        const char *way = queued ? "of another thread" : "of this thread";
        QTest::addRow("a position %s", way) << 3 << false << queued;
        QTest::addRow("a tick past the end %s", way) << 7 << true << queued;
        QTest::addRow("the end %s", way) << 5 << true << queued;
    }
}

// More events are on their way when it goes: the host still hears of them, the player does not.
void tst_PlayWidget::mayBeDeletedInsideAnEvent()
{
    QFETCH(int, state);
    QFETCH(bool, saved);
    QFETCH(bool, queued);
    Player player;
    player.play();
    player.report(3, 60001);
    const QPointer<PlayWidget> widget = player.widget.release();
    int heard = 0;
    const QObject host;
    connect(&player.impl, &PlayWidget_Impl::updatePlayState, &host, [&] {
        ++heard;
        delete widget;
    });
    const int events = queued ? 3 : 1;
    const auto send = [&] {
        for (int i = 0; i < events; ++i)
            player.report(state, 60002);
    };
    if (queued)
        std::thread(send).join();
    else
        send();
    QCOMPARE(heard, queued ? 0 : 1);
    QTRY_COMPARE(heard, events);
    QVERIFY(!widget);
    QCOMPARE(player.calls(), Player::stopCalls(saved));
}

void tst_PlayWidget::deletingItEndsTheEditWithoutSaving_data()
{
    QTest::addColumn<bool>("paused");
    QTest::newRow("playing") << false;
    QTest::newRow("paused") << true;
}

void tst_PlayWidget::deletingItEndsTheEditWithoutSaving()
{
    QFETCH(bool, paused);
    Player player;
    player.play();
    if (paused)
        player.pause();
    player.widget.reset();
    QCOMPARE(player.calls(), Player::stopCalls(false));
}

void tst_PlayWidget::deletingItWhileStoppedCallsNothing()
{
    Player player;
    player.play();
    player.impl.stopVideo(true);
    player.calls();
    player.widget.reset();
    QCOMPARE(player.calls(), QStringList());
}

void tst_PlayWidget::isStillThePlayerWhileItEndsTheEdit()
{
    Player player;
    player.play();
    player.widget->setTranslationText(PlayWidget::PlayTip, "Play it");
    const NoteOnEvent tip(player.ui.btnPlay, QEvent::ToolTipChange, [widget = player.widget.get()] {
        return QString::fromLatin1(widget->metaObject()->className());
    });
    player.widget.reset();
    QCOMPARE(player.calls().mid(0, 2), QStringList({"KestEditEnd(false)", "PlayWidget"}));
}

void tst_PlayWidget::diesWithItsParent()
{
    Player player;
    player.play();
    const QPointer<PlayWidget> widget = player.widget.release();
    auto *host = new QWidget;
    widget->setParent(host);
    delete host;
    QVERIFY(!widget);
    QCOMPARE(player.calls(), Player::stopCalls(false));
}

QTEST_MAIN(tst_PlayWidget)
#include "tst_playwidget.moc"
