// compose() against the same thing done pixel by pixel, and by hand where a picture is tiny.
// Not here: how fast it is (benchmarks/bench_compose.cpp).
#include "engine/mpv/stereocomposer.h"

#include <QtTest>

#include <cmath>
#include <limits>
#include <random>
#include <vector>

#include <sys/resource.h>
#include <unistd.h>

namespace {

using Pixels = std::vector<QRgb>;

constexpr double infinity = std::numeric_limits<double>::infinity();

QImage noise(int width, int height)
{
    std::mt19937 random(quint32(width * 4096 + height));
    QImage picture(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            reinterpret_cast<quint32 *>(picture.scanLine(y))[x] = random();
    }
    return picture;
}

QRgb at(const QImage &picture, int x, int y)
{
    return reinterpret_cast<const QRgb *>(picture.constScanLine(y))[x];
}

// --- the reference: slow, and as close to words as it gets

int floorOf(int number, int divisor)
{
    return int(std::floor(double(number) / divisor));
}

/// One channel of a view at a column, `shift` / 256 to the right of it in the picture.
int seen(const QImage &picture, int x, int y, int shift, int channel)
{
    const int place = x * 256 + shift;
    const int column = floorOf(place, 256);
    const int share = place - column * 256;
    const auto value = [&](int x) {
        return x < 0 || x >= picture.width() ? 0 : int(at(picture, x, y) >> channel & 0xff);
    };
    return (value(column) * (256 - share) + value(column + 1) * share + 128) / 256;
}

QRgb viewed(const QImage &picture, int x, int y, int shift)
{
    return qRgb(seen(picture, x, y, shift, 16), seen(picture, x, y, shift, 8),
                seen(picture, x, y, shift, 0));
}

/// The mean over a column's place when a view is squeezed to `columns`. Places are counted in
/// 1 / columns of a column, in which everything is a whole number.
int squeezed(const QImage &picture, int x, int y, int shift, int columns, int channel)
{
    const qint64 width = picture.width(), begin = x * width, end = begin + width;
    qint64 sum = 0;
    for (qint64 place = begin; place < end;) {
        const qint64 column = place / columns, next = qMin((column + 1) * columns, end);
        sum += (next - place) * seen(picture, int(column), y, shift, channel);
        place = next;
    }
    return int((2 * sum + width) / (2 * width));
}

/// What the eyes see.
struct Scene
{
    const QImage &left, &right;
};

QRgb sideBySide(Scene scene, int x, int y, int shift)
{
    const int width = scene.left.width(), half = width / 2;
    const bool right = x >= half;
    const auto value = [&](int channel) {
        return squeezed(right ? scene.right : scene.left, right ? x - half : x, y,
                        right ? -shift : shift, right ? width - half : half, channel);
    };
    return qRgb(value(16), value(8), value(0));
}

QRgb composedPixel(Scene scene, int x, int y, int mode, int shift)
{
    const QRgb left = viewed(scene.left, x, y, shift), right = viewed(scene.right, x, y, -shift);
    switch (mode) {
    case Kest3DRedGreen:
        return qRgb(qRed(left), qGreen(right), 0);
    case Kest3DRedBlue:
        return qRgb(qRed(left), 0, qBlue(right));
    case Kest3DRedCyan:
        return qRgb(qRed(left), qGreen(right), qBlue(right));
    case Kest3DBlueYellow:
        return qRgb(qRed(right), qGreen(right), qBlue(left));
    case Kest3DInterleaved:
        return y % 2 ? right : left;
    case Kest3DSlideBySlide:
        return sideBySide(scene, x, y, shift);
    }
    return at(scene.left, x, y);
}

int shiftOf(double depth, int width)
{
    if (std::isnan(depth) || std::isinf(depth))
        return 0;
    return int(std::round(qMin(qMax(depth, -1.0), 1.0) * width * 128));
}

QString firstDifference(Scene scene, const QImage &composed, int mode, double depth)
{
    const QSize size = scene.left.size();
    if (composed.size() != size || composed.format() != QImage::Format_RGB32)
        return "another size or format";
    const int shift = shiftOf(depth, size.width());
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            const QRgb got = at(composed, x, y), right = composedPixel(scene, x, y, mode, shift);
            if (got != right)
                return QString("at %1, %2 with depth %3: %4 instead of %5")
                    .arg(x)
                    .arg(y)
                    .arg(depth)
                    .arg(got, 8, 16)
                    .arg(right, 8, 16);
        }
    }
    return {};
}

