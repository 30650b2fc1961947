// FilmDelegate: paints a film as two lines: name and length, settings or what is wrong.
// Not here: the list itself (filmlist.h).
#pragma once

#include <QStyledItemDelegate>

struct Film;

class FilmDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

private:
    void paintFirstLine(QPainter &painter, QRect line, const QStyleOptionViewItem &option,
                        const Film &film, bool playing) const;
    void paintSecondLine(QPainter &painter, QRect line, const QStyleOptionViewItem &option,
                         const Film &film) const;
};
