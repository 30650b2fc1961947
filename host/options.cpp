// The command line: its options, their help, and what can be wrong with them.
// Not here: files that cannot be played; the engine finds those out.
#include "host/options.h"

#include "host/depth.h"
#include "host/modenames.h"

#include <QCommandLineParser>
#include <QCoreApplication>

namespace {

const QString settingsOption = QStringLiteral("settings");
const QString jsonOption = QStringLiteral("json");
const QString modeOption = QStringLiteral("mode");
const QString depthOption = QStringLiteral("depth");
const QString hideModeOption = QStringLiteral("hide-mode");
const QString startOption = QStringLiteral("start");
const QString audioOutputOption = QStringLiteral("audio-output");
const QString languageOption = QStringLiteral("language");
const QString screenshotOption = QStringLiteral("screenshot");
const QString atOption = QStringLiteral("at");
const QString exportOption = QStringLiteral("export");
const QString losslessOption = QStringLiteral("export-lossless");
const QString noWindowOption = QStringLiteral("no-window");
const QString helpOption = QStringLiteral("help");
const QString versionOption = QStringLiteral("version");

/// The parser and its words; English words when no language is installed yet.
class Parser : public QCommandLineParser
{
    Q_DECLARE_TR_FUNCTIONS(Options)

public:
    Parser()
    {
        setApplicationDescription(
            tr("Plays films and sets up how each is shown in 3D.\n\n"
               "OK writes the settings, Cancel and Escape write nothing.\n"
               "Exit status: 0 OK, 1 Cancel, 2 wrong usage, 3 a file or the engine failed."));
        addPositionalArgument(QStringLiteral("files"),
                              tr("Films and sound files; a folder means those in it."),
                              tr("[FILE|FOLDER...]"));
        addSettingOptions();
        addPlayerOptions();
        addOptions({
            {screenshotOption,
             tr("Write the player's picture of the first film and quit; needs no display."),
             tr("file")},
            {atOption, tr("Where in the film --screenshot looks, in milliseconds."), tr("ms"),
             QStringLiteral("0")},
            {exportOption,
             tr("After OK, write each film whose 3D is on into this folder, as the player shows it "
                "in full size, with its sound, subtitles and chapters: NAME.MODE.mkv."),
             tr("folder")},
            {losslessOption, tr("Export to the pixel (FFV1) instead of in H.264.")},
            {noWindowOption,
             tr("Export at once what --settings says; takes no FILE and needs no display.")},
            {{QStringLiteral("h"), helpOption}, tr("Show this help.")},
            {{QStringLiteral("v"), versionOption}, tr("Show the version.")},
        });
    }

private:
    void addSettingOptions()
    {
        const QString modes = modeNames().join(QStringLiteral(", "));
        addOptions({
            {settingsOption,
             tr("Settings of films as JSON: read at the start, written on OK. Without FILE the "
                "films that it names are opened."),
             tr("file")},
            {jsonOption, tr("Print the settings on OK, as JSON.")},
            {modeOption, tr("3D mode of films without settings: %1.").arg(modes), tr("name"),
             QStringLiteral("off")},
            {depthOption,
             tr("Depth of films without settings, from -0.3 to 0.3 of the picture's width; "
                "negative comes out of the screen."),
             tr("depth"), QStringLiteral("0")},
            {hideModeOption, tr("3D mode not to offer."), tr("name"), QStringLiteral("off")},
        });
    }

    void addPlayerOptions()
    {
        addOptions({
            {startOption, tr("Film to begin with; otherwise the first."), tr("file")},
            {audioOutputOption,
             tr("Sound output of the player, such as alsa or pulse; null is silent."), tr("name")},
            {languageOption, tr("Language of the texts: en, de; otherwise the system's."),
             tr("code")},
        });
    }
};

bool readMode(const Parser &parser, const QString &option, tagKest3DMode &mode, QString &error)
{
    const QString name = parser.value(option);
    if (modeFromName(name, mode))
        return true;
    error = Parser::tr("--%1: there is no 3D mode \"%2\". The modes are: %3")
                .arg(option, name, modeNames().join(QStringLiteral(", ")));
    return false;
}

bool readDepth(const Parser &parser, double &depth, QString &error)
{
    bool isNumber = false;
    depth = parser.value(depthOption).toDouble(&isNumber);  // with a point in every language
    if (isNumber && isDepth(depth))
        return true;
    error = Parser::tr("--%1: \"%2\" is not a number from -0.3 to 0.3")
                .arg(depthOption, parser.value(depthOption));
    return false;
}

bool readTime(const Parser &parser, unsigned int &time, QString &error)
{
    bool isNumber = false;
    time = parser.value(atOption).toUInt(&isNumber);
    if (!isNumber)
        error = Parser::tr("--%1: \"%2\" is not a number of milliseconds")
                    .arg(atOption, parser.value(atOption));
    return isNumber;
}

/// What single values cannot tell.
QString conflict(const Parser &parser, const Options &options)
{
    for (const QString &option : {settingsOption, startOption, screenshotOption, exportOption}) {
        if (parser.isSet(option) && parser.value(option).isEmpty())
            return Parser::tr("--%1: the name of the file is empty").arg(option);
    }
    if (options.noWindow && (options.settingsFile.isEmpty() || options.exportFolder.isEmpty()))
        return Parser::tr("--%1: needs --settings and --export").arg(noWindowOption);
    if (options.noWindow && !options.files.isEmpty())
        return Parser::tr("--%1: exports the films of the settings, and takes no others")
            .arg(noWindowOption);
    if (options.mode == options.hiddenMode && options.mode != Kest3DTurnOff)
        return Parser::tr("--%1: films cannot start in the mode that is not offered")
            .arg(modeOption);
    if (!options.screenshot.isEmpty() && options.files.isEmpty() && options.settingsFile.isEmpty())
        return Parser::tr("--%1: name the film to take the picture of").arg(screenshotOption);
    if (!options.screenshot.isEmpty() && !options.exportFolder.isEmpty())
        return Parser::tr("--%1: takes a picture and exports nothing").arg(screenshotOption);
    return {};
}

}  // namespace

Options readOptions(const QStringList &arguments)
{
    Options options;
    Parser parser;
    if (!parser.parse(arguments)) {
        options.error = parser.errorText();
        return options;
    }
    if (parser.isSet(helpOption))
        options.answer = parser.helpText();
    else if (parser.isSet(versionOption))
        options.answer = QStringLiteral("playwidget-preview " PLAYWIDGET_VERSION "\n");
    options.files = parser.positionalArguments();
    options.settingsFile = parser.value(settingsOption);
    options.json = parser.isSet(jsonOption);
    options.start = parser.value(startOption);
    options.audioOutput = parser.value(audioOutputOption);
    options.language = parser.value(languageOption);
    options.screenshot = parser.value(screenshotOption);
    options.exportFolder = parser.value(exportOption);
    options.exportLossless = parser.isSet(losslessOption);
    options.noWindow = parser.isSet(noWindowOption);
    const bool read = readMode(parser, modeOption, options.mode, options.error)
        && readMode(parser, hideModeOption, options.hiddenMode, options.error)
        && readDepth(parser, options.depth, options.error)
        && readTime(parser, options.screenshotAt, options.error);
    if (read)
        options.error = conflict(parser, options);
    return options;
}

QString readLanguage(const QStringList &arguments)
{
    Parser parser;
    parser.parse(arguments);
    return parser.value(languageOption);
}
