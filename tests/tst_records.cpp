// The records that cross to the engine and the window: their layout, byte for byte, and the values
// that the widget puts into them. Not here: when they are sent.
#include "engine/videownd.h"
#include "widgetfixture.h"

#include <cstddef>
#include <cstring>
#include <limits>

namespace {

template <typename T> QByteArray bytes(const T &value)
{
    return QByteArray(reinterpret_cast<const char *>(&value), int(sizeof value));
}

QByteArray zeros(int count)
{
    return QByteArray(count, '\0');
}

// Leaves ones where the next call has its locals, so that a record that is not cleared shows them.
Q_NEVER_INLINE void dirtyTheStack()
{
    volatile unsigned char bytes[4096];
    for (volatile unsigned char &byte : bytes)
        byte = 0xff;
}

const QByteArray seventeen("\x11\0\0\0", 4);

}  // namespace

class tst_Records : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { failOnAnyWarning(); }

    void numbersTheModesAsTheEngineDoes();
    void packsTheFilterRecordInto84Bytes();
    void fillsAFilterRecordWithModeAndDepthOnly_data();
    void fillsAFilterRecordWithModeAndDepthOnly();
    void fillsEveryRecordOfAnEditAlike();
    void clearsTheRecordThatTheEngineFills();
    void laysTheEditOutInItsOrder();
    void laysEventAndMessageOut();
    void describesTheEditOfAnItem();
    void describesTheWindowAsItIsWhenTheEditBegins();
    void everyCallCarriesTheHostsHandle();
};

void tst_Records::numbersTheModesAsTheEngineDoes()
{
    QCOMPARE(int(Kest3DTurnOff), 11);
    QCOMPARE(int(Kest3DRedCyan), 4);
    QCOMPARE(int(Kest3DRedGreen), 1);
    QCOMPARE(int(Kest3DRedBlue), 2);
    QCOMPARE(int(Kest3DBlueYellow), 6);
    QCOMPARE(int(Kest3DInterleaved), 8);
    QCOMPARE(int(Kest3DSlideBySlide), 9);
}

void tst_Records::packsTheFilterRecordInto84Bytes()
{
    QCOMPARE(sizeof(tagKestFilterInfo), size_t(84));
    QCOMPARE(alignof(tagKestFilterInfo), size_t(4));
    QCOMPARE(offsetof(tagKestFilterInfo, reserved0), size_t(0));
    QCOMPARE(offsetof(tagKestFilterInfo, type), size_t(4));
    QCOMPARE(offsetof(tagKestFilterInfo, mode), size_t(8));
    QCOMPARE(offsetof(tagKestFilterInfo, reserved1), size_t(12));
    QCOMPARE(offsetof(tagKestFilterInfo, depth), size_t(20));
    QCOMPARE(offsetof(tagKestFilterInfo, reserved2), size_t(28));
}

void tst_Records::fillsAFilterRecordWithModeAndDepthOnly_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QByteArray>("modeBytes");
    QTest::addColumn<double>("depth");
    QTest::addColumn<QByteArray>("depthBytes");
    const auto bits = [](const char *littleEndian) { return QByteArray(littleEndian, 8); };
    QTest::newRow("red/cyan, 0.12")
        << 4 << QByteArray("\4\0\0\0", 4) << 0.12 << bits("\xb8\x1e\x85\xeb\x51\xb8\xbe\x3f");
    QTest::newRow("off, 0") << 11 << QByteArray("\x0b\0\0\0", 4) << 0.0 << zeros(8);
    QTest::newRow("no mode, -2") << -1 << QByteArray("\xff\xff\xff\xff") << -2.0
                                 << bits("\0\0\0\0\0\0\0\xc0");
    QTest::newRow("infinite") << 0 << zeros(4) << std::numeric_limits<double>::infinity()
                              << bits("\0\0\0\0\0\0\xf0\x7f");
}

void tst_Records::fillsAFilterRecordWithModeAndDepthOnly()
{
    QFETCH(int, mode);
    QFETCH(QByteArray, modeBytes);
    QFETCH(double, depth);
    QFETCH(QByteArray, depthBytes);
    FakeKest::instance().reset();
    dirtyTheStack();
    PlayWidget::setMovie3DPropsDirect(FakeKest::handle(), 7, mode, depth);
    QCOMPARE(bytes(FakeKest::instance().addedFilter()).toHex(),
             (zeros(4) + seventeen + modeBytes + zeros(8) + depthBytes + zeros(56)).toHex());
}

void tst_Records::fillsEveryRecordOfAnEditAlike()
{
    Player player(1, Kest3DRedCyan, -0.012);
    const QByteArray record = zeros(4) + seventeen + QByteArray("\4\0\0\0", 4) + zeros(8)
        + bytes(-2 * 0.006) + zeros(56);
    dirtyTheStack();
    player.impl.addFilter(0, Kest3DRedCyan, -2 * 0.006);
    QCOMPARE(bytes(player.engine.addedFilter()).toHex(), record.toHex());
    dirtyTheStack();
    player.play();  // the engine keeps nothing, so the item's values go out last
    QCOMPARE(bytes(player.engine.addedFilter()).toHex(), record.toHex());
}