// --- pictures by hand

constexpr QRgb black = 0xff000000, white = 0xffffffff;

QImage pictureOf(int width, const Pixels &pixels)
{
    QImage picture(width, int(pixels.size()) / width, QImage::Format_RGB32);
    for (size_t i = 0; i < pixels.size(); ++i)
        picture.setPixel(int(i) % width, int(i) / width, pixels[i]);
    return picture;
}

Pixels pixelsOf(const QImage &picture)
{
    Pixels pixels;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            pixels.push_back(at(picture, x, y));
    }
    return pixels;
}

Pixels composed(const QImage &picture, int mode, double depth)
{
    return pixelsOf(compose({picture, 0, 0}, {mode, depth}).picture);
}

}  // namespace

class tst_StereoComposer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void equalsTheReference_data();
    void equalsTheReference();
    void equalsTheReferenceForWidePictures();
    void equalsTheReferenceForTwoPictures_data() { equalsTheReference_data(); }
    void equalsTheReferenceForTwoPictures();
    void readsForeignRowsOfAnyLength();

    void eachEyeSeesItsOwnPicture();
    void depthComesOnTopOfTwoPictures();
    void positiveDepthMovesTheLeftViewLeft();
    void halfAPixelIsTheMeanOfTwo();
    void withoutDepthOnlyTheChannelsCount();
    void rowsAlternateBetweenTheEyes();
    void halvesHoldOneEyeEach();
    void anOddWidthGivesTheRightHalfTheExtraColumn();
    void aSingleColumnIsAllRightHalf();
    void depthIsClampedAndMadeANumber();

    void ignoresTheAlphaOfItsInput();
    void leavesItsInputAlone();
    void keepsTimeAndSerial();
    void otherModesShareThePixels_data();
    void otherModesShareThePixels();
    void otherModesShareTheLeftPictureOfTwo();
    void noPictureStaysNoPicture();
    void noMemoryIsNoPicture();
};

void tst_StereoComposer::equalsTheReference_data()
{
    const QVector<QPair<int, const char *>> modes = {
        {1, "red/green"},   {2, "red/blue"},    {4, "red/cyan"},
        {6, "blue/yellow"}, {8, "interleaved"}, {9, "side by side"},
    };
    QTest::addColumn<int>("mode");
    QTest::addColumn<QSize>("size");
    for (const auto &mode : modes) {
        for (int width : {1, 2, 3, 4, 7, 16, 33, 64, 129, 702, 703}) {
            for (int height : {1, 2, 5}) {
                QTest::addRow("%s %dx%d", mode.second, width, height)
                    << mode.first << QSize(width, height);
            }
        }
    }
}

void tst_StereoComposer::equalsTheReference()
{
    QFETCH(const int, mode);
    QFETCH(const QSize, size);
    const QImage picture = noise(size.width(), size.height());
    for (double depth : {-0.3, -0.012, 0.0, 0.006, 0.3, 1.0, -1.0, 5.0, -5.0, std::nan(""),
                         infinity, -infinity, 2.0 / size.width(), -4.0 / size.width()}) {
        const Frame frame = compose({picture, 0, 0}, {mode, depth});
        QCOMPARE(firstDifference({picture, picture}, frame.picture, mode, depth), QString());
    }
}

void tst_StereoComposer::equalsTheReferenceForWidePictures()
{
    for (int width : {1919, 1920, 4097, 9999}) {
        const QImage picture = noise(width, 2);
        for (int mode : {4, 8, 9}) {
            for (double depth : {0.0, 0.0123, -0.3}) {
                const Frame frame = compose({picture, 0, 0}, {mode, depth});
                QCOMPARE(firstDifference({picture, picture}, frame.picture, mode, depth),
                         QString());
            }
        }
    }
}

