// The preview program from outside: started, used by mouse and keys, judged by screen and output.
// Not here: what goes on inside its window (tst_preview_session.cpp).
#include "clips.h"
#include "engine/mpv/stereocomposer.h"
#include "likeness.h"
#include "realinput.h"

#include <QDir>
#include <QGuiApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>

class tst_PreviewProgram : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void playsSeeksShowsRedCyanAndPrintsTheSettings();
    void cancelPrintsNothingAndExitsWith1();
    void wrongUsageExitsWith2();
    void wrongUsageExitsWith2_data();
    void fileThatCannotBePlayedIsNamedAndExitsWith3();
    void writesThePictureOfAPlaceWithoutADisplay();
    void okBringsTheSettingsFileUpToDate();
    void cancelLeavesTheSettingsFile();
    void changesThatNothingWouldKeepAreAskedFor();
    void fullDiskLeavesTheOldSettingsAndTheUserMayGoOn();
    void opensFilmsByTheirDialog();
    void theFolderOpenedLastComesBack();
    void theWindowComesBackWhereItWas();
    void aWindowThatWasOffTheScreenComesBackOnIt();
    void aWindowThatWasOffTheScreenComesBackOnIt_data();
    void exportsAfterOkAndTellsWhatWasWritten();
    void exportsFromTheWindowAndGoesOn();
    void aSignalEndsAnExportFromTheWindowAndLeavesNothing_data();
    void aSignalEndsAnExportFromTheWindowAndLeavesNothing();
    void aSignalEndsAnExportAfterOk();
    void aSignalIsACancel();
    void depthHasAPointWhereOthersWriteAComma();

private:
    void start(const QStringList &arguments);
    void openWindow(const QStringList &arguments);
    void placeWindow();
    void moveWindow(QPoint place);
    void answerFileDialog(const char *name, const QString &text) const;
    static QString windowNamed(const char *name);
    static bool isOpen(const char *name);
    void focusWindow(const char *name) const;
    void chooseRedCyan() const;
    QString store(const QByteArray &settings) const;
    static QByteArray contents(const QString &file);
    QImage grab(const QRect &part) const;
    QImage grabPicture() const { return grab(picture); }
    void showControls() const;
    QImage settledPicture() const;
    QImage filmFrame(const char *time) const;
    void askForExport(const QString &folder) const;
    void closeSummary(const QString &folder) const;
    void waitForExit(int status);

    // Places inside the player, which has the left of the window and a fixed layout.
    const QRect picture = {0, 66, 702, 395};  // of a 16:9 film
    const QPoint playButton = {448, 411};
    const QPoint grooveAt200 = {432, 435};  // column 200 of the position slider
    const QPoint grooveAt120 = {352, 435};
    const QPoint besidePicture = {400, 556};
    const QPoint modes = {100, 556};
    const QPoint ok = {567, 555};

    QProcess m_program;
    QProcessEnvironment m_environment;
    QString m_window;  // its id
    QPoint m_origin;
    QSize m_size;
    QTemporaryDir m_folder;
    Clips m_clips;
};

void tst_PreviewProgram::init()
{
    m_environment = QProcessEnvironment::systemEnvironment();
    m_environment.insert(QStringLiteral("XDG_CONFIG_HOME"), m_folder.path());
    m_program.setProcessEnvironment(m_environment);
}

void tst_PreviewProgram::start(const QStringList &arguments)
{
    m_program.start(QStringLiteral(PREVIEW),
                    QStringList{QStringLiteral("--audio-output"), QStringLiteral("null")}
                        + arguments);
    QVERIFY(m_program.waitForStarted());
}

void tst_PreviewProgram::openWindow(const QStringList &arguments)
{
    start(arguments);
    placeWindow();
}

void tst_PreviewProgram::placeWindow()
{
    m_window
        = RealInput::visibleWindow(QStringLiteral("--pid"), QString::number(m_program.processId()));
    RealInput::focus(m_window.toULongLong());
    const QString geometry = RealInput::answer(
        {QStringLiteral("getwindowgeometry"), QStringLiteral("--shell"), m_window});
    const auto number = [&geometry](const QString &key) {
        return geometry.section(key + QLatin1Char('='), 1).section(QLatin1Char('\n'), 0, 0).toInt();
    };
    m_origin = {number(QStringLiteral("X")), number(QStringLiteral("Y"))};
    m_size = {number(QStringLiteral("WIDTH")), number(QStringLiteral("HEIGHT"))};
    QCOMPARE(m_size.height(), 585);
}

