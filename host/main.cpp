// playwidget-preview: from the command line to the exit status.
// Not here: the window (previewdialog.cpp), the engine (mediaengine.cpp).
#include "host/exportconsole.h"
#include "host/exportdialog.h"
#include "host/language.h"
#include "host/mediaengine.h"
#include "host/options.h"
#include "host/previewdialog.h"
#include "host/replacefile.h"
#include "host/screenshot.h"
#include "host/stopsignals.h"

#include <QApplication>
#include <QBuffer>
#include <QFileInfo>
#include <QIcon>

#include <algorithm>
#include <clocale>
#include <csignal>
#include <cstdio>

namespace {

enum ExitStatus { Accepted = 0, Rejected = 1, BadUsage = 2, Failed = 3 };

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(Program)
};

int complain(const QString &text, ExitStatus status)
{
    std::fprintf(stderr, "playwidget-preview: %s\n", text.toLocal8Bit().constData());
    return status;
}

int print(const QByteArray &text, ExitStatus status)
{
    const bool printed = std::fputs(text.constData(), stdout) >= 0 && std::fflush(stdout) == 0;
    return printed ? status : complain(Text::tr("the output could not be written"), Failed);
}

QStringList filmsToOpen(const Options &options, const Settings &settings)
{
    if (!options.files.isEmpty())
        return options.files;
    QStringList paths;
    for (const FilmSettings &film : settings.films())
        paths << film.path;
    return paths;
}

/// Tells what failed; returns the exit status.
int report(const PreviewDialog &dialog)
{
    const QStringList errors = dialog.errors();
    for (const QString &line : errors)
        complain(line, Failed);
    const QVector<Film> &films = dialog.films().films();
    const bool allPlayable = std::all_of(films.begin(), films.end(), [](const Film &film) {
        return !film.examined || film.isPlayable();
    });
    return errors.isEmpty() && allPlayable ? Accepted : Failed;
}

int runWindow(PreviewDialog &dialog, const Options &options)
{
    if (dialog.exec() != QDialog::Accepted)
        return Rejected;
    const int status = report(dialog);
    return options.json ? print(dialog.settings().toJson(), ExitStatus(status)) : status;
}

int savePicture(const QImage &picture, const QString &file)
{
    if (picture.isNull())
        return complain(Text::tr("the film could not be shown at this place"), Failed);
    const QByteArray suffix = QFileInfo(file).suffix().toLatin1();
    QBuffer content;
    content.open(QIODevice::WriteOnly);
    if (!picture.save(&content, suffix.isEmpty() ? "png" : suffix.constData()))
        return complain(Text::tr("there is no image format \"%1\"").arg(QLatin1String(suffix)),
                        Failed);
    QString error;
    return replaceFile(file, content.data(), error) ? Accepted : complain(error, Failed);
}

int takeScreenshot(PreviewDialog &dialog, void *engine, const Options &options)
{
    if (dialog.films().films().isEmpty())
        return complain(Text::tr("there is no film to take the picture of"), Failed);
    Screenshot screenshot(engine, dialog.player());
    QObject::connect(&dialog, &PreviewDialog::begun, &screenshot,
                     [&](int film) { screenshot.take(film, options.screenshotAt); });
    QObject::connect(&dialog, &PreviewDialog::nothingToPlay, &screenshot,
                     [] { QApplication::exit(Failed); });
    QObject::connect(&screenshot, &Screenshot::taken, [&options](const QImage &picture) {
        QApplication::exit(savePicture(picture, options.screenshot));
    });
    dialog.setAttribute(Qt::WA_DontShowOnScreen);
    dialog.show();
    return QApplication::exec();
}

ExportOrder orderOf(const Options &options)
{
    return {options.exportFolder, options.exportLossless};
}

/// The same; `status` is that of what went before.
int report(const ExportSummary &summary, int status)
{
    for (const QString &line : leftOutLines(summary))
        (void)complain(line, Accepted);
    for (const QString &line : failureLines(summary))
        status = complain(line, Failed);
    return status;
}

int exportAtOnce(MediaEngine &engine, const Settings &settings, const Options &options)
{
    const ExportSummary summary = exportOnConsole(engine, settings.films(), orderOf(options));
    const int status = report(summary, Accepted);
    QByteArray names;
    for (const QString &file : summary.files)
        names += file.toLocal8Bit() + '\n';
    return print(names, ExitStatus(status));
}

int exportInWindow(const QVector<FilmSettings> &films, const Options &options, int status)
{
    if (films.isEmpty())
        return status;
    ExportDialog dialog(films, orderOf(options));
    dialog.exec();
    return report(dialog.summary(), status);
}

int run(const Options &options)
{
    Settings settings;
    QString error;
    // OK makes a file that is missing; where nobody can say OK, its name is mistyped.
    const auto missing = options.hasWindow() ? Settings::HasNoFilms : Settings::IsAnError;
    if (!options.settingsFile.isEmpty() && !settings.read(options.settingsFile, error, missing))
        return complain(error, Failed);
    MediaEngine engine(options.audioOutput);
    if (!engine.handle())
        return complain(Text::tr("the engine could not be opened"), Failed);
    if (options.noWindow)
        return exportAtOnce(engine, settings, options);
    PreviewDialog dialog(engine, options, settings);
    dialog.open(filmsToOpen(options, settings));
    if (!options.screenshot.isEmpty())
        return takeScreenshot(dialog, engine.handle(), options);
    const int status = runWindow(dialog, options);
    if (status == Rejected || options.exportFolder.isEmpty())
        return status;
    return exportInWindow(dialog.filmsToExport(), options, status);
}

/// Whether there is a screen to open a window on, as far as the environment tells.
bool hasDisplay()
{
#ifdef Q_OS_LINUX
    return !qEnvironmentVariableIsEmpty("DISPLAY")
        || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY")
        || !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
#else
    return true;
#endif
}

}  // namespace

int main(int argc, char **argv)
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    // Qt 6 does both by itself.
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
#endif
    const bool display = hasDisplay();
    if (!display)
        qputenv("QT_QPA_PLATFORM", "offscreen");
    std::signal(SIGXFSZ, SIG_IGN);  // a file that becomes too large is told as any failure
    QApplication application(argc, argv);
    const StopSignals stopSignals;
    // The player needs it; Qt's own numbers follow QLocale, which does not mind.
    std::setlocale(LC_NUMERIC, "C");
    QApplication::setOrganizationName(QStringLiteral("PlayWidget"));
    QApplication::setApplicationName(QStringLiteral("playwidget-preview"));
    QApplication::setApplicationVersion(QStringLiteral(PLAYWIDGET_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("playwidget-preview"));
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/icons/playwidget-preview.png")));

    const QString language = readLanguage(QApplication::arguments());
    if (!installLanguage(language))
        return complain(Text::tr("--language: there are no texts in \"%1\", but in: %2")
                            .arg(language, languages().join(QStringLiteral(", "))),
                        BadUsage);
    const Options options = readOptions(QApplication::arguments());
    if (!options.error.isEmpty())
        return complain(options.error + Text::tr(" (--help tells more)"), BadUsage);
    if (!options.answer.isEmpty())
        return print(options.answer.toUtf8(), Accepted);
    if (!display && options.hasWindow())
        return complain(Text::tr("there is no display to open a window on; "
                                 "--screenshot needs none"),
                        Failed);
    return run(options);
}
