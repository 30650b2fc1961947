// From a coded picture to its units, to their messages, to the one on frame packing.
// Not here: anything else that such a stream says.
#include "engine/mpv/framepacking.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace {

using Bytes = std::vector<std::uint8_t>;
using Position = Bytes::const_iterator;

constexpr int framePackingMessage = 45;
constexpr int sideBySideType = 3, topBottomType = 4;
constexpr int rightFirstMeaning = 2;

struct Span
{
    Position begin, end;

    std::ptrdiff_t size() const { return end - begin; }
    int take() { return begin == end ? 0 : *begin++; }
};

/// The next unit; nothing where the picture is over.
std::optional<Span> takeWithLength(Span &rest, int lengthSize)
{
    if (rest.size() < lengthSize)
        return {};
    std::size_t length = 0;
    for (int i = 0; i < lengthSize; ++i)
        length = length << 8 | std::size_t(rest.take());
    const auto end = rest.begin + std::ptrdiff_t(std::min(length, std::size_t(rest.size())));
    return Span{std::exchange(rest.begin, end), end};
}

std::optional<Span> takeBetweenStartCodes(Span &rest)
{
    static constexpr std::uint8_t startCode[] = {0, 0, 1};
    const auto next = [&rest] {
        return std::search(rest.begin, rest.end, std::begin(startCode), std::end(startCode));
    };
    rest.begin = next();
    if (rest.size() < 3)
        return {};
    rest.begin += 3;
    const Position begin = rest.begin;
    return Span{begin, next()};
}

/// A unit's content, without the bytes that keep it from looking like a start code.
Bytes unescaped(Span unit)
{
    Bytes content;
    for (int zeros = 0; unit.size() > 0;) {
        const int byte = unit.take();
        if (zeros < 2 || byte != 3)
            content.push_back(std::uint8_t(byte));
        zeros = byte == 0 ? zeros + 1 : 0;
    }
    return content;
}

/// Reads bits from the most significant on; beyond the end there are zeros.
class Bits
{
public:
    explicit Bits(Span span)
        : m_span(span)
    { }

    unsigned take(int count)
    {
        unsigned value = 0;
        for (; count > 0; --count)
            value = value << 1 | bit();
        return value;
    }

    void skipExpGolomb()
    {
        int zeros = 0;
        while (zeros < 32 && !bit())
            ++zeros;
        take(zeros);
    }

private:
    unsigned bit()
    {
        if (m_left == 0) {
            m_byte = m_span.take();
            m_left = 8;
        }
        return unsigned(m_byte) >> --m_left & 1;
    }

    Span m_span;
    int m_byte = 0;
    int m_left = 0;
};

StereoLayout readMessage(Span message)
{
    Bits bits(message);
    bits.skipExpGolomb();  // its number
    const bool cancelled = bits.take(1);
    const unsigned type = bits.take(7);
    const bool quincunx = bits.take(1);  // views that are sampled like a chess board
    const bool rightFirst = bits.take(6) == rightFirstMeaning;
    if (cancelled || quincunx || (type != sideBySideType && type != topBottomType))
        return {};
    const auto packing
        = type == sideBySideType ? StereoLayout::SideBySide : StereoLayout::TopBottom;
    return {packing, false, rightFirst};
}

/// A number that is the sum of bytes, of which all but the last are 255. As wide as the picture is
/// long: millions of such bytes are no message, but a file may hold them.
std::ptrdiff_t takeSum(Span &rest)
{
    std::ptrdiff_t sum = 0;
    while (rest.size() > 0) {
        const int byte = rest.take();
        sum += byte;
        if (byte != 255)
            break;
    }
    return sum;
}

StereoLayout readMessages(Span rest)
{
    while (rest.size() > 2) {
        const std::ptrdiff_t type = takeSum(rest);
        const std::ptrdiff_t size = takeSum(rest);
        const Position end = rest.begin + std::min(size, rest.size());
        if (type == framePackingMessage)
            return readMessage({rest.begin, end});
        rest.begin = end;
    }
    return {};
}

/// The length of the unit's header when it carries messages, else 0.
int messageHeader(NalCodec codec, Span unit)
{
    if (unit.size() < 3)
        return 0;
    if (codec == NalCodec::H264)
        return (*unit.begin & 0x1f) == 6 ? 1 : 0;
    return (*unit.begin >> 1 & 0x3f) == 39 ? 2 : 0;
}

}  // namespace

StereoLayout framePacking(NalCodec codec, const Bytes &picture, int lengthSize)
{
    Span rest = {picture.begin(), picture.end()};
    const auto next = [&] {
        return lengthSize ? takeWithLength(rest, lengthSize) : takeBetweenStartCodes(rest);
    };
    for (auto unit = next(); unit; unit = next()) {
        const int header = messageHeader(codec, *unit);
        if (!header)
            continue;
        const Bytes content = unescaped(*unit);
        const StereoLayout layout = readMessages({content.begin() + header, content.end()});
        if (layout.packing != StereoLayout::Flat)
            return layout;
    }
    return {};
}