void tst_Records::clearsTheRecordThatTheEngineFills()
{
    Player player;
    player.engine.setKeptFilter(10, Kest3DRedCyan, -2.0);
    dirtyTheStack();
    player.play();
    QCOMPARE(bytes(player.engine.addedFilter()).toHex(),
             (zeros(8) + QByteArray("\4\0\0\0", 4) + zeros(8) + bytes(-2.0) + zeros(56)).toHex());
}

void tst_Records::laysTheEditOutInItsOrder()
{
    constexpr size_t pointer = sizeof(void *);
    QCOMPARE(sizeof(EditBeginParams), 32 + 4 * pointer);
    QCOMPARE(offsetof(EditBeginParams, mode), size_t(0));
    QCOMPARE(offsetof(EditBeginParams, fileId), size_t(4));
    QCOMPARE(offsetof(EditBeginParams, factor), size_t(8));
    QCOMPARE(offsetof(EditBeginParams, firstHeight), size_t(16));
    QCOMPARE(offsetof(EditBeginParams, firstWidth), size_t(20));
    QCOMPARE(offsetof(EditBeginParams, secondHeight), size_t(24));
    QCOMPARE(offsetof(EditBeginParams, secondWidth), size_t(28));
    QCOMPARE(offsetof(EditBeginParams, firstWindow), size_t(32));
    QCOMPARE(offsetof(EditBeginParams, secondWindow), 32 + pointer);
    QCOMPARE(offsetof(EditBeginParams, callback), 32 + 2 * pointer);
    QCOMPARE(offsetof(EditBeginParams, userData), 32 + 3 * pointer);
}

void tst_Records::laysEventAndMessageOut()
{
    QCOMPARE(sizeof(tagKestEvent), size_t(12));
    QCOMPARE(offsetof(tagKestEvent, eventType), size_t(0));
    QCOMPARE(offsetof(tagKestEvent, state), size_t(4));
    QCOMPARE(offsetof(tagKestEvent, time), size_t(8));
    QCOMPARE(offsetof(CVideoWnd::tagMsgParams, command), size_t(0));
    QCOMPARE(offsetof(CVideoWnd::tagMsgParams, param), size_t(4));
}

void tst_Records::describesTheEditOfAnItem()
{
    Player player;
    player.play(1);
    const EditBeginParams &params = player.engine.editBeginParams();
    QCOMPARE(params.mode, 1);
    QCOMPARE(params.fileId, 20);
    QCOMPARE(params.factor, 1.0);
    QCOMPARE(params.firstWindow, player.ui.videoWnd);
    QCOMPARE(params.secondWindow, player.ui.videoWnd);
    QVERIFY(params.callback == &CallbackVelmoEvent);
    QCOMPARE(params.userData, static_cast<void *>(&player.impl));
}

void tst_Records::describesTheWindowAsItIsWhenTheEditBegins()
{
    Player player;
    player.ui.videoWnd->setMinimumSize(0, 0);
    player.ui.videoWnd->setGeometry(3, 4, 641, 359);
    player.play();
    const EditBeginParams &params = player.engine.editBeginParams();
    QCOMPARE(QSize(params.firstWidth, params.firstHeight), QSize(641, 359));
    QCOMPARE(QSize(params.secondWidth, params.secondHeight), QSize(641, 359));

    player.ui.videoWnd->setGeometry(0, 0, 1920, 1080);
    player.impl.playNextFile();
    QCOMPARE(QSize(params.firstWidth, params.firstHeight), QSize(1920, 1080));
    QCOMPARE(QSize(params.secondWidth, params.secondHeight), QSize(1920, 1080));
}

void tst_Records::everyCallCarriesTheHostsHandle()
{
    Player player;
    int other = 0;
    player.widget->initialize(&other, Kest3DTurnOff);
    const auto handle = [&] { return player.engine.lastEngine(); };
    const auto reachesTheHandle = [&](auto &&act) {
        PlayWidget::setMovie3DPropsDirect(nullptr, 10, 11, 0.0);
        act();
        return handle() == &other;
    };
    QVERIFY(reachesTheHandle([&] { player.impl.beginEdit(0); }));
    QVERIFY(reachesTheHandle([&] { player.play(); }));
    QVERIFY(reachesTheHandle([&] { player.impl.playNextPart(); }));
    QVERIFY(reachesTheHandle([&] { player.impl.maximizeVolume(); }));
    QVERIFY(reachesTheHandle([&] { player.impl.applyMovie3DProps(); }));
    QVERIFY(reachesTheHandle([&] { player.impl.loadMovie3DProps(); }));
    QVERIFY(reachesTheHandle([&] { player.impl.snapShotVideo(); }));
    QVERIFY(reachesTheHandle([&] { player.impl.pauseVideo(); }));
    QVERIFY(reachesTheHandle([&] { player.impl.playVideo(); }));
    QVERIFY(reachesTheHandle([&] { player.impl.endEdit(true); }));
}

QTEST_MAIN(tst_Records)
#include "tst_records.moc"
