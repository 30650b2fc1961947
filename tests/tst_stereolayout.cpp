// The views in a film's frames: their shapes and sizes, what tags mean, where their pixels lie.
// Not here: films (tst_kest_stereo.cpp) and what a file is tagged as (tst_mediaprobe.cpp).
#include "engine/mpv/kest_host.h"
#include "engine/mpv/stereolayout.h"

#include <QtTest>

namespace {

using Layout = StereoLayout;

constexpr Layout flat;
constexpr Layout beside = {Layout::SideBySide, false, false};
constexpr Layout besideHalf = {Layout::SideBySide, true, false};
constexpr Layout above = {Layout::TopBottom, false, false};
constexpr Layout aboveHalf = {Layout::TopBottom, true, false};

/// Each pixel another number.
QImage numbered(int width, int height)
{
    QImage picture(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            picture.setPixel(x, y, 0xff000000 + quint32(y * 100 + x));
    return picture;
}

}  // namespace

class tst_StereoLayout : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyNameMeansALayout()
    {
        QCOMPARE(*layoutNamed(KestLayoutFlat), flat);
        QCOMPARE(*layoutNamed(KestLayoutSideBySide), beside);
        QCOMPARE(*layoutNamed(KestLayoutSideBySideHalf), besideHalf);
        QCOMPARE(*layoutNamed(KestLayoutTopBottom), above);
        QCOMPARE(*layoutNamed(KestLayoutTopBottomHalf), aboveHalf);
        const int leftFirst[] = {KestLayoutSideBySide, KestLayoutSideBySideHalf,
                                 KestLayoutTopBottom, KestLayoutTopBottomHalf};
        for (const int name : leftFirst) {
            Layout expected = *layoutNamed(name);
            expected.rightFirst = true;
            QCOMPARE(*layoutNamed(name + 1), expected);
        }
        for (const int name : {int(KestLayoutAsTagged), -2, 9, INT_MAX, INT_MIN})
            QVERIFY(!layoutNamed(name));
    }

    void aViewHasTheShapeOfItsPartUnlessItIsHalf()
    {
        const QSizeF frame(300, 100);
        QCOMPARE(viewShape(frame, flat), frame);
        QCOMPARE(viewShape(frame, beside), QSizeF(150, 100));
        QCOMPARE(viewShape(frame, besideHalf), frame);
        QCOMPARE(viewShape(frame, above), QSizeF(300, 50));
        QCOMPARE(viewShape(frame, aboveHalf), frame);
    }

    void aFrameHasRoomForBothViews()
    {
        const QSize view(30, 11);
        QCOMPARE(frameSize(view, flat), view);
        for (const Layout &layout : {beside, besideHalf})
            QCOMPARE(frameSize(view, layout), QSize(60, 11));
        for (const Layout &layout : {above, aboveHalf})
            QCOMPARE(frameSize(view, layout), QSize(30, 22));
    }

    void tagsAndShapesTellWhatAViewIs_data()
    {
        QTest::addColumn<QSize>("stored");
        QTest::addColumn<double>("pixel");
        QTest::addColumn<int>("tag");
        QTest::addColumn<int>("meant");
        QTest::addColumn<QSizeF>("view");
        const auto row
            = [](const char *name, QSize stored, double pixel, int tag, int meant, QSizeF view) {
                  QTest::newRow(name) << stored << pixel << tag << meant << view;
              };
        const int sideBySide = KestLayoutSideBySide, sideBySideHalf = KestLayoutSideBySideHalf;
        const int topBottom = KestLayoutTopBottom, topBottomHalf = KestLayoutTopBottomHalf;
        const QSizeF hd(1920, 1080);
        row("flat", {1920, 1080}, 2.0, KestLayoutFlat, KestLayoutFlat, {3840, 1080});
        row("whole", {3840, 1080}, 1.0, sideBySide, sideBySide, hd);
        row("half, as a view should be told", {1920, 1080}, 2.0, sideBySide, sideBySideHalf, hd);
        row("half, told as the frame", {1920, 1080}, 1.0, sideBySide, sideBySideHalf, hd);
        row("whole, told as if it were half", {3840, 1080}, 2.0, sideBySide, sideBySide, hd);
        row("half, wide film", {1920, 800}, 1.0, sideBySide, sideBySideHalf, {1920, 800});
        row("whole, wide film", {3840, 800}, 1.0, sideBySide, sideBySide, {1920, 800});
        row("half, old film", {960, 720}, 1.0, sideBySide, sideBySideHalf, {960, 720});
        row("whole, old film", {1280, 480}, 1.0, sideBySide, sideBySide, {640, 480});
        row("right first", {3840, 1080}, 1.0, sideBySide + 1, sideBySide + 1, hd);
        row("half, right first", {1920, 1080}, 1.0, sideBySide + 1, sideBySideHalf + 1, hd);
        row("top", {1920, 2160}, 1.0, topBottom, topBottom, hd);
        row("top, half, as told", {1920, 1080}, 0.5, topBottom, topBottomHalf, {1920, 1080});
        row("top, half, told as the frame", {1920, 1080}, 1.0, topBottom, topBottomHalf, hd);
        row("top, whole, told as half", {1920, 2160}, 0.5, topBottom, topBottom, hd);
        row("top, half, wide film", {1920, 800}, 1.0, topBottom, topBottomHalf, {1920, 800});
        row("top, whole, wide film", {1920, 1600}, 1.0, topBottom, topBottom, {1920, 800});
        row("wide pixels", {2880, 1080}, 4.0 / 3, sideBySide, sideBySide, hd);
        row("wide pixels, half", {1440, 1080}, 4.0 / 3, sideBySide, sideBySideHalf, hd);
        row("upright views", {1080, 1920}, 1.0, sideBySide, sideBySide, {540, 1920});
        row("very wide views", {4000, 200}, 1.0, topBottom, topBottom, {4000, 100});
    }
    void tagsAndShapesTellWhatAViewIs()
    {
        QFETCH(const QSize, stored);
        QFETCH(const double, pixel);
        QFETCH(const int, tag);
        QFETCH(const int, meant);
        QFETCH(const QSizeF, view);
        const TaggedFrame frame = taggedFrame(stored, pixel, *layoutNamed(tag));
        QCOMPARE(frame.layout, *layoutNamed(meant));
        QCOMPARE(viewShape(frame.shape, frame.layout), view);
    }

