// How two eyes' views are moved and put together, row by row.
// Not here: when a picture is composed (renderthread.cpp).
#include "engine/mpv/stereocomposer.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <vector>

// The pixel loops are kept plain, for the compiler to widen. It does so for several processors, and
// the program chooses while it is loaded, which is before a sanitizer is ready for it.
#if defined(__x86_64__) && defined(__GLIBC__) && defined(__GNUC__) && !defined(__clang__)          \
    && !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
#define FOR_EACH_PROCESSOR __attribute__((target_clones("avx2", "default")))
#else
#define FOR_EACH_PROCESSOR
#endif

namespace {

constexpr quint32 red = 0xff0000, green = 0x00ff00, blue = 0x0000ff, all = red | green | blue;
constexpr quint32 opaque = 0xff000000;

/// The channels that each eye's view gives.
struct Masks
{
    quint32 left, right;
};

struct Mode
{
    int mode;
    Masks even, odd;  ///< for every other row
    bool halves;      ///< each view has half of the width to itself
};

constexpr Mode modes[] = {
    {Kest3DRedGreen, {red, green}, {red, green}, false},
    {Kest3DRedBlue, {red, blue}, {red, blue}, false},
    {Kest3DRedCyan, {red, green | blue}, {red, green | blue}, false},
    {Kest3DBlueYellow, {blue, red | green}, {blue, red | green}, false},
    {Kest3DInterleaved, {all, 0}, {0, all}, false},
    {Kest3DSlideBySlide, {all, all}, {all, all}, true},
};

/// Where both views start in one row's memory.
struct Views
{
    const quint32 *left, *right;
};

/// A pixel `share` / 256 of the way from a to b. Red and blue go in one number, far enough apart.
inline quint32 between(quint32 a, quint32 b, quint32 share)
{
    constexpr quint32 outer = red | blue;
    const quint32 outerSum = (a & outer) * (256 - share) + (b & outer) * share + 0x800080;
    const quint32 greenSum = (a & green) * (256 - share) + (b & green) * share + 0x8000;
    return (outerSum >> 8 & outer) | (greenSum >> 8 & green) | opaque;
}

FOR_EACH_PROCESSOR
void blend(const quint32 *near, const quint32 *far, quint32 share, quint32 *to, int width)
{
    for (int x = 0; x < width; ++x)
        to[x] = between(near[x], far[x], share);
}

FOR_EACH_PROCESSOR
void mix(Views views, Masks masks, quint32 *to, int width)
{
    for (int x = 0; x < width; ++x)
        to[x] = (views.left[x] & masks.left) | (views.right[x] & masks.right) | opaque;
}

/// mix() of near and of far, blended.
FOR_EACH_PROCESSOR
void mixBlended(Views near, Views far, quint32 share, Masks masks, quint32 *to, int width)
{
    for (int x = 0; x < width; ++x) {
        const quint32 a = (near.left[x] & masks.left) | (near.right[x] & masks.right);
        const quint32 b = (far.left[x] & masks.left) | (far.right[x] & masks.right);
        to[x] = between(a, b, share);
    }
}

/// Means of two columns, halves rounded up, without a carry from one channel to the next.
FOR_EACH_PROCESSOR
void halve(const quint32 *from, quint32 *to, int columns)
{
    for (int x = 0; x < columns; ++x) {
        const quint32 a = from[2 * x], b = from[2 * x + 1];
        to[x] = ((a | b) - (((a ^ b) & 0xfefefe) >> 1)) | opaque;
    }
}

/// Parts a row into its even and its odd columns.
FOR_EACH_PROCESSOR
void part(const quint32 *from, quint32 *even, quint32 *odd, int pairs)
{
    for (int x = 0; x < pairs; ++x) {
        even[x] = from[2 * x] | opaque;
        odd[x] = from[2 * x + 1] | opaque;
    }
}

/// Every other column of a row, from three that follow each other.
struct EveryOther
{
    const uchar *first, *second, *third;
};

/// halve() of columns that are blended first, byte by byte: each sum fits into 16 bits, of which a
/// processor takes twice as many at a time.
FOR_EACH_PROCESSOR
void halveBlended(EveryOther columns, quint32 share, uchar *to, int bytes)
{
    const auto nearShare = quint16(256 - share), farShare = quint16(share);
    for (int x = 0; x < bytes; ++x) {
        const quint16 first = columns.first[x], second = columns.second[x],
                      third = columns.third[x];
        const auto a = quint16(first * nearShare + second * farShare + 128);
        const auto b = quint16(second * nearShare + third * farShare + 128);
        to[x] = uchar(((a >> 8) + (b >> 8) + 1) >> 1);
    }
}

/// Squeezes an odd width to half of one column more or less. Each new column covers the whole of
/// middle[2 * x] and a share of its neighbours. Single precision is exact for widths up to 10,000;
/// beyond, a channel may be one off in rare places.
FOR_EACH_PROCESSOR
void squeeze(const quint32 *middle, int width, quint32 *to, int columns)
{
    const bool wide = width > 2 * columns;
    const float unit = 1.0f / float(width);
    for (int x = 0; x < columns; ++x) {
        const quint32 a = middle[2 * x - 1], b = middle[2 * x], c = middle[2 * x + 1];
        const int shareC = wide ? x + 1 : columns - 1 - x, shareA = width - columns - shareC;
        to[x] = opaque;
        for (int bit = 0; bit < 24; bit += 8) {
            const int sum = int(a >> bit & 0xff) * shareA + int(b >> bit & 0xff) * columns
                + int(c >> bit & 0xff) * shareC;
            to[x] |= quint32(int(float(sum) * unit + 0.5f)) << bit;
        }
    }
}

/// Composes row after row. The row at hand lies between two stretches of black, as wide as the views
/// are moved: a view by whole columns is the same memory, read from another column on. Other views
/// lie between such a near one and the next, the far one, by the same share for both eyes. Eyes that
/// see one picture share its row.
class Composer
{
public:
    /// `shift` is how far to the right the left eye looks, in 1/256 of a column.
    Composer(const Mode &mode, int width, int shift, bool sharedRow)
        : m_mode(mode)
        , m_width(width)
        , m_columns(shift >> 8)
        , m_share(quint32(shift) & 0xff)
        , m_margin((std::abs(m_columns) + 2) / 2 * 2)
        , m_leftRow(size_t(width) + 2 * size_t(m_margin))
        , m_rightRow(sharedRow ? 0 : m_leftRow.size())
        , m_view(size_t(width) + 2)
        , m_even(m_leftRow.size() / 2, opaque)
        , m_odd(m_leftRow.size() / 2, opaque)
    { }

