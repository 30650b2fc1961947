// The command line: its options, their help, and what can be wrong with them.
// Not here: files that cannot be played; the engine finds those out.
#include "host/options.h"

#include "host/modenames.h"

#include <QCommandLineParser>
#include <QCoreApplication>

namespace {

const QString modeOption = QStringLiteral("mode");
const QString depthOption = QStringLiteral("depth");
const QString hideModeOption = QStringLiteral("hide-mode");
const QString audioOutputOption = QStringLiteral("audio-output");
const QString demoShotOption = QStringLiteral("demo-screenshot");

void describe(QCommandLineParser &parser)
{
    const QString modes = modeNames().join(QStringLiteral(", "));
    parser.setApplicationDescription(QStringLiteral(
        "Previews films and sets up how they are shown in 3D.\n\n"
        "OK prints a line for each file: mode, depth, changed or unchanged, and the file.\n"
        "Exit status: 0 OK, 1 Cancel, 2 wrong usage, 3 a file or the engine failed."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addOptions({
        {modeOption, QStringLiteral("3D mode to start with: %1.").arg(modes),
         QStringLiteral("name"), QStringLiteral("off")},
        {depthOption,
         QStringLiteral("Depth to start with, from -0.3 to 0.3 of the picture's width; "
                        "negative comes out of the screen."),
         QStringLiteral("depth"), QStringLiteral("0")},
        {hideModeOption, QStringLiteral("3D mode not to offer."), QStringLiteral("name"),
         QStringLiteral("off")},
        {audioOutputOption,
         QStringLiteral("Sound output of the player, such as alsa or pulse; null is silent."),
         QStringLiteral("name")},
        {demoShotOption,
         QStringLiteral("Play for a moment, write a picture of the window and quit."),
         QStringLiteral("file")},
    });
    parser.addPositionalArgument(QStringLiteral("files"),
                                 QStringLiteral("Films and sound files to preview."),
                                 QStringLiteral("FILE..."));
}

bool readMode(const QCommandLineParser &parser, const QString &option, tagKest3DMode &mode,
              QString &error)
{
    const QString name = parser.value(option);
    if (modeFromName(name, mode))
        return true;
    error = QStringLiteral("--%1: there is no 3D mode \"%2\". The modes are: %3")
                .arg(option, name, modeNames().join(QStringLiteral(", ")));
    return false;
}

bool readDepth(const QCommandLineParser &parser, double &depth, QString &error)
{
    bool isNumber = false;
    depth = parser.value(depthOption).toDouble(&isNumber);
    if (isNumber && depth >= -0.3 && depth <= 0.3)
        return true;
    error = QStringLiteral("--%1: \"%2\" is not a number from -0.3 to 0.3")
                .arg(depthOption, parser.value(depthOption));
    return false;
}

}  // namespace

Options readOptions()
{
    QCommandLineParser parser;
    describe(parser);
    parser.process(*QCoreApplication::instance());

    Options options;
    options.files = parser.positionalArguments();
    options.audioOutput = parser.value(audioOutputOption);
    options.demoShot = parser.value(demoShotOption);
    const bool read = readMode(parser, modeOption, options.mode, options.error)
        && readMode(parser, hideModeOption, options.hiddenMode, options.error)
        && readDepth(parser, options.depth, options.error);
    if (read && options.files.isEmpty())
        options.error = QStringLiteral("name at least one film or sound file");
    return options;
}