void tst_PreviewProgram::moveWindow(QPoint place)
{
    RealInput::answer({QStringLiteral("windowmove"), QStringLiteral("--sync"), m_window,
                       QString::number(place.x()), QString::number(place.y())});
    placeWindow();
    QCOMPARE(m_origin, place);
}

/// The id of the program's window with this title, once there is one.
QString tst_PreviewProgram::windowNamed(const char *name)
{
    return RealInput::visibleWindow(QStringLiteral("--name"), QString::fromUtf8(name));
}

bool tst_PreviewProgram::isOpen(const char *name)
{
    return !RealInput::visibleWindows(QStringLiteral("--name"), QString::fromUtf8(name)).isEmpty();
}

// There is no window manager that would do it.
void tst_PreviewProgram::focusWindow(const char *name) const
{
    RealInput::focus(windowNamed(name).toULongLong());
}

void tst_PreviewProgram::chooseRedCyan() const
{
    windowNamed("^depth.mkv");
    RealInput::click(m_origin + modes);
    RealInput::key(QStringLiteral("Down"));
    RealInput::key(QStringLiteral("Return"));
    QTest::qWait(500);  // a change is sent again within 200 ms
}

QString tst_PreviewProgram::store(const QByteArray &settings) const
{
    QFile file(m_folder.filePath(QStringLiteral("settings.json")));
    file.open(QIODevice::WriteOnly);
    file.write(settings);
    return file.fileName();
}

QByteArray tst_PreviewProgram::contents(const QString &name)
{
    QFile file(name);
    file.open(QIODevice::ReadOnly);
    return file.readAll();
}

void tst_PreviewProgram::cleanup()
{
    RealInput::keepPictureOfFailure();
    m_program.kill();
    m_program.waitForFinished();
}

QImage tst_PreviewProgram::grab(const QRect &part) const
{
    const QRect onScreen = part.translated(m_origin);
    return QGuiApplication::primaryScreen()
        ->grabWindow(0, onScreen.x(), onScreen.y(), onScreen.width(), onScreen.height())
        .toImage()
        .convertToFormat(QImage::Format_RGB32);
}

// The bar is dark where the film is sand.
void tst_PreviewProgram::showControls() const
{
    RealInput::moveTo(m_origin + picture.center());
    const auto barLightness = [this] { return qGray(grabPicture().pixel(340, 335)); };
    QTRY_VERIFY(barLightness() < 80);
}

// What the picture has come to once two looks at it are the same.
QImage tst_PreviewProgram::settledPicture() const
{
    QImage before;
    QImage now = grabPicture();
    for (int tries = 0; now != before && tries < 50; ++tries) {
        before = now;
        QTest::qWait(60);
        now = grabPicture();
    }
    return now;
}

QImage tst_PreviewProgram::filmFrame(const char *time) const
{
    const QString file = m_folder.filePath(QStringLiteral("frame.png"));
    QProcess::execute(QStringLiteral("ffmpeg"),
                      {QStringLiteral("-v"), QStringLiteral("error"), QStringLiteral("-y"),
                       QStringLiteral("-ss"), QString::fromLatin1(time), QStringLiteral("-i"),
                       QStringLiteral(SAMPLES "/depth.mkv"), QStringLiteral("-frames:v"),
                       QStringLiteral("1"), QStringLiteral("-vf"), QStringLiteral("scale=702:395"),
                       file});
    return QImage(file).convertToFormat(QImage::Format_RGB32);
}

static QJsonDocument json(const QByteArray &text)
{
    return QJsonDocument::fromJson(text);
}

void tst_PreviewProgram::waitForExit(int status)
{
    QTRY_COMPARE(m_program.state(), QProcess::NotRunning);
    QCOMPARE(m_program.exitStatus(), QProcess::NormalExit);
    QCOMPARE(m_program.exitCode(), status);
}

