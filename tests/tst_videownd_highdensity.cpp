// CVideoWnd on a screen with one and a half pixels to the unit: still pixel for pixel.
// Not here: whole ratios (tst_videownd.cpp).
#include "engine/mpv/videoview.h"

#include <QApplication>
#include <QPainter>
#include <QtTest>

namespace {

QImage pattern(QSize size)
{
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            image.setPixel(x, y, qRgb(x * 7 & 0xff, y * 11 & 0xff, (x + y) * 5 & 0xff));
    return image;
}

}  // namespace

class tst_VideoWndHighDensity : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void picturesAreNotScaled_data()
    {
        QTest::addColumn<QPoint>("place");  // in a parent window: whole units, not whole pixels
        QTest::newRow("whole pixels") << QPoint(0, 0);
        QTest::newRow("half pixels") << QPoint(1, 3);
    }
    void picturesAreNotScaled()
    {
        QFETCH(QPoint, place);
        QWidget parent;
        parent.resize(200, 200);
        CVideoWnd window(&parent);
        window.setGeometry(QRect(place, QSize(160, 120)));
        parent.show();
        QCOMPARE(window.devicePixelRatioF(), 1.5);

        const auto mailbox = std::make_shared<Mailbox>();
        mailbox->beginEdit({}, {QSizeF(16, 9), 0});
        mailbox->filmBegun();
        VideoView::of(&window)->show(mailbox);
        const QSize wanted = mailbox->wait().size;
        QCOMPARE(wanted, QSize(240, 135));
        mailbox->post({pattern(wanted), 0, 1}, mailbox->epoch());
        QCoreApplication::processEvents();

        const QImage shown = parent.grab().toImage().convertToFormat(QImage::Format_RGB32);
        const QPoint corner(int(std::round(place.x() * 1.5)),
                            int(std::round(place.y() * 1.5)) + 22);
        QImage part = shown.copy(QRect(corner, wanted));
        part.setDevicePixelRatio(1);
        QCOMPARE(part, pattern(wanted));
        QCOMPARE(shown.pixel(corner + QPoint(5, -5)), 0xff000000);
        QCOMPARE(shown.pixel(corner + QPoint(5, 135 + 5)), 0xff000000);
    }
};

int main(int argc, char *argv[])
{
    qputenv("QT_SCALE_FACTOR", "1.5");
    QApplication::setHighDpiScaleFactorRoundingPolicy(
        Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    QApplication application(argc, argv);
    tst_VideoWndHighDensity test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_videownd_highdensity.moc"
