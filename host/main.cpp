// playwidget-preview: previews the files of its command line and prints the settings chosen.
// Not here: the dialog (previewdialog.cpp), the engine (mediaengine.cpp).
#include "host/demoshot.h"
#include "host/mediaengine.h"
#include "host/options.h"
#include "host/previewdialog.h"

#include <QApplication>

#include <cstdio>

namespace {

enum ExitStatus { Accepted = 0, Rejected = 1, BadUsage = 2, Failed = 3 };

int complain(const QString &text, ExitStatus status)
{
    std::fprintf(stderr, "playwidget-preview: %s\n", qPrintable(text));
    return status;
}

QVector<MediaFile> openFiles(MediaEngine &engine, const QStringList &paths)
{
    QVector<MediaFile> files;
    for (const QString &path : paths) {
        files.append(engine.add(path));
        if (!files.last().error.isEmpty())
            complain(QStringLiteral("%1: %2").arg(path, files.last().error), Failed);
    }
    return files;
}

int run(MediaEngine &engine, const QVector<MediaFile> &files, const Options &options)
{
    PreviewDialog dialog(engine, files, options);
    dialog.show();
    dialog.start();
    if (!options.demoShot.isEmpty()) {
        demoShot(&dialog, options.demoShot);
        return QApplication::exec();
    }
    QApplication::exec();
    const bool accepted = dialog.result() == QDialog::Accepted;
    if (accepted)
        std::fputs(dialog.settings().toUtf8().constData(), stdout);
    if (!dialog.errors().isEmpty())
        return complain(dialog.errors(), Failed);
    return accepted ? Accepted : Rejected;
}

}  // namespace

int main(int argc, char **argv)
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    // Qt 6 does both by itself.
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
#endif
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("playwidget-preview"));
    QApplication::setApplicationVersion(QStringLiteral(PLAYWIDGET_VERSION));

    const Options options = readOptions();
    if (!options.error.isEmpty())
        return complain(options.error + QStringLiteral(" (--help tells more)"), BadUsage);
    MediaEngine engine(options.audioOutput);
    if (!engine.handle())
        return complain(QStringLiteral("the engine could not be opened"), Failed);
    return run(engine, openFiles(engine, options.files), options);
}