void tst_PreviewProgram::playsSeeksShowsRedCyanAndPrintsTheSettings()
{
    openWindow({QStringLiteral("--json"), QStringLiteral(SAMPLES "/depth.mkv")});
    RealInput::moveTo(m_origin + besidePicture);
    const QImage first = grabPicture();
    QTRY_VERIFY(meanDifference(first, grabPicture()) > 0.1);  // it plays

    showControls();
    RealInput::click(m_origin + playButton);
    RealInput::moveTo(m_origin + besidePicture);
    settledPicture();

    // A press on the groove brings the handle along; from there it is dragged to the middle.
    showControls();
    RealInput::click(m_origin + grooveAt200);
    RealInput::drag(m_origin + grooveAt200, m_origin + grooveAt120);
    RealInput::moveTo(m_origin + besidePicture);
    const QImage there = filmFrame("5.96");
    QTRY_VERIFY(meanDifference(grabPicture(), there) < 2.5);
    const QImage sought = settledPicture();

    RealInput::click(m_origin + modes);
    RealInput::key(QStringLiteral("Down"));
    RealInput::key(QStringLiteral("Return"));
    const QImage redCyan = compose({sought, 0, 0}, {Kest3DRedCyan, -0.012}).picture;
    QTRY_VERIFY(grabPicture() == redCyan);

    RealInput::click(m_origin + ok);
    waitForExit(0);
    QCOMPARE(json(m_program.readAllStandardOutput()),
             json("[{\"path\": \"" SAMPLES "/depth.mkv\", \"mode\": \"red-cyan\","
                  " \"depth\": -0.012, \"changed\": true}]"));
}

void tst_PreviewProgram::cancelPrintsNothingAndExitsWith1()
{
    openWindow({QStringLiteral(SAMPLES "/depth.mkv")});
    RealInput::moveTo(m_origin + besidePicture);
    RealInput::key(QStringLiteral("Escape"));
    waitForExit(1);
    QCOMPARE(m_program.readAllStandardOutput(), QByteArray());
}

void tst_PreviewProgram::wrongUsageExitsWith2_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("complaint");
    const QString film = QStringLiteral(SAMPLES "/depth.mkv");
    QTest::newRow("unknown mode") << QStringList{QStringLiteral("--mode"), QStringLiteral("blue"),
                                                 film}
                                  << QStringLiteral("there is no 3D mode \"blue\"");
    QTest::newRow("depth too large")
        << QStringList{QStringLiteral("--depth"), QStringLiteral("0.4"), film}
        << QStringLiteral("\"0.4\" is not a number from -0.3 to 0.3");
    QTest::newRow("depth no number")
        << QStringList{QStringLiteral("--depth"), QStringLiteral("nan"), film}
        << QStringLiteral("\"nan\" is not a number from -0.3 to 0.3");
}

void tst_PreviewProgram::wrongUsageExitsWith2()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, complaint);
    start(arguments);
    waitForExit(2);
    const QString said = QString::fromUtf8(m_program.readAllStandardError());
    QVERIFY2(said.contains(complaint), qPrintable(said));
}

void tst_PreviewProgram::fileThatCannotBePlayedIsNamedAndExitsWith3()
{
    openWindow({QStringLiteral("/no/such/film.mkv")});
    RealInput::click(m_origin + ok);
    waitForExit(3);
    const QString said = QString::fromUtf8(m_program.readAllStandardError());
    QVERIFY2(said.contains(QStringLiteral("/no/such/film.mkv: The file does not exist")),
             qPrintable(said));
}

void tst_PreviewProgram::writesThePictureOfAPlaceWithoutADisplay()
{
    QProcessEnvironment noDisplay = m_environment;
    for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        noDisplay.remove(QString::fromLatin1(name));
    m_program.setProcessEnvironment(noDisplay);
    const QString file = m_folder.filePath(QStringLiteral("shot.png"));
    start({QStringLiteral("--screenshot"), file, QStringLiteral("--at"), QStringLiteral("5960"),
           QStringLiteral("--mode"), QStringLiteral("red-cyan"), QStringLiteral("--depth"),
           QStringLiteral("-0.03"), QStringLiteral(SAMPLES "/depth.mkv")});
    waitForExit(0);
    const QImage shot(file);
    QCOMPARE(shot.size(), QSize(702, 585));
    const QImage expected = compose({filmFrame("5.96"), 0, 0}, {Kest3DRedCyan, -0.03}).picture;
    const double difference = meanDifference(shot.copy(picture), expected);
    QVERIFY2(difference < 2.5, qPrintable(QString::number(difference)));
}

