// CVideoWnd alone: where pictures go, pixel by pixel, and when the view is black.
// Not here: an engine (tst_kest_playing.cpp).
#include "engine/mpv/videoview.h"

#include <QPainter>
#include <QtTest>

namespace {

constexpr QRgb black = 0xff000000;

/// Every pixel another colour, so that a shift or a filter shows.
QImage pattern(QSize size)
{
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            image.setPixel(x, y, qRgb(x * 7 & 0xff, y * 11 & 0xff, (x + y) * 5 & 0xff));
    return image;
}

/// A window on screen with a mailbox behind it.
class Show
{
public:
    explicit Show(QSize size)
    {
        window.resize(size);
        window.show();
        beginEdit();
    }

    void beginEdit()
    {
        mailbox->beginEdit({}, {QSizeF(1600, 900), 0});
        mailbox->filmBegun();
        VideoView::of(&window)->show(mailbox);
    }

    void post(const QImage &picture)
    {
        mailbox->post({picture, 0, ++serial}, mailbox->epoch());
        QCoreApplication::processEvents();
    }

    void clear()
    {
        CVideoWnd::tagMsgParams params = {4, -1, nullptr, nullptr};
        window.SendCommand(&params);
    }

    QImage grab() { return window.grab().toImage().convertToFormat(QImage::Format_RGB32); }

    bool isBlack()
    {
        const QImage picture = grab();
        QImage expected(picture.size(), QImage::Format_RGB32);
        expected.fill(black);
        return picture == expected;
    }

    std::shared_ptr<Mailbox> mailbox = std::make_shared<Mailbox>();
    CVideoWnd window;
    quint64 serial = 0;
};

}  // namespace

