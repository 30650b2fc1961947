// The moments of a demonstration, driven by timers.
// Not here: anything a user would notice.
#include "host/demoshot.h"

#include <QApplication>
#include <QCursor>
#include <QScreen>
#include <QTimer>
#include <QWidget>

#include <cstdio>

namespace {

constexpr int mouseMoves = 2200;  // ms after the start; the controls hide after 5 s of rest
constexpr int pictureTaken = 3000;

void takePicture(QWidget *window, const QString &file)
{
    const QPixmap picture = window->screen()->grabWindow(window->winId());
    if (picture.save(file)) {
        window->close();
        return;
    }
    std::fprintf(stderr, "playwidget-preview: cannot write %s\n", qPrintable(file));
    QApplication::exit(3);
}

}  // namespace

void demoShot(QWidget *window, const QString &file)
{
    QTimer::singleShot(mouseMoves, window, [window] {
        QCursor::setPos(window->mapToGlobal(QPoint(window->width() / 2, window->height() * 2 / 3)));
    });
    QTimer::singleShot(pictureTaken, window, [window, file] { takePicture(window, file); });
}
