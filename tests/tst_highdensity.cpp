// Dense screens: the film is rendered in device pixels, and interleaved rows are device rows.
// Run once for each scale, which comes as QT_SCALE_FACTOR. Not here: the controls' double images.
#include "clips.h"
#include "engine/mpv/fitting.h"
#include "engine/mpv/stereocomposer.h"
#include "enginestage.h"

class tst_HighDensity : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void pictureIsRenderedInDevicePixels();
    void interleavedRowsAreDeviceRows();

private:
    static QRect pictureOnScreen(const EngineStage &stage);

    Clips m_clips;
    QString m_stripes;
};

constexpr QSize clipSize{960, 540};
constexpr QRgb black = 0xff000000;

void tst_HighDensity::initTestCase()
{
    QVERIFY(qApp->devicePixelRatio() > 1);
    // Fine upright stripes, two pixels black and two white: scaled up from less, they would blur.
    m_stripes = m_clips.make("stripes.mkv",
                             "-f lavfi -i nullsrc=s=960x540:r=25:d=0.4 "
                             "-vf geq=lum=255*gte(mod(X\\,4)\\,2):cb=128:cr=128 "
                             "-c:v ffv1 -pix_fmt yuv444p -color_range pc");
    QVERIFY(!m_stripes.isEmpty());
}

QRect tst_HighDensity::pictureOnScreen(const EngineStage &stage)
{
    const QSize area = stage.window->grab().size();
    const QSize size = fitted(area, clipSize);
    return {QPoint((area.width() - size.width()) / 2, (area.height() - size.height()) / 2), size};
}

void tst_HighDensity::pictureIsRenderedInDevicePixels()
{
    const qreal ratio = qApp->devicePixelRatio();
    const QSize window(int(clipSize.width() / ratio), int(clipSize.height() / ratio));
    EngineStage stage(window);
    QCOMPARE(stage.open(m_stripes), int(KestOk));
    const QRect place = pictureOnScreen(stage);
    QVERIFY(qAbs(place.width() - clipSize.width()) <= ratio);

    // As wide on screen as in the file, to a pixel or so: the stripes come through in full contrast.
    const auto contrast = [&stage, &place] {
        const QImage row = stage.grab().copy(place.center().x() - 20, place.center().y(), 40, 1);
        int darkest = 255;
        int lightest = 0;
        for (int x = 0; x < row.width(); ++x) {
            darkest = qMin(darkest, qGray(row.pixel(x, 0)));
            lightest = qMax(lightest, qGray(row.pixel(x, 0)));
        }
        return lightest - darkest;
    };
    QTRY_VERIFY(contrast() > 200);
}

void tst_HighDensity::interleavedRowsAreDeviceRows()
{
    EngineStage stage({301, 200});
    QCOMPARE(stage.open(m_stripes), int(KestOk));
    const QRect place = pictureOnScreen(stage);
    const auto picture = [&stage, &place] {
        QImage pixels = stage.grab().copy(place);
        pixels.setDevicePixelRatio(1);
        return pixels;
    };
    QTRY_VERIFY(picture().pixel(picture().rect().center()) != black);
    const QImage plain = picture();

    QCOMPARE(stage.setFilter(Kest3DInterleaved, 0.1), int(KestOk));
    const QImage composed = compose({plain, 0, 0}, {Kest3DInterleaved, 0.1}).picture;
    QVERIFY(composed != plain);
    QTRY_COMPARE(picture(), composed);
}

QTEST_MAIN(tst_HighDensity)
#include "tst_highdensity.moc"
