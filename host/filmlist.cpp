// The model, and its facts in words.
// Not here: painting them.
#include "host/filmlist.h"

#include "host/depth.h"
#include "host/modenames.h"
#include "host/plaintip.h"

#include <QFileInfo>

#include <algorithm>

int FilmList::add(const FilmSettings &start)
{
    if (const Film *known = filmByPath(start.path))
        return known->id;
    const int row = m_films.size();
    beginInsertRows({}, row, row);
    Film film;
    film.id = row + 1;
    film.path = start.path;
    film.start = film.now = start;
    film.now.changed = false;
    m_films.append(film);
    endInsertRows();
    return film.id;
}

const Film *FilmList::film(int id) const
{
    return id >= 1 && id <= m_films.size() ? &m_films.at(id - 1) : nullptr;
}

Film *FilmList::mutableFilm(int id)
{
    return film(id) ? &m_films[id - 1] : nullptr;
}

const Film *FilmList::filmByPath(const QString &path) const
{
    const auto found = std::find_if(m_films.begin(), m_films.end(),
                                    [&path](const Film &film) { return film.path == path; });
    return found == m_films.end() ? nullptr : &*found;
}

QModelIndex FilmList::indexOf(int id) const
{
    return index(id - 1);
}

void FilmList::forgetFacts(int id)
{
    if (Film *film = mutableFilm(id)) {
        film->examined = false;
        film->facts = {};
        tellChanged(id);
    }
}

void FilmList::setFacts(int id, const MediaFacts &facts)
{
    if (Film *film = mutableFilm(id)) {
        film->examined = true;
        film->facts = facts;
        tellChanged(id);
    }
}

void FilmList::setSettings(int id, int mode, double depth, bool changed)
{
    Film *film = mutableFilm(id);
    if (!film)
        return;
    FilmSettings &now = film->now;
    if (now.mode == mode && now.depth == depth && now.changed == changed)
        return;
    now.mode = mode;
    now.depth = depth;
    now.changed = changed;
    tellChanged(id);
}

void FilmList::setPlaying(int id)
{
    const int before = std::exchange(m_playing, id);
    if (before == id)
        return;
    tellChanged(before);
    tellChanged(id);
}

void FilmList::tellChanged(int id)
{
    if (film(id))
        Q_EMIT dataChanged(indexOf(id), indexOf(id));
}

int FilmList::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_films.size();
}

QVariant FilmList::data(const QModelIndex &index, int role) const
{
    const Film *film = index.isValid() ? this->film(index.row() + 1) : nullptr;
    if (!film)
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return QFileInfo(film->path).fileName();
    case Qt::ToolTipRole:
        return plainTip(film->facts.error.isEmpty()
                            ? film->path
                            : film->path + QLatin1Char('\n') + film->facts.error);
    case Qt::AccessibleDescriptionRole:
        return film->facts.error.isEmpty() ? settingsText(film->now) : film->facts.error;
    case IdRole:
        return film->id;
    case PlayingRole:
        return film->id == m_playing;
    default:
        return {};
    }
}

// A film that cannot be played has a row all the same: it says why.
Qt::ItemFlags FilmList::flags(const QModelIndex &index) const
{
    const Film *film = this->film(index.row() + 1);
    if (film && film->isPlayable())
        return Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    return Qt::NoItemFlags;
}

QString durationText(long long milliseconds)
{
    const long long seconds = milliseconds / 1000;
    if (seconds <= 0)
        return {};
    const QLatin1Char zero('0');
    const long long hours = seconds / 3600;
    const QString rest = QStringLiteral("%1:%2")
                             .arg(seconds / 60 % 60, hours ? 2 : 1, 10, zero)
                             .arg(seconds % 60, 2, 10, zero);
    return hours ? QStringLiteral("%1:%2").arg(hours).arg(rest) : rest;
}

QString settingsText(const FilmSettings &settings)
{
    if (settings.mode == Kest3DTurnOff)
        return modeLabel(Kest3DTurnOff);
    return FilmList::tr("%1, depth %2")
        .arg(modeLabel(settings.mode))
        .arg(depthSteps(settings.depth));
}