static const QByteArray oldSettings
    = "[{\"path\": \"" SAMPLES "/depth.mkv\", \"mode\": \"off\", \"depth\": -0.1},"
      " {\"path\": \"/elsewhere.mkv\", \"mode\": \"interleaved\", \"depth\": 0.1}]";

static QByteArray redCyanFor(const QString &film)
{
    return "[{\"path\": \"" + film.toUtf8() + "\", \"mode\": \"red-cyan\", \"depth\": 0.012}]";
}

void tst_PreviewProgram::okBringsTheSettingsFileUpToDate()
{
    const QString file = store(oldSettings);
    openWindow({QStringLiteral("--settings"), file, QStringLiteral(SAMPLES "/depth.mkv")});
    chooseRedCyan();
    RealInput::click(m_origin + ok);
    waitForExit(0);
    QCOMPARE(json(contents(file)),
             json("[{\"path\": \"" SAMPLES "/depth.mkv\", \"mode\": \"red-cyan\","
                  " \"depth\": -0.102, \"changed\": true},"
                  " {\"path\": \"/elsewhere.mkv\", \"mode\": \"interleaved\", \"depth\": 0.1,"
                  " \"changed\": false}]"));
    QCOMPARE(m_program.readAllStandardOutput(), QByteArray());
}

void tst_PreviewProgram::cancelLeavesTheSettingsFile()
{
    const QString file = store(oldSettings);
    openWindow({QStringLiteral("--settings"), file, QStringLiteral(SAMPLES "/depth.mkv")});
    chooseRedCyan();
    RealInput::key(QStringLiteral("Escape"));
    waitForExit(1);
    QCOMPARE(contents(file), oldSettings);
}

void tst_PreviewProgram::changesThatNothingWouldKeepAreAskedFor()
{
    openWindow({QStringLiteral(SAMPLES "/depth.mkv")});
    chooseRedCyan();
    RealInput::click(m_origin + ok);
    focusWindow("^Settings$");
    RealInput::key(QStringLiteral("Return"));  // Save as
    focusWindow("^Write the settings to$");
    const QString file = m_folder.filePath(QStringLiteral("chosen.json"));
    RealInput::answer({QStringLiteral("key"), QStringLiteral("ctrl+a")});
    RealInput::answer({QStringLiteral("type"), file});
    RealInput::key(QStringLiteral("Return"));
    waitForExit(0);
    QVERIFY(contents(file).contains("\"red-cyan\""));
}

// A limit on the size of files stands in for the end of the disk.
void tst_PreviewProgram::fullDiskLeavesTheOldSettingsAndTheUserMayGoOn()
{
#ifdef __SANITIZE_THREAD__
    QSKIP("the sanitizer needs files of its own");
#endif
    const QString file = store(oldSettings);
    m_program.start(QStringLiteral("bash"),
                    {QStringLiteral("-c"), QStringLiteral("ulimit -f 0; exec \"$@\""),
                     QStringLiteral("-"), QStringLiteral(PREVIEW), QStringLiteral("--audio-output"),
                     QStringLiteral("null"), QStringLiteral("--settings"), file,
                     QStringLiteral(SAMPLES "/depth.mkv")});
    placeWindow();
    chooseRedCyan();
    RealInput::click(m_origin + ok);
    focusWindow("^Settings$");
    RealInput::key(QStringLiteral("Escape"));
    QCOMPARE(m_program.state(), QProcess::Running);

    RealInput::focus(windowNamed("^depth.mkv").toULongLong());
    RealInput::click(m_origin + ok);
    focusWindow("^Settings$");
    RealInput::key(QStringLiteral("Tab"));
    RealInput::key(QStringLiteral("space"));  // Do not save
    waitForExit(3);
    const QString said = QString::fromUtf8(m_program.readAllStandardError());
    QVERIFY2(said.contains(file + QStringLiteral(" cannot be written: ")), qPrintable(said));
    QCOMPARE(contents(file), oldSettings);
}