void tst_StereoComposer::equalsTheReferenceForTwoPictures()
{
    QFETCH(const int, mode);
    QFETCH(const QSize, size);
    const QImage left = noise(size.width(), size.height());
    const QImage right = noise(size.width(), size.height() + 1).copy(QRect(QPoint(0, 1), size));
    QVERIFY(left != right);
    for (double depth : {-0.3, -0.012, 0.0, 0.006, 0.3, 1.0, -4.0 / size.width()}) {
        const Frame frame = compose({left, 0, 0, right}, {mode, depth});
        QCOMPARE(firstDifference({left, right}, frame.picture, mode, depth), QString());
        QVERIFY(frame.right.isNull());
    }
}

void tst_StereoComposer::readsForeignRowsOfAnyLength()
{
    for (int width : {1, 2, 5, 37, 64}) {
        const QImage picture = noise(width, 4);
        for (int padding : {1, 3, 16}) {
            for (int start : {0, 1, 3}) {
                const int stride = width + padding;
                Pixels memory(size_t(start + stride * 4), 0x5a5a5a5a);
                for (int y = 0; y < 4; ++y)
                    std::copy_n(reinterpret_cast<const QRgb *>(picture.constScanLine(y)), width,
                                memory.begin() + start + stride * y);
                const QImage foreign(reinterpret_cast<const uchar *>(memory.data() + start), width,
                                     4, stride * 4, QImage::Format_RGB32);
                for (int mode : {4, 8, 9})
                    QCOMPARE(composed(foreign, mode, 0.1), composed(picture, mode, 0.1));
            }
        }
    }
}

void tst_StereoComposer::eachEyeSeesItsOwnPicture()
{
    const QImage left = pictureOf(2, {0xff102030, 0xff405060, 0xff708090, 0xffa0b0c0});
    const QImage right = pictureOf(2, {0xff010203, 0xff040506, 0xff070809, 0xff0a0b0c});
    const auto both = [&](int mode) {
        return pixelsOf(compose({left, 0, 0, right}, {mode, 0.0}).picture);
    };
    QCOMPARE(both(1), Pixels({0xff100200, 0xff400500, 0xff700800, 0xffa00b00}));
    QCOMPARE(both(2), Pixels({0xff100003, 0xff400006, 0xff700009, 0xffa0000c}));
    QCOMPARE(both(4), Pixels({0xff100203, 0xff400506, 0xff700809, 0xffa00b0c}));
    QCOMPARE(both(6), Pixels({0xff010230, 0xff040560, 0xff070890, 0xff0a0bc0}));
    QCOMPARE(both(8), Pixels({0xff102030, 0xff405060, 0xff070809, 0xff0a0b0c}));
    QCOMPARE(both(9), Pixels({0xff283848, 0xff030405, 0xff8898a8, 0xff090a0b}));
}

void tst_StereoComposer::depthComesOnTopOfTwoPictures()
{
    // One column to either side, in opposite directions.
    const QImage left = pictureOf(4, {black, black, 0xffaa0000, black});
    const QImage right = pictureOf(4, {black, 0xff00bb00, black, black});
    const auto both = [&](double depth) {
        return pixelsOf(compose({left, 0, 0, right}, {Kest3DRedCyan, depth}).picture);
    };
    QCOMPARE(both(0.0), Pixels({black, 0xff00bb00, 0xffaa0000, black}));
    QCOMPARE(both(0.5), Pixels({black, 0xffaa0000, 0xff00bb00, black}));
    QCOMPARE(both(-0.5), Pixels({0xff00bb00, black, black, 0xffaa0000}));
}

