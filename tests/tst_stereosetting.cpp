// StereoSetting: what a filter record says, and the record that says it, byte by byte.
// Not here: composing with a setting (tst_stereocomposer.cpp).
#include "engine/mpv/stereosetting.h"

#include <QtTest>

#include <cmath>
#include <cstring>
#include <limits>

Q_DECLARE_METATYPE(StereoSetting)

static QByteArray bytesOf(const tagKestFilterInfo &info)
{
    return QByteArray(reinterpret_cast<const char *>(&info), sizeof info);
}

class tst_StereoSetting : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isOffAtFirst()
    {
        const StereoSetting setting;
        QCOMPARE(setting.mode, 11);
        QCOMPARE(setting.depth, 0.0);
    }

    void writesTypeModeAndDepthAndNothingElse()
    {
        QByteArray expected(84, '\0');
        expected[4] = 17;
        expected[8] = 4;
        // 0.12 as a little-endian double.
        expected.replace(20, 8, QByteArray::fromHex("b81e85eb51b8be3f"));
        QCOMPARE(bytesOf(filterInfoFrom({4, 0.12})), expected);
    }

    void writesNegativeValues()
    {
        QByteArray expected(84, '\0');
        expected[4] = 17;
        expected.replace(8, 4, QByteArray::fromHex("feffffff"));
        expected.replace(20, 8, QByteArray::fromHex("000000000000d0bf"));
        QCOMPARE(bytesOf(filterInfoFrom({-2, -0.25})), expected);
    }

    void readsModeAndDepthOnly()
    {
        QByteArray bytes(84, '\xff');
        bytes.replace(8, 4, QByteArray::fromHex("09000000"));
        bytes.replace(20, 8, QByteArray::fromHex("000000000000c0bf"));
        tagKestFilterInfo info;
        std::memcpy(&info, bytes.constData(), sizeof info);

        const StereoSetting setting = stereoSettingFrom(info);
        QCOMPARE(setting.mode, 9);
        QCOMPARE(setting.depth, -0.125);
    }

    void anyValueSurvivesBothWays_data()
    {
        QTest::addColumn<StereoSetting>("setting");
        QTest::newRow("off") << StereoSetting{11, 0.0};
        QTest::newRow("smallest step") << StereoSetting{1, 0.006};
        QTest::newRow("unknown mode") << StereoSetting{3, -0.3};
        QTest::newRow("far out of range") << StereoSetting{std::numeric_limits<int>::min(), 1e300};
        QTest::newRow("infinite") << StereoSetting{std::numeric_limits<int>::max(), -HUGE_VAL};
        QTest::newRow("negative zero") << StereoSetting{6, -0.0};
        QTest::newRow("not a number") << StereoSetting{8, std::nan("")};
    }

    void anyValueSurvivesBothWays()
    {
        QFETCH(const StereoSetting, setting);
        const StereoSetting back = stereoSettingFrom(filterInfoFrom(setting));
        QCOMPARE(back.mode, setting.mode);
        QCOMPARE(std::memcmp(&back.depth, &setting.depth, sizeof back.depth), 0);
    }
};

QTEST_APPLESS_MAIN(tst_StereoSetting)
#include "tst_stereosetting.moc"