    void viewsShareTheFramesMemory()
    {
        QImage frame = numbered(6, 4);
        const uchar *const pixels = frame.constBits();
        const Eyes eyes = eyesOf(std::move(frame), {6, 4}, beside);
        QCOMPARE(eyes.left.constBits(), pixels);
        QCOMPARE(eyes.right.constBits(), pixels + 3 * 4);
    }

    void viewsLieWhereTheLayoutSays()
    {
        const QImage frame = numbered(6, 4);
        const QImage left = frame.copy(0, 0, 3, 4), right = frame.copy(3, 0, 3, 4);
        const QImage top = frame.copy(0, 0, 6, 2), bottom = frame.copy(0, 2, 6, 2);
        const struct
        {
            int name;
            QImage left, right;
        } rows[] = {
            {KestLayoutSideBySide, left, right},
            {KestLayoutSideBySideRightFirst, right, left},
            {KestLayoutSideBySideHalf, left, right},
            {KestLayoutSideBySideHalfRightFirst, right, left},
            {KestLayoutTopBottom, top, bottom},
            {KestLayoutTopBottomRightFirst, bottom, top},
            {KestLayoutTopBottomHalf, top, bottom},
            {KestLayoutTopBottomHalfRightFirst, bottom, top},
            {KestLayoutFlat, frame, QImage()},
        };
        for (const auto &row : rows) {
            const Eyes eyes = eyesOf(frame, frame.size(), *layoutNamed(row.name));
            QCOMPARE(eyes.left, row.left);
            QCOMPARE(eyes.right, row.right);
        }
    }

    void whereScalingMixedTheViewsTheirNeighboursStand_data()
    {
        QTest::addColumn<int>("stored");
        QTest::addColumn<QVector<int>>("columns");  // that stand in the frame's ten
        QTest::newRow("not scaled") << 10 << QVector<int>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9};
        QTest::newRow("unknown") << 0 << QVector<int>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9};
        QTest::newRow("smaller") << 40 << QVector<int>{0, 1, 2, 3, 3, 6, 6, 7, 8, 9};
        QTest::newRow("a little larger") << 8 << QVector<int>{0, 1, 2, 3, 3, 6, 6, 7, 8, 9};
        QTest::newRow("twice as large") << 5 << QVector<int>{0, 1, 2, 2, 2, 7, 7, 7, 8, 9};
        QTest::newRow("much larger") << 1 << QVector<int>{0, 0, 0, 0, 0, 9, 9, 9, 9, 9};
    }
    void whereScalingMixedTheViewsTheirNeighboursStand()
    {
        QFETCH(const int, stored);
        QFETCH(const QVector<int>, columns);
        const Eyes besides = eyesOf(numbered(10, 2), {stored, 2}, beside);
        const Eyes aboves = eyesOf(numbered(2, 10), {2, stored}, above);
        for (int i = 0; i < 5; ++i) {
            for (int j = 0; j < 2; ++j) {
                QCOMPARE(besides.left.pixel(i, j), 0xff000000 + quint32(j * 100 + columns[i]));
                QCOMPARE(besides.right.pixel(i, j), 0xff000000 + quint32(j * 100 + columns[i + 5]));
                QCOMPARE(aboves.left.pixel(j, i), 0xff000000 + quint32(columns[i] * 100 + j));
                QCOMPARE(aboves.right.pixel(j, i), 0xff000000 + quint32(columns[i + 5] * 100 + j));
            }
        }
    }

    void viewsOfOnePixelStayAsTheyAre()
    {
        const Eyes eyes = eyesOf(numbered(2, 1), {100, 1}, beside);
        QCOMPARE(eyes.left, numbered(1, 1));
        QCOMPARE(eyes.right.pixel(0, 0), 0xff000001);
    }

    void noFrameHasNoViews()
    {
        const Eyes eyes = eyesOf(QImage(), {6, 4}, beside);
        QVERIFY(eyes.left.isNull());
        QVERIFY(eyes.right.isNull());
    }
};

QTEST_APPLESS_MAIN(tst_StereoLayout)
#include "tst_stereolayout.moc"
