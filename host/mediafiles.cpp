// Folders, drops and lists as files.
// Not here: opening any of them.
#include "host/mediafiles.h"

#include "host/settings.h"

#include <QDir>
#include <QMimeData>
#include <QUrl>

#include <algorithm>

namespace {

// Suffixes and not contents: a folder may hold thousands of files, on a slow disk.
const QStringList suffixes = {
    QStringLiteral("3gp"),  QStringLiteral("aac"),  QStringLiteral("ac3"),  QStringLiteral("asf"),
    QStringLiteral("avi"),  QStringLiteral("flac"), QStringLiteral("flv"),  QStringLiteral("m2ts"),
    QStringLiteral("m4a"),  QStringLiteral("m4v"),  QStringLiteral("mk3d"), QStringLiteral("mka"),
    QStringLiteral("mkv"),  QStringLiteral("mov"),  QStringLiteral("mp3"),  QStringLiteral("mp4"),
    QStringLiteral("mpeg"), QStringLiteral("mpg"),  QStringLiteral("mts"),  QStringLiteral("oga"),
    QStringLiteral("ogg"),  QStringLiteral("ogv"),  QStringLiteral("opus"), QStringLiteral("ts"),
    QStringLiteral("vob"),  QStringLiteral("wav"),  QStringLiteral("webm"), QStringLiteral("wma"),
    QStringLiteral("wmv"),
};

QString fileOf(const QString &line)
{
    const QString text = line.trimmed();
    const QUrl url(text);
    if (url.isLocalFile())
        return url.toLocalFile();
    return QDir::isAbsolutePath(text) ? text : QString();
}

/// Those of one script alone: digits scattered among the characters make the order a circle.
bool isDigit(QChar character)
{
    return character >= QLatin1Char('0') && character <= QLatin1Char('9');
}

/// Takes the number or the character that `text` has at `at`; a number as its digits without the
/// zeros before them.
QString takePart(const QString &text, int &at)
{
    const int begin = at++;
    if (!isDigit(text.at(begin)))
        return text.at(begin).toCaseFolded();
    while (at < text.size() && isDigit(text.at(at)))
        ++at;
    int first = begin;
    while (first < at - 1 && text.at(first) == QLatin1Char('0'))
        ++first;
    return text.mid(first, at - first);
}

/// By hand, because what a locale does with numbers depends on it.
bool comesBefore(const QString &a, const QString &b)
{
    int i = 0;
    int j = 0;
    while (i < a.size() && j < b.size()) {
        const QString left = takePart(a, i);
        const QString right = takePart(b, j);
        const bool numbers = isDigit(left.at(0)) && isDigit(right.at(0));
        if (numbers && left.size() != right.size())
            return left.size() < right.size();
        if (left != right)
            return left < right;
    }
    if (i < a.size() || j < b.size())
        return j < b.size();
    return a.size() != b.size() ? a.size() < b.size() : a < b;
}

}  // namespace

QStringList mediaFilesIn(const QString &folder)
{
    const QDir dir(folder);
    QStringList names = dir.entryList(QDir::Files);
    const auto isOther = [](const QString &name) {
        return !suffixes.contains(QFileInfo(name).suffix().toLower());
    };
    names.erase(std::remove_if(names.begin(), names.end(), isOther), names.end());
    std::sort(names.begin(), names.end(), comesBefore);
    for (QString &name : names)
        name = dir.absoluteFilePath(name);
    return names;
}

QStringList expandFolders(const QStringList &paths, QStringList *empty)
{
    QStringList files;
    for (const QString &path : paths) {
        if (!QFileInfo(path).isDir()) {
            files << filmPath(path);
            continue;
        }
        const QStringList within = mediaFilesIn(filmPath(path));
        if (within.isEmpty())
            *empty << filmPath(path);
        files << within;
    }
    return files;
}

QStringList filesIn(const QMimeData &data)
{
    QStringList files;
    if (data.hasUrls()) {
        const QList<QUrl> urls = data.urls();
        for (const QUrl &url : urls)
            files << url.toLocalFile();
    } else {
        const QStringList lines = data.text().split(QLatin1Char('\n'));
        for (const QString &line : lines)
            files << fileOf(line);
    }
    files.removeAll(QString());
    return files;
}
