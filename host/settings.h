// Settings: the 3D settings of films by path, and the file that keeps them.
// Not here: who changes them.
#pragma once

#include "engine/kest.h"

#include <QByteArray>
#include <QString>
#include <QVector>

struct FilmSettings
{
    QString path;  ///< absolute
    int mode = Kest3DTurnOff;
    double depth = 0.0;    ///< share of the picture's width
    bool changed = false;  ///< by the user, when they were last written
};

/// A JSON array with one object for each film, in the order in which they were put in first:
/// {"path": "/films/a.mkv", "mode": "red-cyan", "depth": -0.012, "changed": true}
/// A relative path in a file means the folder that the file lies in; they are written absolute.
class Settings
{
public:
    /// What a file that does not exist is, in a folder that does.
    enum MissingFile { HasNoFilms, IsAnError };

    /// False, with this untouched and `error` saying where and why, when the file cannot be read or
    /// is not what toJson() writes.
    bool read(const QString &file, QString &error, MissingFile missing = HasNoFilms);

    /// Replaces the file at once or, on failure, not at all; `error` then says why.
    bool write(const QString &file, QString &error) const;

    QByteArray toJson() const;

    /// Null when there are none for this path.
    const FilmSettings *find(const QString &path) const;

    /// Takes the place of what there is for the same path.
    void put(const FilmSettings &film);

    const QVector<FilmSettings> &films() const { return m_films; }

private:
    QVector<FilmSettings> m_films;
};

/// The absolute form of a path that films are known by; a relative one lies in `folder`.
QString filmPath(const QString &path, const QString &folder = QStringLiteral("."));
