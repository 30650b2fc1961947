// Choosing a film by mouse and keys, and the empty list.
// Not here: opening films (previewdialog.cpp).
#include "host/filmview.h"

#include "host/filmdelegate.h"
#include "host/filmlist.h"

#include <QKeyEvent>
#include <QPainter>

FilmView::FilmView(FilmList *films, QWidget *parent)
    : QListView(parent)
{
    setModel(films);
    setItemDelegate(new FilmDelegate(this));
    setResizeMode(Adjust);
    setAlternatingRowColors(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(ScrollPerPixel);
    setEditTriggers(NoEditTriggers);
    setAccessibleName(tr("Films"));
    const auto choose
        = [this](const QModelIndex &index) { Q_EMIT chosen(index.data(FilmList::IdRole).toInt()); };
    connect(this, &QListView::doubleClicked, this, choose);
    // A row whose film turns out to be broken needs more room.
    connect(films, &FilmList::dataChanged, this, [this] { scheduleDelayedItemsLayout(); });
}

// Unlike the view's own signal for it, this keeps Return from pressing the dialog's OK as well.
void FilmView::keyPressEvent(QKeyEvent *event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!isReturn)
        QListView::keyPressEvent(event);
    else if (currentIndex().flags() & Qt::ItemIsEnabled)
        Q_EMIT chosen(currentIndex().data(FilmList::IdRole).toInt());
}

void FilmView::paintEvent(QPaintEvent *event)
{
    QListView::paintEvent(event);
    if (model()->rowCount())
        return;
    QPainter painter(viewport());
    QColor calm = palette().color(QPalette::Text);
    calm.setAlphaF(0.65);
    painter.setPen(calm);
    painter.drawText(viewport()->rect().adjusted(20, 0, -20, 0), Qt::AlignCenter | Qt::TextWordWrap,
                     tr("Open films…\nor drop them here"));
}
