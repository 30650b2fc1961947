// Reading, checking and writing the settings.
// Not here: command line and window.
#include "host/settings.h"

#include "host/depth.h"
#include "host/modenames.h"
#include "host/replacefile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cmath>

namespace {

const QString pathKey = QStringLiteral("path");
const QString modeKey = QStringLiteral("mode");
const QString depthKey = QStringLiteral("depth");
const QString changedKey = QStringLiteral("changed");

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(Settings)
};

/// 0.018 and not the 0.018000000000000002 that three steps of 0.006 come to.
double rounded(double depth)
{
    return std::round(depth * 1e6) / 1e6;
}

QJsonObject toObject(const FilmSettings &film)
{
    return {{pathKey, film.path},
            {modeKey, modeName(film.mode)},
            {depthKey, rounded(film.depth)},
            {changedKey, film.changed}};
}

/// What is wrong with an entry; empty when nothing is.
QString fromObject(const QJsonObject &object, const QString &folder, FilmSettings &film)
{
    const QString path = object.value(pathKey).toString();
    const QString mode = object.value(modeKey).toString();
    tagKest3DMode known = Kest3DTurnOff;
    if (path.isEmpty())
        return Text::tr("\"path\" is missing");
    if (!modeFromName(mode, known))
        return Text::tr("\"%1\" is not a 3D mode").arg(mode);
    if (!object.value(depthKey).isDouble() || !isDepth(object.value(depthKey).toDouble()))
        return Text::tr("\"depth\" is not a number from -0.3 to 0.3");
    film = {filmPath(path, folder), known, object.value(depthKey).toDouble(),
            object.value(changedKey).toBool()};
    return {};
}

bool parse(const QByteArray &json, const QString &folder, Settings &settings, QString &error)
{
    QJsonParseError place;
    const QJsonDocument document = QJsonDocument::fromJson(json, &place);
    if (document.isNull()) {
        error = Text::tr("line %1: %2")
                    .arg(json.left(place.offset).count('\n') + 1)
                    .arg(place.errorString());
        return false;
    }
    if (!document.isArray())
        error = Text::tr("not a list of films");
    const QJsonArray entries = document.array();
    for (int i = 0; i < entries.size() && error.isEmpty(); ++i) {
        FilmSettings film;
        const QString wrong = fromObject(entries.at(i).toObject(), folder, film);
        if (wrong.isEmpty())
            settings.put(film);
        else
            error = Text::tr("film %1: %2").arg(i + 1).arg(wrong);
    }
    return error.isEmpty();
}

}  // namespace

bool Settings::read(const QString &file, QString &error, MissingFile missing)
{
    const QFileInfo info(file);
    QFile source(file);
    QString reason;
    Settings found;
    if (missing == HasNoFilms && !info.exists() && info.dir().exists()) {
        *this = found;
        return true;
    }
    if (!source.open(QIODevice::ReadOnly))
        reason = source.errorString();
    else if (parse(source.readAll(), info.absolutePath(), found, reason))
        *this = found;
    if (!reason.isEmpty())
        error = Text::tr("%1 cannot be read as settings: %2").arg(file, reason);
    return reason.isEmpty();
}

bool Settings::write(const QString &file, QString &error) const
{
    return replaceFile(file, toJson(), error);
}

QByteArray Settings::toJson() const
{
    QJsonArray entries;
    for (const FilmSettings &film : m_films)
        entries.append(toObject(film));
    return QJsonDocument(entries).toJson();
}

const FilmSettings *Settings::find(const QString &path) const
{
    const auto found
        = std::find_if(m_films.begin(), m_films.end(),
                       [&path](const FilmSettings &film) { return film.path == path; });
    return found == m_films.end() ? nullptr : &*found;
}

void Settings::put(const FilmSettings &film)
{
    if (const FilmSettings *known = find(film.path))
        m_films[int(known - m_films.constData())] = film;
    else
        m_films.append(film);
}

QString filmPath(const QString &path, const QString &folder)
{
    return QDir::cleanPath(QFileInfo(QDir(folder), path).absoluteFilePath());
}
