// The program that README.md shows, between the two marks.
// Not here: a whole host with options and error texts (host/).
//! [embed]
#include "engine/mpv/kest_host.h"
#include "playwidget/playwidget.h"

#include <QApplication>
#include <QDialog>

// Plays a film in a dialog; true when the user chose a 3D mode and a depth with OK.
bool chooseDepth(void *engine, int fileId, const QString &name, int &mode, double &depth)
{
    QDialog dialog;
    PlayWidget player(&dialog);
    player.resize(player.actualSize());
    dialog.setFixedSize(player.size());
    QObject::connect(&player, &PlayWidget::accepted, &dialog, &QDialog::accept);
    QObject::connect(&player, &PlayWidget::rejected, &dialog, &QDialog::reject);

    player.initialize(engine, Kest3DTurnOff);  // names the mode not to offer; this hides none
    player.addPlayItem(fileId, name, false, mode, depth);
    player.setPlayIndex(0);  // plays at once
    bool changed = false;
    return dialog.exec() == QDialog::Accepted
        && player.movie3DPropsByIndex(0, changed, mode, depth);
}

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    const QString film = QApplication::arguments().value(1);
    int mode = Kest3DRedCyan;
    double depth = -0.012;  // a share of the picture's width; negative comes out of the screen

    void *engine = KestOpen(nullptr);  // null: the system's sound output
    KestAddFile(engine, 1, film.toUtf8().constData());
    const bool chosen = chooseDepth(engine, 1, film, mode, depth);
    KestClose(engine);  // after the last widget
    return chosen ? 0 : 1;
}
//! [embed]
