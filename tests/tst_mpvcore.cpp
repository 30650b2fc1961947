// MpvCore: the volume curve, and a player under any locale.
// Not here: playing (tst_kest_playing.cpp).
#include "engine/mpv/mpvcore.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <clocale>

namespace {

/// What libmpv makes of its volume.
double gainOf(int volume)
{
    return std::pow(playerVolume(volume) / 100.0, 3);
}

bool near(double one, double other)
{
    return std::fabs(one - other) < 1e-9;
}

}  // namespace

class tst_MpvCore : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void volumeIsLinearInAmplitude()
    {
        QCOMPARE(playerVolume(0), 0.0);
        QCOMPARE(playerVolume(100), 100.0);
        QVERIFY(near(gainOf(50), 0.5));
        QVERIFY(near(gainOf(200), 2.0));
        for (int volume = 1; volume <= 200; ++volume)
            QVERIFY(near(gainOf(volume) - gainOf(volume - 1), 0.01));
    }

    void volumesOutsideAreClamped()
    {
        QCOMPARE(playerVolume(-1), 0.0);
        QCOMPARE(playerVolume(-2147483647 - 1), 0.0);
        QCOMPARE(playerVolume(2147483647), playerVolume(200));
        QVERIFY(playerVolume(200) < 130);  // the player's own limit
    }

    void opensWithAnySoundOutput()
    {
        QVERIFY(MpvCore::open("null"));
        // Found to be missing only when a sound is to be played, and then there is none.
        QVERIFY(MpvCore::open("no-such-output"));
    }

    void opensUnderADecimalComma()
    {
        // A locale of our own, as few machines have one installed.
        QTemporaryDir folder;
        QProcess localedef;
        localedef.start("localedef",
                        {"-i", "de_DE", "-f", "UTF-8", folder.filePath("de_DE.UTF-8")});
        if (!localedef.waitForFinished() || localedef.exitCode() > 1)
            QSKIP("localedef cannot make de_DE.UTF-8 here");
        qputenv("LOCPATH", folder.path().toLocal8Bit());
        QVERIFY(std::setlocale(LC_ALL, "de_DE.UTF-8"));
        QCOMPARE(std::localeconv()->decimal_point, ",");
        QVERIFY(MpvCore::open("null"));
        QCOMPARE(std::setlocale(LC_NUMERIC, nullptr), "de_DE.UTF-8");
        QCOMPARE(std::localeconv()->decimal_point, ",");
        std::setlocale(LC_ALL, "C");
        qunsetenv("LOCPATH");
    }
};

QTEST_GUILESS_MAIN(tst_MpvCore)
#include "tst_mpvcore.moc"
