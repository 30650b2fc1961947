// Any coded picture, asked how it packs two views; and any frame, taken apart into them.
// Not here: whole films (fuzz_media.cpp).
#include "engine/mpv/framepacking.h"
#include "fuzz/bytes.h"

namespace {

constexpr int largestLength = 4;  // bytes; 0 stands for start codes

void findPacking(const std::vector<std::uint8_t> &picture)
{
    for (const NalCodec codec : {NalCodec::H264, NalCodec::Hevc}) {
        for (int lengthSize = 0; lengthSize <= largestLength; ++lengthSize)
            REQUIRE(!framePacking(codec, picture, lengthSize).half);
    }
}

void takeApart(Bytes bytes)
{
    const QSize view(1 + bytes.below(64), 1 + bytes.below(64));
    const QSize stored(1 + bytes.take<std::uint16_t>(), 1 + bytes.take<std::uint16_t>());
    const StereoLayout layout = {StereoLayout::Packing(bytes.below(3)), bytes.flag(), bytes.flag()};
    const double pixel = (1 + bytes.below(255)) / 64.0;
    const TaggedFrame tagged = taggedFrame(stored, pixel, layout);
    REQUIRE(!tagged.shape.isEmpty());
    QImage frame(frameSize(view, layout), QImage::Format_RGB32);
    frame.fill(Qt::darkCyan);
    const Eyes eyes = eyesOf(frame, stored, layout);
    REQUIRE(eyes.left.size() == view);
    REQUIRE(eyes.right.isNull() == (layout.packing == StereoLayout::Flat));
    REQUIRE(eyes.right.isNull() || eyes.right.size() == view);
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *bytes, std::size_t size)
{
    findPacking({bytes, bytes + size});
    takeApart(Bytes(bytes, size));
    return 0;
}
