// framePacking() on hand-made pictures, whole and broken.
// Not here: films that a coder has made (tst_mediaprobe.cpp).
#include "engine/mpv/framepacking.h"

#include <QtTest>

#include <random>

namespace {

using Layout = StereoLayout;
using Bytes = std::vector<std::uint8_t>;

constexpr Layout flat;
constexpr Layout beside = {Layout::SideBySide, false, false};
constexpr Layout above = {Layout::TopBottom, false, false};

Bytes operator+(Bytes one, const Bytes &other)
{
    one.insert(one.end(), other.begin(), other.end());
    return one;
}

/// The message: number 0 (one bit), not cancelled, `type`, `quincunx`, `meaning`.
Bytes message(unsigned type, unsigned meaning = 1, bool quincunx = false, bool cancelled = false)
{
    const unsigned bits
        = 1u << 15 | unsigned(cancelled) << 14 | type << 7 | unsigned(quincunx) << 6 | meaning;
    return {45, 3, std::uint8_t(bits >> 8), std::uint8_t(bits), 0x80};
}

const Bytes startCode = {0, 0, 1};
const Bytes h264Header = {6};
const Bytes hevcHeader = {78, 1};
const Bytes otherMessage = {5, 4, 1, 2, 3, 4};
const Bytes otherUnit = {9, 16, 17, 18};

Layout inH264(const Bytes &messages)
{
    return framePacking(NalCodec::H264, startCode + h264Header + messages, 0);
}

}  // namespace

class tst_FramePacking : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tellsTypeAndOrder()
    {
        QCOMPARE(inH264(message(3)), beside);
        QCOMPARE(inH264(message(4)), above);
        QCOMPARE(inH264(message(3, 0)), beside);
        QCOMPARE(inH264(message(3, 2)), (Layout{Layout::SideBySide, false, true}));
        QCOMPARE(inH264(message(4, 2)), (Layout{Layout::TopBottom, false, true}));
    }

    void otherKindsAreFlat()
    {
        for (const unsigned type : {0u, 1u, 2u, 5u, 6u, 7u, 127u})
            QCOMPARE(inH264(message(type)), flat);
        QCOMPARE(inH264(message(3, 1, true)), flat);
        QCOMPARE(inH264(message(3, 1, false, true)), flat);
        QCOMPARE(inH264(otherMessage), flat);
    }

    void findsTheMessageAmongOthers()
    {
        QCOMPARE(inH264(otherMessage + message(3)), beside);
        const Bytes longMessage = Bytes{255, 1, 255, 20} + Bytes(275, 7);
        QCOMPARE(inH264(longMessage + message(4)), above);
    }

    void findsTheUnitAmongOthers()
    {
        const Bytes unit = h264Header + message(3);
        const Bytes between
            = startCode + otherUnit + Bytes{0} + startCode + unit + startCode + otherUnit;
        QCOMPARE(framePacking(NalCodec::H264, between, 0), beside);
        for (int size = 1; size <= 4; ++size) {
            const auto length = [size](const Bytes &unit) {
                Bytes bytes(size_t(size), 0);
                bytes.back() = std::uint8_t(unit.size());
                return bytes;
            };
            const Bytes counted = length(otherUnit) + otherUnit + length(unit) + unit;
            QCOMPARE(framePacking(NalCodec::H264, counted, size), beside);
        }
    }

    void readsHevc()
    {
        const Bytes picture = startCode + hevcHeader + message(4);
        QCOMPARE(framePacking(NalCodec::Hevc, picture, 0), above);
        QCOMPARE(framePacking(NalCodec::H264, picture, 0), flat);
    }

    void bytesThatAvoidStartCodesDoNotCount()
    {
        // A number so long that it has more than two bytes of zeros.
        const Bytes plain = {45, 8, 0, 0, 1, 0, 0, 0x40, 6, 6};
        const Bytes escaped = {45, 8, 0, 0, 3, 1, 0, 0, 0x40, 6, 6};
        QCOMPARE(framePacking(NalCodec::H264, Bytes{0, 0, 0, 12} + h264Header + escaped, 4),
                 beside);
        QCOMPARE(inH264(escaped), beside);
        QVERIFY(inH264(plain) != beside);
        QCOMPARE(inH264(Bytes{1, 3, 0, 0, 3, 1} + message(3)), beside);
    }

    void brokenPicturesAreFlatOrWhatTheySay()
    {
        const Bytes whole = startCode + h264Header + message(3);
        for (size_t size = 0; size < whole.size() - 2; ++size)
            QCOMPARE(
                framePacking(NalCodec::H264, Bytes(whole.begin(), whole.begin() + long(size)), 0),
                flat);
        QCOMPARE(framePacking(NalCodec::H264, {255, 255, 255, 255, 6, 45}, 4), flat);
        QCOMPARE(framePacking(NalCodec::H264, {0, 0, 0, 0, 0, 0, 0, 0}, 4), flat);
        QCOMPARE(inH264(Bytes(1000, 255)), flat);
        // Sums beyond 31 bits, of a length and of a type.
        QCOMPARE(inH264(Bytes{5} + Bytes(8500000, 255) + Bytes{0, 0, 0}), flat);
        QCOMPARE(inH264(Bytes(8500000, 255) + Bytes{0, 0, 0}), flat);
        std::mt19937 random(1);
        for (int round = 0; round < 20000; ++round) {
            Bytes noise(random() % 60);
            for (auto &byte : noise)
                byte = std::uint8_t(random() % 3 ? random() % 4 : random());
            (void)framePacking(NalCodec::H264, startCode + h264Header + noise, 0);
            (void)framePacking(NalCodec::Hevc, noise, int(random() % 5));
        }
    }
};

QTEST_APPLESS_MAIN(tst_FramePacking)
#include "tst_framepacking.moc"
