// FilmView: the list of films; says what to do while there are none.
// Not here: what a row looks like (filmdelegate.h).
#pragma once

#include <QListView>

class FilmList;

class FilmView : public QListView
{
    Q_OBJECT

public:
    explicit FilmView(FilmList *films, QWidget *parent = nullptr);

Q_SIGNALS:
    /// Double-clicked, or Return on it.
    void chosen(int filmId);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
};