void tst_StereoComposer::positiveDepthMovesTheLeftViewLeft()
{
    // Half of a depth of 0.5 on four columns is one column.
    const QImage dot = pictureOf(4, {black, black, white, black});
    QCOMPARE(composed(dot, 4, 0.5), Pixels({black, 0xffff0000, black, 0xff00ffff}));
    QCOMPARE(composed(dot, 4, -0.5), Pixels({black, 0xff00ffff, black, 0xffff0000}));
    QCOMPARE(composed(dot, 1, 0.5), Pixels({black, 0xffff0000, black, 0xff00ff00}));
    QCOMPARE(composed(dot, 2, 0.5), Pixels({black, 0xffff0000, black, 0xff0000ff}));
    QCOMPARE(composed(dot, 6, 0.5), Pixels({black, 0xff0000ff, black, 0xffffff00}));
}

void tst_StereoComposer::halfAPixelIsTheMeanOfTwo()
{
    const QImage dot = pictureOf(4, {black, black, 0xff646464, black});
    QCOMPARE(composed(dot, 4, 0.25), Pixels({black, 0xff320000, 0xff323232, 0xff003232}));
}

void tst_StereoComposer::withoutDepthOnlyTheChannelsCount()
{
    const QImage picture = pictureOf(2, {0xff102030, 0xffa0b0c0});
    QCOMPARE(composed(picture, 1, 0.0), Pixels({0xff102000, 0xffa0b000}));
    QCOMPARE(composed(picture, 2, 0.0), Pixels({0xff100030, 0xffa000c0}));
    QCOMPARE(composed(picture, 4, 0.0), pixelsOf(picture));
    QCOMPARE(composed(picture, 6, 0.0), pixelsOf(picture));
    QCOMPARE(composed(picture, 8, 0.0), pixelsOf(picture));
}

void tst_StereoComposer::rowsAlternateBetweenTheEyes()
{
    const QImage column = pictureOf(
        4, {black, black, white, black, black, black, white, black, black, black, white, black});
    QCOMPARE(composed(column, 8, 0.5),
             Pixels({black, white, black, black, black, black, black, white, black, white, black,
                     black}));
}

void tst_StereoComposer::halvesHoldOneEyeEach()
{
    const QImage dot = pictureOf(4, {black, black, white, black});
    QCOMPARE(composed(dot, 9, 0.0), Pixels({black, 0xff808080, black, 0xff808080}));
    QCOMPARE(composed(dot, 9, 0.5), Pixels({0xff808080, black, black, 0xff808080}));
}

void tst_StereoComposer::anOddWidthGivesTheRightHalfTheExtraColumn()
{
    // One column of three, then two of one and a half each.
    const QImage picture = pictureOf(3, {0xff1e0000, 0xff3c0000, 0xff5a0000});
    QCOMPARE(composed(picture, 9, 0.0), Pixels({0xff3c0000, 0xff280000, 0xff500000}));
}

void tst_StereoComposer::aSingleColumnIsAllRightHalf()
{
    const QImage picture = pictureOf(1, {0xff102030, 0xff405060});
    QCOMPARE(composed(picture, 9, 0.0), pixelsOf(picture));
}

void tst_StereoComposer::depthIsClampedAndMadeANumber()
{
    const QImage picture = noise(40, 2);
    QCOMPARE(composed(picture, 4, 5.0), composed(picture, 4, 1.0));
    QCOMPARE(composed(picture, 4, -1e300), composed(picture, 4, -1.0));
    for (double depth : {std::nan(""), infinity, -infinity})
        QCOMPARE(composed(picture, 4, depth), composed(picture, 4, 0.0));
    QVERIFY(composed(picture, 4, 1.0) != composed(picture, 4, 0.0));
}

void tst_StereoComposer::ignoresTheAlphaOfItsInput()
{
    QImage clear = noise(33, 2), opaque = clear;
    for (int y = 0; y < 2; ++y) {
        for (int x = 0; x < 33; ++x) {
            reinterpret_cast<quint32 *>(clear.scanLine(y))[x] &= 0x00ffffff;
            reinterpret_cast<quint32 *>(opaque.scanLine(y))[x] |= 0xff000000;
        }
    }
    for (int mode : {1, 2, 4, 6, 8, 9}) {
        for (double depth : {0.0, 0.1}) {
            const Pixels pixels = composed(clear, mode, depth);
            QCOMPARE(pixels, composed(opaque, mode, depth));
            for (QRgb pixel : pixels)
                QCOMPARE(qAlpha(pixel), 255);
        }
    }
}