class tst_VideoWnd : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isBlackWithoutAnEngine()
    {
        CVideoWnd window;
        window.resize(40, 30);
        CVideoWnd::tagMsgParams params = {4, -1, nullptr, nullptr};
        window.SendCommand(&params);
        window.SendCommand(nullptr);
        window.UpdateView();
        window.resetSessionState();
        window.show();
        QCOMPARE(window.grab().toImage().pixel(20, 15), black);
        QVERIFY(window.hasMouseTracking());
    }

    void aPictureLiesInTheMiddlePixelForPixel_data()
    {
        QTest::addColumn<QSize>("window");
        QTest::addColumn<QSize>("picture");
        QTest::addColumn<QPoint>("corner");
        QTest::newRow("bars above and below") << QSize(160, 120) << QSize(160, 90) << QPoint(0, 15);
        QTest::newRow("odd rest") << QSize(160, 121) << QSize(160, 90) << QPoint(0, 15);
        QTest::newRow("bars beside") << QSize(200, 90) << QSize(51, 90) << QPoint(74, 0);
        QTest::newRow("filled") << QSize(64, 36) << QSize(64, 36) << QPoint(0, 0);
    }
    void aPictureLiesInTheMiddlePixelForPixel()
    {
        QFETCH(QSize, window);
        QFETCH(QSize, picture);
        QFETCH(QPoint, corner);
        Show show(window);
        show.post(pattern(picture));
        QImage expected(window, QImage::Format_RGB32);
        expected.fill(black);
        QPainter(&expected).drawImage(corner, pattern(picture));
        QCOMPARE(show.grab(), expected);
    }

    void asksForPicturesOfItsSizeWhileItIsVisible()
    {
        Show show({320, 320});
        QCOMPARE(show.mailbox->wait().size, QSize(320, 180));
        show.window.resize(160, 160);
        QCOMPARE(show.mailbox->wait().size, QSize(160, 90));
        show.window.hide();
        QCOMPARE(show.mailbox->wait().size, QSize());
        show.window.show();
        QCOMPARE(show.mailbox->wait().size, QSize(160, 90));
    }

    void anOldPictureFillsANewSizeUntilTheNextComes()
    {
        Show show({160, 90});
        QImage red(160, 90, QImage::Format_RGB32);
        red.fill(Qt::red);
        show.post(red);
        show.window.resize(320, 200);
        const QImage scaled = show.grab();
        QCOMPARE(scaled.pixel(160, 5), black);
        QCOMPARE(scaled.pixel(2, 12), 0xffff0000);
        QCOMPARE(scaled.pixel(317, 187), 0xffff0000);
        show.post(pattern({320, 180}));
        QCOMPARE(show.grab().copy(0, 10, 320, 180), pattern({320, 180}));
    }

    void theClearCommandLastsUntilALaterEpoch()
    {
        Show show({160, 90});
        show.post(pattern({160, 90}));
        QVERIFY(!show.isBlack());
        show.clear();
        QVERIFY(show.isBlack());
        show.post(pattern({160, 90}));
        QVERIFY(show.isBlack());
        show.mailbox->seekBegun();
        show.post(pattern({160, 90}));
        QVERIFY(!show.isBlack());
        show.clear();
        show.beginEdit();
        show.post(pattern({160, 90}));
        QVERIFY(!show.isBlack());
    }

    void otherCommandsDoNothing()
    {
        Show show({160, 90});
        show.post(pattern({160, 90}));
        CVideoWnd::tagMsgParams params = {3, -1, nullptr, nullptr};
        show.window.SendCommand(&params);
        QVERIFY(!show.isBlack());
    }

    void resettingForgetsThePictureOfTheEditBeforeOnly()
    {
        Show show({160, 90});
        show.post(pattern({160, 90}));
        show.window.resetSessionState();
        QVERIFY(!show.isBlack());
        show.beginEdit();
        QVERIFY(!show.isBlack());
        show.window.resetSessionState();
        QVERIFY(show.isBlack());
    }

    void anEditThatIsOverLeavesItsLastPicture()
    {
        Show show({160, 90});
        show.post(pattern({160, 90}));
        show.mailbox->endEdit();
        show.post(QImage(160, 90, QImage::Format_RGB32));
        QCOMPARE(show.grab(), pattern({160, 90}));
        show.window.resetSessionState();
        QVERIFY(show.isBlack());
    }

    void anotherEngineTakesTheWindowOver()
    {
        Show show({160, 90});
        show.mailbox->seekBegun();
        show.clear();
        const auto first = show.mailbox;
        show.mailbox = std::make_shared<Mailbox>();
        show.beginEdit();
        first->post({QImage(160, 90, QImage::Format_RGB32), 0, 1}, first->epoch());
        QCoreApplication::processEvents();
        QVERIFY(show.isBlack());
        show.post(pattern({160, 90}));
        QCOMPARE(show.grab(), pattern({160, 90}));
    }

    void thePictureOfAnotherEngineIsForgotten()
    {
        Show show({160, 90});
        show.mailbox->seekBegun();
        show.post(pattern({160, 90}));
        show.mailbox = std::make_shared<Mailbox>();
        show.beginEdit();
        show.window.resetSessionState();
        QVERIFY(show.isBlack());
    }

    void framesOnTheirWayToADestroyedWindowAreLost()
    {
        auto mailbox = std::make_shared<Mailbox>();
        auto window = std::make_unique<CVideoWnd>();
        mailbox->beginEdit({}, {QSizeF(16, 9), 0});
        mailbox->filmBegun();
        VideoView::of(window.get())->show(mailbox);
        mailbox->post({pattern({16, 9}), 0, 1}, mailbox->epoch());
        window.reset();
        mailbox->post({pattern({16, 9}), 0, 2}, mailbox->epoch());
        QCoreApplication::processEvents();
        QCOMPARE(mailbox.use_count(), 1L);
    }

    void aLaterEventFilterCanTakeThePaintingAway()
    {
        class Yellow : public QObject
        {
        public:
            bool eventFilter(QObject *watched, QEvent *event) override
            {
                if (event->type() != QEvent::Paint)
                    return false;
                QPainter(static_cast<QWidget *>(watched)).fillRect(0, 0, 999, 999, Qt::yellow);
                return true;
            }
        } yellow;
        Show show({160, 90});
        show.window.installEventFilter(&yellow);
        show.post(pattern({160, 90}));
        QCOMPARE(show.grab().pixel(80, 45), 0xffffff00);
    }

    void onlyAPictureCoversWhatLiesBelow()
    {
        Show show({160, 90});
        QVERIFY(!show.window.testAttribute(Qt::WA_OpaquePaintEvent));
        show.post(pattern({160, 90}));
        QVERIFY(show.window.testAttribute(Qt::WA_OpaquePaintEvent));
        show.clear();
        QVERIFY(!show.window.testAttribute(Qt::WA_OpaquePaintEvent));
    }

    void childrenLieOnTop()
    {
        Show show({160, 90});
        QWidget child(&show.window);
        child.setGeometry(10, 10, 20, 20);
        child.setAutoFillBackground(true);
        QPalette palette;
        palette.setColor(QPalette::Window, Qt::magenta);
        child.setPalette(palette);
        child.show();
        show.post(pattern({160, 90}));
        QCOMPARE(show.grab().pixel(15, 15), 0xffff00ff);
        QCOMPARE(show.grab().pixel(35, 35), pattern({160, 90}).pixel(35, 35));
    }
};

QTEST_MAIN(tst_VideoWnd)
#include "tst_videownd.moc"
