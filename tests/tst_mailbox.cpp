// Mailbox: the latest frame wins, orders carry what is new, nothing outlives its edit.
// Not here: the threads that use it in earnest (tst_kest_playing.cpp).
#include "engine/mpv/mailbox.h"

#include <QtTest>

#include <thread>

namespace {

/// Counts the bells and leaves the frames where they are.
class Receiver : public QObject
{
public:
    int bells = 0;

    bool event(QEvent *event) override
    {
        bells += event->type() == Mailbox::frameEvent();
        return QObject::event(event);
    }
};

Frame frame(quint64 serial)
{
    return {QImage(2, 2, QImage::Format_RGB32), 0, serial};
}

const PictureShape wide = {QSizeF(1600, 900), 0};

}  // namespace

class tst_Mailbox : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fitsShapesIntoAreas_data()
    {
        QTest::addColumn<QSize>("area");
        QTest::addColumn<QSizeF>("shape");
        QTest::addColumn<QSize>("expected");
        QTest::newRow("wide") << QSize(702, 527) << QSizeF(1920, 1080) << QSize(702, 395);
        QTest::newRow("high") << QSize(702, 527) << QSizeF(1080, 1920) << QSize(296, 527);
        QTest::newRow("same") << QSize(10, 5) << QSizeF(20, 10) << QSize(10, 5);
        QTest::newRow("line") << QSize(10, 5) << QSizeF(100000, 1) << QSize(10, 1);
        QTest::newRow("point") << QSize(1, 1) << QSizeF(3, 7) << QSize(1, 1);
        QTest::newRow("enlarged") << QSize(100, 100) << QSizeF(1, 1) << QSize(100, 100);
        QTest::newRow("no area") << QSize(0, 5) << QSizeF(20, 10) << QSize();
        QTest::newRow("no shape") << QSize(10, 5) << QSizeF() << QSize();
    }
    void fitsShapesIntoAreas()
    {
        QFETCH(QSize, area);
        QFETCH(QSizeF, shape);
        QTEST(fitted(area, shape), "expected");
    }

    void theLatestFrameWinsAndRingsOnce()
    {
        Mailbox mailbox;
        Receiver receiver;
        mailbox.beginEdit({}, wide);
        mailbox.filmBegun();
        mailbox.attach(&receiver);
        for (quint64 serial = 1; serial <= 3; ++serial)
            mailbox.post(frame(serial), mailbox.epoch());
        QCoreApplication::processEvents();
        QCOMPARE(receiver.bells, 1);
        QCOMPARE(mailbox.take(&receiver)->frame.serial, quint64(3));
        QVERIFY(!mailbox.take(&receiver));
        mailbox.post(frame(4), mailbox.epoch());
        QCoreApplication::processEvents();
        QCOMPARE(receiver.bells, 2);
    }

    void framesOfAnEditThatIsOverAreDropped()
    {
        Mailbox mailbox;
        Receiver receiver;
        mailbox.beginEdit({}, wide);
        mailbox.filmBegun();
        mailbox.attach(&receiver);
        const quint64 before = mailbox.epoch();
        mailbox.post(frame(1), before);
        mailbox.endEdit();
        mailbox.post(frame(2), before);
        mailbox.beginEdit({}, wide);
        mailbox.filmBegun();
        mailbox.attach(&receiver);
        mailbox.post(frame(3), before);
        QVERIFY(!mailbox.take(&receiver));
        mailbox.post(frame(4), mailbox.epoch());
        QCOMPARE(mailbox.take(&receiver)->frame.serial, quint64(4));
    }

    void framesOfTheFilmBeforeAreDropped()
    {
        Mailbox mailbox;
        Receiver receiver;
        mailbox.beginEdit({}, wide);
        mailbox.attach(&receiver);
        mailbox.setArea(&receiver, {160, 160});
        mailbox.frameDue();
        // The edit is open, but the player is still leaving the film of the one before.
        QCOMPARE(mailbox.wait().epoch, quint64(0));
        mailbox.post(frame(1), mailbox.epoch());
        QVERIFY(!mailbox.take(&receiver));
        mailbox.filmBegun();
        mailbox.frameDue();
        QCOMPARE(mailbox.wait().epoch, mailbox.epoch());
    }

    void aSeekBeginsAnEpochOfTheSameEdit()
    {
        Mailbox mailbox;
        Receiver receiver;
        mailbox.beginEdit({}, wide);
        mailbox.filmBegun();
        mailbox.attach(&receiver);
        const quint64 before = mailbox.epoch();
        mailbox.seekBegun();
        QCOMPARE(mailbox.epoch(), before + 1);
        QCOMPARE(mailbox.editEpoch(), before);
        mailbox.post(frame(1), before);
        QCOMPARE(mailbox.take(&receiver)->epoch, before);
    }

    void aSeekThatFollowsAtOnceHasNotSettled()
    {
        Mailbox mailbox;
        mailbox.beginEdit({}, wide);
        mailbox.filmBegun();
        const quint64 before = mailbox.epoch();
        mailbox.settle();
        mailbox.seekBegun();
        QCOMPARE(mailbox.wait().settled, before);
        mailbox.settle();
        QCOMPARE(mailbox.wait().settled, mailbox.epoch());
    }

    void onlyTheReceiverIsHeard()
    {
        Mailbox mailbox;
        Receiver receiver;
        Receiver stranger;
        mailbox.beginEdit({}, wide);
        mailbox.filmBegun();
        mailbox.attach(&receiver);
        mailbox.setArea(&receiver, {160, 160});
        mailbox.setArea(&stranger, {16, 16});
        mailbox.detach(&stranger);
        mailbox.post(frame(1), mailbox.epoch());
        QVERIFY(!mailbox.take(&stranger));
        QCOMPARE(mailbox.take(&receiver)->frame.serial, quint64(1));
        QCOMPARE(mailbox.wait().size, QSize(160, 90));
    }

    void nothingIsPostedToAReceiverThatHasLeft()
    {
        Mailbox mailbox;
        mailbox.beginEdit({}, wide);
        mailbox.filmBegun();
        {
            Receiver receiver;
            mailbox.attach(&receiver);
            mailbox.setArea(&receiver, {160, 160});
            mailbox.detach(&receiver);
        }
        mailbox.post(frame(1), mailbox.epoch());
        mailbox.frameDue();
        QCOMPARE(mailbox.wait().size, QSize());
    }

    void anOrderTellsWhatIsNewAndHowThingsStand()
    {
        Mailbox mailbox;
        Receiver receiver;
        mailbox.beginEdit({Kest3DRedCyan, 0.1}, wide);
        mailbox.filmBegun();
        mailbox.attach(&receiver);
        mailbox.setArea(&receiver, {320, 320});
        mailbox.frameDue();
        RenderOrder order = mailbox.wait();
        QVERIFY(order.frameDue && !order.settingNew && !order.settled && !order.stop);
        QCOMPARE(order.size, QSize(320, 180));
        QCOMPARE(order.setting.mode, int(Kest3DRedCyan));
        QCOMPARE(order.epoch, mailbox.epoch());

        mailbox.setSetting({Kest3DInterleaved, 0.2});
        mailbox.setShape({QSizeF(1600, 900), 90});
        order = mailbox.wait();
        QVERIFY(!order.frameDue && order.settingNew);
        QCOMPARE(order.size, QSize(180, 320));
        QCOMPARE(order.shape.rotation, 90);
        QCOMPARE(order.setting.depth, 0.2);

        mailbox.settle();
        QVERIFY(mailbox.wait().settled);
        mailbox.endEdit();
        mailbox.stop();
        order = mailbox.wait();
        QVERIFY(order.stop && !order.settled);
        QCOMPARE(order.epoch, quint64(0));
        QCOMPARE(order.size, QSize());
    }

    void whatChangesNothingWakesNobody()
    {
        Mailbox mailbox;
        Receiver receiver;
        mailbox.beginEdit({}, wide);
        mailbox.filmBegun();
        mailbox.attach(&receiver);
        mailbox.setArea(&receiver, {320, 320});
        (void)mailbox.wait();
        std::atomic<int> orders{0};
        std::thread sleeper([&] {
            while (!mailbox.wait().stop)
                ++orders;
        });
        mailbox.setArea(&receiver, {320, 320});
        mailbox.setShape(wide);
        mailbox.post(frame(1), mailbox.epoch());
        (void)mailbox.take(&receiver);
        mailbox.stop();
        sleeper.join();
        QCOMPARE(orders.load(), 0);
    }
};

QTEST_GUILESS_MAIN(tst_Mailbox)
#include "tst_mailbox.moc"
