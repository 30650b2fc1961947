// A stranger's program: plays a film with what PlayWidget offers, and tells what does not work.
// Not here: whether it plays well.
#include "controls/iconbutton.h"
#include "controls/imagetracker.h"
#include "engine/mpv/kest_host.h"
#include "engine/videownd.h"
#include "playwidget/keyboardaccess.h"
#include "playwidget/playwidget.h"

#include <QApplication>

#include <cstdio>

static int complain(const QString &text)
{
    std::fprintf(stderr, "consumer: %s\n", qPrintable(text));
    return 1;
}

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    if (argc != 2)
        return complain(QStringLiteral("usage: consumer FILM"));
    void *engine = KestOpen("null");
    if (!engine)
        return complain(QStringLiteral("no engine"));
    if (const int code = KestAddFile(engine, 1, argv[1]))
        return complain(QString::fromLatin1(KestErrorText(code)));

    QString errors;
    {
        PlayWidget player;
        setKeyboardAccess(&player, false);
        player.resize(player.actualSize());
        player.initialize(engine, Kest3DTurnOff);
        player.addPlayItem(1, QString::fromLocal8Bit(argv[1]), false, Kest3DRedCyan, -0.01);
        player.show();
        player.setPlayIndex(0);
        errors = player.errorString();
    }
    KestClose(engine);
    if (!errors.isEmpty())
        return complain(errors);

    ImageTracker tracker;
    tracker.setSkin(QStringLiteral(":/skin/playslider.png"));
    if (tracker.sizeHint().isEmpty())
        return complain(QStringLiteral("the images of the skin are missing"));
    IconButton button;
    CVideoWnd window;
    return 0;
}