void tst_PreviewProgram::answerFileDialog(const char *name, const QString &text) const
{
    RealInput::focus(windowNamed(name).toULongLong());
    RealInput::answer({QStringLiteral("type"), text});
    // The first Return may go to the dialog's list of proposals; one that came too many would be the
    // player's OK.
    const auto closed = [name] { return !isOpen(name); };
    for (int tries = 0; tries < 3 && !closed(); ++tries) {
        RealInput::key(QStringLiteral("Return"));
        (void)QTest::qWaitFor(closed, 6000);
    }
}

void tst_PreviewProgram::opensFilmsByTheirDialog()
{
    openWindow({QStringLiteral("--json")});
    RealInput::key(QStringLiteral("ctrl+o"));
    answerFileDialog("^Open films$", QStringLiteral(SAMPLES "/depth.mkv"));
    windowNamed("^depth.mkv");
    RealInput::click(m_origin + ok);
    waitForExit(0);
    QVERIFY(m_program.readAllStandardOutput().contains("\"path\": \"" SAMPLES "/depth.mkv\""));
}

void tst_PreviewProgram::theFolderOpenedLastComesBack()
{
    openWindow({});
    RealInput::key(QStringLiteral("ctrl+o"));
    answerFileDialog("^Open films$", QStringLiteral(SAMPLES "/depth.mkv"));
    windowNamed("^depth.mkv");
    RealInput::key(QStringLiteral("Escape"));
    waitForExit(1);

    openWindow({});
    RealInput::key(QStringLiteral("ctrl+o"));
    answerFileDialog("^Open films$", QStringLiteral("tone.ogg"));
    windowNamed("^tone.ogg");
    const QString memory = QStringLiteral("PlayWidget/playwidget-preview.conf");
    QVERIFY(contents(m_folder.filePath(memory)).contains("lastFolder=" SAMPLES));
}

void tst_PreviewProgram::theWindowComesBackWhereItWas()
{
    openWindow({});
    RealInput::answer({QStringLiteral("windowsize"), QStringLiteral("--sync"), m_window,
                       QStringLiteral("1100"), QStringLiteral("585")});
    moveWindow({120, 90});
    RealInput::key(QStringLiteral("Escape"));
    waitForExit(1);

    openWindow({});
    QCOMPARE(m_origin, QPoint(120, 90));
    QCOMPARE(m_size, QSize(1100, 585));
}

void tst_PreviewProgram::aWindowThatWasOffTheScreenComesBackOnIt_data()
{
    QTest::addColumn<QPoint>("place");
    QTest::newRow("all of it") << QPoint(5000, 3000);
    QTest::newRow("its right half and OK") << QPoint(700, 700);
    QTest::newRow("its left half") << QPoint(-500, 100);
}

void tst_PreviewProgram::aWindowThatWasOffTheScreenComesBackOnIt()
{
    QFETCH(QPoint, place);
    openWindow({});
    moveWindow(place);
    RealInput::key(QStringLiteral("Escape"));
    waitForExit(1);

    openWindow({});
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    QVERIFY2(screen.contains(QRect(m_origin, m_size)),
             qPrintable(QStringLiteral("%1, %2").arg(m_origin.x()).arg(m_origin.y())));
}

/// Asks the window for an export into a folder, which it makes first.
void tst_PreviewProgram::askForExport(const QString &folder) const
{
    QVERIFY(QDir().mkpath(folder));
    RealInput::key(QStringLiteral("ctrl+e"));
    answerFileDialog("^Export into a folder$", folder);
}

void tst_PreviewProgram::closeSummary(const QString &folder) const
{
    focusWindow("^Export$");
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(folder + QStringLiteral("/depth.red-cyan.mkv")), 30000);
    QTest::qWait(500);  // the summary is a moment behind the file
    RealInput::key(QStringLiteral("Return"));
    QTRY_VERIFY(!isOpen("^Export$"));
}

