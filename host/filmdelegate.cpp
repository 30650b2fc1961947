// Painting one row in the colours of the platform.
// Not here: anything that changes.
#include "host/filmdelegate.h"

#include "host/filmlist.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QPainter>
#include <QPainterPath>

namespace {

constexpr int gutter = 20;  // for the mark of the film that plays
constexpr int padding = 7;
constexpr int gap = 8;
constexpr int lineGap = 2;

const Film &filmOf(const QModelIndex &index)
{
    const auto *list = qobject_cast<const FilmList *>(index.model());
    return *list->film(index.data(FilmList::IdRole).toInt());
}

bool isDark(const QPalette &palette)
{
    return palette.color(QPalette::Base).lightness() < 128;
}

QColor textColor(const QStyleOptionViewItem &option)
{
    const bool selected = option.state & QStyle::State_Selected;
    return option.palette.color(QPalette::Normal,
                                selected ? QPalette::HighlightedText : QPalette::Text);
}

/// For what is of second importance: between text and background.
QColor calmColor(const QStyleOptionViewItem &option)
{
    QColor color = textColor(option);
    color.setAlphaF(0.65);
    return color;
}

QColor errorColor(const QPalette &palette)
{
    return isDark(palette) ? QColor(0xff, 0x8a, 0x80) : QColor(0xb0, 0x22, 0x18);
}

/// Draws at the right end of the line and shortens the line by it.
void drawRight(QPainter &painter, QRect &line, const QString &text)
{
    if (text.isEmpty())
        return;
    painter.drawText(line, Qt::AlignRight | Qt::AlignVCenter, text);
    line.setRight(line.right() - painter.fontMetrics().horizontalAdvance(text) - gap);
}

void drawPlayMark(QPainter &painter, const QRect &line, const QColor &color)
{
    const qreal size = line.height() * 0.5;
    QPainterPath triangle;
    triangle.lineTo(size * 0.87, size / 2);
    triangle.lineTo(0, size);
    triangle.closeSubpath();
    triangle.translate(line.left() - gutter + 5, line.center().y() + 0.5 - size / 2);
    painter.fillPath(triangle, color);
}

/// Draws a note for a film without pictures, and moves the line behind it.
void drawNote(QPainter &painter, QRect &line, const QColor &color)
{
    const qreal size = line.height() * 0.62;
    QPainterPath note;
    note.addEllipse(QRectF(0, size * 0.68, size * 0.42, size * 0.32));
    note.addRect(QRectF(size * 0.32, 0, size * 0.1, size * 0.84));
    QPainterPath flag(QPointF(size * 0.42, 0));
    flag.quadTo(size * 0.5, size * 0.25, size * 0.72, size * 0.34);
    flag.quadTo(size * 0.6, size * 0.34, size * 0.42, size * 0.3);
    note.setFillRule(Qt::WindingFill);
    note.addPath(flag);
    note.translate(line.left(), line.center().y() - size / 2);
    painter.fillPath(note, color);
    line.setLeft(line.left() + qRound(size));
}

QString secondLine(const Film &film)
{
    if (!film.examined)
        return FilmDelegate::tr("Looking into it…");
    if (film.facts.audioOnly && film.now.mode == Kest3DTurnOff)
        return FilmDelegate::tr("Sound only");
    return settingsText(film.now);
}

}  // namespace

void FilmDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                         const QModelIndex &index) const
{
    const QWidget *widget = option.widget;
    const QStyle *style = widget ? widget->style() : QApplication::style();
    style->drawPrimitive(QStyle::PE_PanelItemViewItem, &option, painter, widget);

    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    const QRect inside = option.rect.adjusted(gutter, padding, -gap, -padding);
    const int height = option.fontMetrics.height() + lineGap;
    paintFirstLine(*painter, {inside.topLeft(), QSize(inside.width(), height)}, option,
                   filmOf(index), index.data(FilmList::PlayingRole).toBool());
    paintSecondLine(*painter, inside.adjusted(0, height, 0, 0), option, filmOf(index));
    painter->restore();
}

void FilmDelegate::paintFirstLine(QPainter &painter, QRect line, const QStyleOptionViewItem &option,
                                  const Film &film, bool playing) const
{
    const bool usable = film.isPlayable();
    painter.setPen(calmColor(option));
    painter.setFont(option.font);
    drawRight(painter, line, durationText(film.facts.duration));
    if (playing)
        drawPlayMark(painter, line, textColor(option));
    if (film.facts.audioOnly)
        drawNote(painter, line, textColor(option));
    QFont font = option.font;
    font.setBold(playing);
    painter.setFont(font);
    painter.setPen(usable ? textColor(option) : calmColor(option));
    const QString name = film.path.section(QLatin1Char('/'), -1);
    painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter,
                     painter.fontMetrics().elidedText(name, Qt::ElideMiddle, line.width()));
}

void FilmDelegate::paintSecondLine(QPainter &painter, QRect line,
                                   const QStyleOptionViewItem &option, const Film &film) const
{
    painter.setFont(option.font);
    painter.setPen(textColor(option));
    if (film.now.changed)
        drawRight(painter, line, tr("changed"));
    if (!film.facts.error.isEmpty()) {
        painter.setPen(errorColor(option.palette));
        painter.drawText(line, Qt::TextWordWrap, film.facts.error);
        return;
    }
    painter.setPen(calmColor(option));
    painter.drawText(
        line, Qt::AlignLeft | Qt::AlignVCenter,
        painter.fontMetrics().elidedText(secondLine(film), Qt::ElideRight, line.width()));
}

// What is wrong with a film is shown in full, in as many lines as it takes.
QSize FilmDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const int line = option.fontMetrics.height() + lineGap;
    const QSize usual(100, 2 * line + 2 * padding);
    const Film &film = filmOf(index);
    const auto *view = qobject_cast<const QAbstractScrollArea *>(option.widget);
    if (!view || film.facts.error.isEmpty())
        return usual;
    const QRect room(0, 0, view->viewport()->width() - gutter - gap, 10000);
    const QRect text = option.fontMetrics.boundingRect(room, Qt::TextWordWrap, film.facts.error);
    return {100, line + text.height() + lineGap + 2 * padding};
}
