// The settings file: what is read, what is refused, and that nothing is lost.
// Not here: when the program writes it (tst_preview_program.cpp).
#include "host/settings.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <sys/resource.h>

class tst_PreviewSettings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void writesOneEntryForEachFilm();
    void readsBackWhatItWrote();
    void takesRelativePathsFromItsOwnFolder();
    void isEmptyWithoutAFile();
    void refusesAMissingFileWhereNothingMakesIt();
    void theLastEntryForAPathCounts();
    void refusesWhatIsNoSettingsAndSaysWhere_data();
    void refusesWhatIsNoSettingsAndSaysWhere();
    void refusesAFolderAndAMissingFolder();
    void saysWhyItCannotWrite();
    void aFullDiskLeavesTheOldFile();
    void depthHasAPointInEveryLocale();

private:
    QString store(const QByteArray &text) const;

    QTemporaryDir m_folder;
};

QString tst_PreviewSettings::store(const QByteArray &text) const
{
    QFile file(m_folder.filePath(QStringLiteral("settings.json")));
    file.open(QIODevice::WriteOnly);
    file.write(text);
    return file.fileName();
}

void tst_PreviewSettings::writesOneEntryForEachFilm()
{
    Settings settings;
    settings.put({QStringLiteral("/films/a.mkv"), Kest3DRedCyan, 3 * 0.006, true});
    settings.put({QStringLiteral("/films/ü.mkv"), Kest3DTurnOff, 0.0, false});
    QCOMPARE(settings.toJson(), QByteArray(R"([
    {
        "changed": true,
        "depth": 0.018,
        "mode": "red-cyan",
        "path": "/films/a.mkv"
    },
    {
        "changed": false,
        "depth": 0,
        "mode": "off",
        "path": "/films/ü.mkv"
    }
]
)"));
}

void tst_PreviewSettings::readsBackWhatItWrote()
{
    Settings written;
    written.put({QStringLiteral("/films/a \"b\"\n.mkv"), Kest3DSlideBySlide, -0.3, true});
    written.put({QStringLiteral("/films/c.mkv"), Kest3DBlueYellow, 0.3, false});
    const QString file = m_folder.filePath(QStringLiteral("written.json"));
    QString error;
    QVERIFY2(written.write(file, error), qPrintable(error));
    Settings read;
    QVERIFY2(read.read(file, error), qPrintable(error));
    QCOMPARE(read.toJson(), written.toJson());
}

void tst_PreviewSettings::takesRelativePathsFromItsOwnFolder()
{
    Settings settings;
    QString error;
    QVERIFY(settings.read(store(R"([{"path": "x/../a.mkv", "mode": "off", "depth": 0}])"), error));
    QCOMPARE(settings.films().at(0).path, m_folder.filePath(QStringLiteral("a.mkv")));
    QVERIFY(settings.find(m_folder.filePath(QStringLiteral("a.mkv"))));
    QVERIFY(!settings.find(m_folder.filePath(QStringLiteral("b.mkv"))));
}

void tst_PreviewSettings::isEmptyWithoutAFile()
{
    Settings settings;
    settings.put({QStringLiteral("/films/a.mkv"), Kest3DTurnOff, 0.0, false});
    QString error;
    QVERIFY(settings.read(m_folder.filePath(QStringLiteral("none.json")), error));
    QCOMPARE(settings.films().size(), 0);
}

void tst_PreviewSettings::refusesAMissingFileWhereNothingMakesIt()
{
    Settings settings;
    settings.put({QStringLiteral("/films/a.mkv"), Kest3DTurnOff, 0.0, false});
    const QString file = m_folder.filePath(QStringLiteral("none.json"));
    QString error;
    QVERIFY(!settings.read(file, error, Settings::IsAnError));
    QCOMPARE(error,
             file + QStringLiteral(" cannot be read as settings: No such file or directory"));
    QCOMPARE(settings.films().size(), 1);
}

void tst_PreviewSettings::theLastEntryForAPathCounts()
{
    Settings settings;
    QString error;
    QVERIFY(settings.read(store(R"([{"path": "/a", "mode": "off", "depth": 0},
                                    {"path": "/b", "mode": "off", "depth": 0},
                                    {"path": "/a", "mode": "red-blue", "depth": 0.1}])"),
                          error));
    QCOMPARE(settings.films().size(), 2);
    QCOMPARE(settings.films().at(0).mode, int(Kest3DRedBlue));
}