void tst_StereoComposer::leavesItsInputAlone()
{
    const Frame frame = {noise(31, 3), 7, 8};
    const Pixels before = pixelsOf(frame.picture);
    const uchar *memory = frame.picture.constBits();
    for (int mode : {1, 2, 4, 6, 8, 9, 11}) {
        const Frame result = compose(frame, {mode, 0.1});
        QCOMPARE(result.picture.constBits() == memory, mode == 11);
        QCOMPARE(pixelsOf(frame.picture), before);
        QCOMPARE(frame.picture.constBits(), memory);
    }
}

void tst_StereoComposer::keepsTimeAndSerial()
{
    for (int mode : {4, 8, 9, 11}) {
        const Frame result = compose({noise(8, 2), 123456789012, 42}, {mode, 0.1});
        QCOMPARE(result.time, qint64(123456789012));
        QCOMPARE(result.serial, quint64(42));
    }
}

void tst_StereoComposer::otherModesShareThePixels_data()
{
    QTest::addColumn<int>("mode");
    for (int mode : {11, 0, 3, 5, 7, 10, 12, -1, -4, 1000, std::numeric_limits<int>::max()})
        QTest::addRow("%d", mode) << mode;
}

void tst_StereoComposer::otherModesShareThePixels()
{
    QFETCH(const int, mode);
    const Frame frame = {noise(9, 2), 1, 2};
    const Frame result = compose(frame, {mode, 0.3});
    QCOMPARE(result.picture.cacheKey(), frame.picture.cacheKey());
    QCOMPARE(result.picture.constBits(), frame.picture.constBits());
}

void tst_StereoComposer::otherModesShareTheLeftPictureOfTwo()
{
    const QImage left = noise(9, 2), right = noise(9, 3).copy(0, 1, 9, 2);
    for (int mode : {11, 0, 5, -1}) {
        const Frame result = compose({left, 1, 2, right}, {mode, 0.3});
        QCOMPARE(result.picture.constBits(), left.constBits());
        QVERIFY(result.right.isNull());
        QCOMPARE(result.serial, quint64(2));
    }
}

void tst_StereoComposer::noPictureStaysNoPicture()
{
    for (int mode : {4, 8, 9, 11}) {
        const Frame result = compose({QImage(), 3, 4}, {mode, 0.1});
        QVERIFY(result.picture.isNull());
        QCOMPARE(result.time, qint64(3));
        QCOMPARE(result.serial, quint64(4));
    }
    QVERIFY(compose({QImage(0, 7, QImage::Format_RGB32), 0, 0}, {9, 0.1}).picture.isNull());
}

void tst_StereoComposer::noMemoryIsNoPicture()
{
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    QSKIP("a sanitizer has an allocator of its own");
#endif
    const QImage large(4096, 4096, QImage::Format_RGB32);
    QFile statistics("/proc/self/statm");
    QVERIFY(statistics.open(QIODevice::ReadOnly));
    const auto used = rlim_t(statistics.readAll().split(' ').first().toLongLong() * getpagesize());
    rlimit before = {};
    QCOMPARE(getrlimit(RLIMIT_AS, &before), 0);
    const rlimit little = {used + rlim_t(large.sizeInBytes() / 2), before.rlim_max};
    QCOMPARE(setrlimit(RLIMIT_AS, &little), 0);
    const Frame result = compose({large, 3, 4}, {Kest3DRedCyan, 0.1});
    QCOMPARE(setrlimit(RLIMIT_AS, &before), 0);
    QVERIFY(result.picture.isNull());
}

QTEST_APPLESS_MAIN(tst_StereoComposer)
#include "tst_stereocomposer.moc"