void tst_PreviewProgram::exportsAfterOkAndTellsWhatWasWritten()
{
    const QString folder = m_folder.filePath(QStringLiteral("after-ok"));
    openWindow({QStringLiteral("--json"), QStringLiteral("--export"), folder,
                m_clips.pattern(QStringLiteral("depth.mkv"), QStringLiteral("160x90"), 1)});
    chooseRedCyan();
    RealInput::click(m_origin + ok);
    closeSummary(folder);
    waitForExit(0);
    const auto settings = QJsonDocument::fromJson(m_program.readAllStandardOutput());
    QCOMPARE(settings.array().size(), 1);
}

void tst_PreviewProgram::exportsFromTheWindowAndGoesOn()
{
    const QString folder = m_folder.filePath(QStringLiteral("from-window"));
    openWindow({QStringLiteral("--json"),
                m_clips.pattern(QStringLiteral("depth.mkv"), QStringLiteral("160x90"), 1)});
    chooseRedCyan();
    askForExport(folder);
    closeSummary(folder);
    RealInput::click(m_origin + ok);
    waitForExit(0);
    QVERIFY(m_program.readAllStandardOutput().contains("\"mode\": \"red-cyan\""));
}

void tst_PreviewProgram::aSignalEndsAnExportFromTheWindowAndLeavesNothing_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("interrupt") << SIGINT;
    QTest::newRow("hang-up") << SIGHUP;
    QTest::newRow("terminate") << SIGTERM;
}

void tst_PreviewProgram::aSignalEndsAnExportFromTheWindowAndLeavesNothing()
{
    QFETCH(int, signal);
    const QString folder = m_folder.filePath(QStringLiteral("stopped"));
    const QString film = m_clips.longPattern(QStringLiteral("depth.mkv"));
    const QByteArray settings = redCyanFor(film);
    const QString file = store(settings);
    openWindow({QStringLiteral("--settings"), file});
    windowNamed("^depth.mkv");
    askForExport(folder);
    QTRY_VERIFY(QFile::exists(folder + QStringLiteral("/depth.red-cyan.mkv.part")));
    QCOMPARE(kill(pid_t(m_program.processId()), signal), 0);
    waitForExit(1);
    QCOMPARE(QDir(folder).entryList(QDir::Files), QStringList());
    QCOMPARE(contents(file), settings);
}

void tst_PreviewProgram::aSignalEndsAnExportAfterOk()
{
    const QString folder = m_folder.filePath(QStringLiteral("stopped-after-ok"));
    const QString film = m_clips.longPattern(QStringLiteral("depth.mkv"));
    openWindow({QStringLiteral("--json"), QStringLiteral("--mode"), QStringLiteral("red-cyan"),
                QStringLiteral("--export"), folder, film});
    windowNamed("^depth.mkv");
    RealInput::click(m_origin + ok);
    QTRY_VERIFY(QFile::exists(folder + QStringLiteral("/depth.red-cyan.mkv.part")));
    m_program.terminate();
    waitForExit(3);
    QVERIFY(m_program.readAllStandardError().contains("the export was stopped"));
    QCOMPARE(QDir(folder).entryList(QDir::Files), QStringList());
}

void tst_PreviewProgram::aSignalIsACancel()
{
    const QString file = store(oldSettings);
    openWindow({QStringLiteral("--settings"), file, QStringLiteral(SAMPLES "/depth.mkv")});
    chooseRedCyan();
    m_program.terminate();
    waitForExit(1);
    QCOMPARE(contents(file), oldSettings);
}

void tst_PreviewProgram::depthHasAPointWhereOthersWriteAComma()
{
    m_environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("de_DE.UTF-8"));
    m_program.setProcessEnvironment(m_environment);
    openWindow({QStringLiteral("--json"), QStringLiteral("--mode"), QStringLiteral("red-cyan"),
                QStringLiteral("--depth"), QStringLiteral("-0.012"),
                QStringLiteral(SAMPLES "/depth.mkv")});
    windowNamed("^depth.mkv");
    RealInput::click(m_origin + ok);
    waitForExit(0);
    QVERIFY(m_program.readAllStandardOutput().contains("\"depth\": -0.012"));
}

QTEST_MAIN(tst_PreviewProgram)
#include "tst_preview_program.moc"