void tst_PreviewSettings::refusesWhatIsNoSettingsAndSaysWhere_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("reason");
    QTest::newRow("empty file") << QByteArray() << QStringLiteral("line 1: ");
    QTest::newRow("not JSON") << QByteArray("[\n\n{]") << QStringLiteral("line 3: ");
    QTest::newRow("cut off") << QByteArray("[{\"path\": \"/a\", \"mo")
                             << QStringLiteral("line 1: ");
    QTest::newRow("an object") << QByteArray("{}") << QStringLiteral("not a list of films");
    QTest::newRow("no object in it")
        << QByteArray("[7]") << QStringLiteral("film 1: \"path\" is missing");
    QTest::newRow("path a number") << QByteArray(R"([{"path": 1, "mode": "off", "depth": 0}])")
                                   << QStringLiteral("film 1: \"path\" is missing");
    QTest::newRow("unknown mode") << QByteArray(R"([{"path": "/a", "mode": "3d", "depth": 0}])")
                                  << QStringLiteral("film 1: \"3d\" is not a 3D mode");
    QTest::newRow("no depth") << QByteArray(R"([{"path": "/a", "mode": "off"}])")
                              << QStringLiteral("film 1: \"depth\" is not a number");
    QTest::newRow("depth a text") << QByteArray(
        R"([{"path": "/a", "mode": "off", "depth": "0,1"}])")
                                  << QStringLiteral("film 1: \"depth\" is not a number");
    QTest::newRow("depth too large, second film") << QByteArray(
        R"([{"path": "/a", "mode": "off", "depth": 0}, {"path": "/b", "mode": "off", "depth": 1}])")
                                                  << QStringLiteral("film 2: \"depth\" is not");
}

void tst_PreviewSettings::refusesWhatIsNoSettingsAndSaysWhere()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, reason);
    const QString file = store(text);
    Settings settings;
    settings.put({QStringLiteral("/films/a.mkv"), Kest3DTurnOff, 0.0, false});
    QString error;
    QVERIFY(!settings.read(file, error));
    QVERIFY2(error.startsWith(file + QStringLiteral(" cannot be read as settings: ") + reason),
             qPrintable(error));
    QCOMPARE(settings.films().size(), 1);
}

void tst_PreviewSettings::refusesAFolderAndAMissingFolder()
{
    Settings settings;
    for (const QString &file : {m_folder.path(), m_folder.filePath(QStringLiteral("no/s.json"))}) {
        QString error;
        QVERIFY(!settings.read(file, error));
        QVERIFY2(error.startsWith(file), qPrintable(error));
    }
}

void tst_PreviewSettings::saysWhyItCannotWrite()
{
    Settings settings;
    settings.put({QStringLiteral("/films/a.mkv"), Kest3DTurnOff, 0.0, false});
    QString error;
    const QString file = m_folder.filePath(QStringLiteral("no/such/folder/s.json"));
    QVERIFY(!settings.write(file, error));
    QVERIFY2(error.startsWith(file + QStringLiteral(" cannot be written: ")), qPrintable(error));
}

// A limit on the size of files stands in for the end of the disk.
void tst_PreviewSettings::aFullDiskLeavesTheOldFile()
{
    const QString file = store("[]");
    Settings settings;
    settings.put({QStringLiteral("/films/a.mkv"), Kest3DTurnOff, 0.0, false});
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit before;
    QCOMPARE(getrlimit(RLIMIT_FSIZE, &before), 0);
    const rlimit small = {40, before.rlim_max};
    QCOMPARE(setrlimit(RLIMIT_FSIZE, &small), 0);
    QString error;
    const bool written = settings.write(file, error);
    QCOMPARE(setrlimit(RLIMIT_FSIZE, &before), 0);

    QVERIFY(!written);
    QVERIFY2(error.startsWith(file + QStringLiteral(" cannot be written: ")), qPrintable(error));
    QFile old(file);
    QVERIFY(old.open(QIODevice::ReadOnly));
    QCOMPARE(old.readAll(), QByteArray("[]"));
    QCOMPARE(QDir(m_folder.path()).entryList({QStringLiteral("settings.json?*")}), QStringList());
}

void tst_PreviewSettings::depthHasAPointInEveryLocale()
{
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German));
    Settings settings;
    QString error;
    QVERIFY(settings.read(store(R"([{"path": "/a", "mode": "off", "depth": -0.012}])"), error));
    QCOMPARE(settings.films().at(0).depth, -0.012);
    QVERIFY(settings.toJson().contains("\"depth\": -0.012"));
    QLocale::setDefault(before);
}

QTEST_GUILESS_MAIN(tst_PreviewSettings)
#include "tst_preview_settings.moc"