    void compose(const uchar *left, const uchar *right, bool odd, quint32 *to)
    {
        if (m_mode.halves && m_share && m_width % 2 == 0) {
            composeBlendedHalves(left, right, to);
            return;
        }
        take(left, m_leftRow);
        if (!m_rightRow.empty())
            take(right, m_rightRow);
        const Masks masks = odd ? m_mode.odd : m_mode.even;
        if (m_mode.halves)
            composeHalves(to);
        else if (m_share)
            mixBlended(near(), far(), m_share, masks, to, m_width);
        else
            mix(near(), masks, to, m_width);
    }

private:
    void take(const uchar *row, std::vector<quint32> &to)
    {
        std::memcpy(to.data() + m_margin, row, size_t(m_width) * sizeof(quint32));
    }

    void composeHalves(quint32 *to)
    {
        const int half = m_width / 2;
        if (m_width % 2) {
            squeeze(view(near().left, far().left) + 1, m_width, to, half);
            squeeze(view(near().right, far().right), m_width, to + half, half + 1);
        } else {
            halve(near().left, to, half);
            halve(near().right, to + half, half);
        }
    }

    void composeBlendedHalves(const uchar *left, const uchar *right, quint32 *to)
    {
        takeApart(left);
        halveBlendedView(m_columns, m_share, to);
        if (right != left)
            takeApart(right);
        halveBlendedView(-m_columns - 1, 256 - m_share, to + m_width / 2);
    }

    void takeApart(const uchar *row)
    {
        part(reinterpret_cast<const quint32 *>(row), m_even.data() + m_margin / 2,
             m_odd.data() + m_margin / 2, m_width / 2);
    }

    /// The view that lies `share` / 256 between those moved by `columns` and by one more.
    void halveBlendedView(int columns, quint32 share, quint32 *to) const
    {
        halveBlended({everyOther(columns), everyOther(columns + 1), everyOther(columns + 2)}, share,
                     reinterpret_cast<uchar *>(to), m_width / 2 * int(sizeof(quint32)));
    }

    const uchar *everyOther(int column) const
    {
        const int place = column + m_margin;
        const auto &half = place % 2 ? m_odd : m_even;
        return reinterpret_cast<const uchar *>(half.data() + place / 2);
    }

    /// Readable one column beyond either end, and valid until the next call.
    const quint32 *view(const quint32 *near, const quint32 *far)
    {
        if (!m_share)
            return near;
        blend(near, far, m_share, m_view.data() + 1, m_width);
        return m_view.data() + 1;
    }

    Views near() const { return moved(m_columns); }
    Views far() const { return moved(m_columns + 1); }

    Views moved(int columns) const
    {
        const std::vector<quint32> &rightRow = m_rightRow.empty() ? m_leftRow : m_rightRow;
        return {m_leftRow.data() + m_margin + columns, rightRow.data() + m_margin - columns};
    }

    const Mode m_mode;
    const int m_width;
    const int m_columns;
    const quint32 m_share;
    const int m_margin;  // even, so that an even column of the row is one of its memory
    std::vector<quint32> m_leftRow, m_rightRow, m_view;
    std::vector<quint32> m_even, m_odd;  // columns of one row, where they are apart
};

int shiftFor(double depth, int width)
{
    const double sane = std::isfinite(depth) ? std::clamp(depth, -1.0, 1.0) : 0.0;
    return int(std::lround(sane * width / 2 * 256));
}

}  // namespace

Frame compose(const Frame &frame, StereoSetting setting)
{
    const auto isWanted = [setting](const Mode &mode) { return mode.mode == setting.mode; };
    const Mode *mode = std::find_if(std::begin(modes), std::end(modes), isWanted);
    if (mode == std::end(modes) || frame.picture.isNull())
        return {frame.picture, frame.time, frame.serial};

    const bool shared = frame.right.isNull();
    const QImage &left = frame.picture, &right = shared ? left : frame.right;
    QImage composed(left.size(), QImage::Format_RGB32);
    Composer composer(*mode, left.width(), shiftFor(setting.depth, left.width()), shared);
    for (int y = 0; y < composed.height(); ++y) {  // none where there is no memory for it
        auto *to = reinterpret_cast<quint32 *>(composed.scanLine(y));
        composer.compose(left.constScanLine(y), right.constScanLine(y), y % 2, to);
    }
    return {composed, frame.time, frame.serial};
}
