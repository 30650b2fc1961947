// FilmList: the films of a sitting, what is known of each and how it is set up.
// Not here: how the list looks (filmdelegate.h), who plays it (previewdialog.h).
#pragma once

#include "host/mediaengine.h"
#include "host/settings.h"

#include <QAbstractListModel>
#include <QVector>

struct Film
{
    int id = 0;
    QString path;
    FilmSettings start;  ///< what the player begins with
    FilmSettings now;
    bool examined = false;
    MediaFacts facts;  ///< once examined

    bool isPlayable() const { return examined && facts.error.isEmpty(); }
};

class FilmList : public QAbstractListModel
{
    Q_OBJECT

public:
    enum Role { IdRole = Qt::UserRole, PlayingRole };

    using QAbstractListModel::QAbstractListModel;

    /// Appends a film and returns its id, or returns that of the film with this path.
    int add(const FilmSettings &start);

    /// Null when no film has this id.
    const Film *film(int id) const;
    const Film *filmByPath(const QString &path) const;
    const QVector<Film> &films() const { return m_films; }
    QModelIndex indexOf(int id) const;

    /// To be examined once more; its old facts are void.
    void forgetFacts(int id);
    void setFacts(int id, const MediaFacts &facts);
    void setSettings(int id, int mode, double depth, bool changed);

    /// The film that the player has; 0: none.
    void setPlaying(int id);
    int playing() const { return m_playing; }

    // QAbstractListModel
    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

private:
    Film *mutableFilm(int id);
    void tellChanged(int id);

    QVector<Film> m_films;  // an id is the row and one
    int m_playing = 0;
};

/// "1:02:03" or "2:03"; empty for 0 and less.
QString durationText(long long milliseconds);

/// "Red/Cyan, depth -2"; "3D off". The number is the one that the player's box shows.
QString settingsText(const FilmSettings &settings);
