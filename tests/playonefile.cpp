// A host in small: opens one file, plays and seeks in it for a moment, reads it picture by picture,
// and closes. As `playonefile plain FILE`, libmpv as it comes plays the file instead.
// Not here: judging what that did (tst_kest_opens_one_file.cpp, which traces this program).
#include "engine/mpv/kest_host.h"
#include "engine/videownd.h"

#include <QApplication>
#include <QTimer>

#include <clocale>
#include <cstdio>
#include <cstring>

#include <fcntl.h>
#include <mpv/client.h>
#include <sys/resource.h>

namespace {

/// What happens before this belongs to the start of the program, not to the engine. Opening a file
/// that is not there is a word that a trace shows.
void sayInTrace(const char *word)
{
    (void)open(word, O_RDONLY);
}

/// A crafted file that would eat all memory ends this program, not the machine. A sanitizer needs
/// more room than there is.
void limitMemory()
{
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
    const rlimit limit = {4ul << 30, 4ul << 30};
    setrlimit(RLIMIT_AS, &limit);
#endif
}

int quitAtEnd(tagKestEvent *event, void *)
{
    if (event->state == 5)
        QCoreApplication::quit();
    return 0;
}

/// Returns what KestPlay said.
int play(void *engine, CVideoWnd &window)
{
    EditBeginParams params = {1, 1, 1.0, 36, 64, 36, 64, &window, &window, quitAtEnd, nullptr};
    KestEditBegin(engine, &params);
    const int code = KestPlay(engine);
    KestSetCurPos(engine, 100);
    if (code == KestOk)
        QCoreApplication::exec();
    KestEditEnd(engine, false);
    return code;
}

/// Returns what KestReaderOpen said. A crafted film may have no end.
int read(void *engine)
{
    void *reader = nullptr;
    const int code = KestReaderOpen(engine, 1, &reader);
    KestPicture picture = {};
    for (int i = 0; i < 20 && code == KestOk && KestReaderNext(reader, &picture) == KestOk; ++i)
        continue;
    KestReaderClose(reader);
    return code;
}

void playAndRead(const char *path, CVideoWnd &window)
{
    void *const engine = KestOpen("null");
    KestAddFile(engine, 1, path);
    const int played = play(engine, window);
    std::printf("%d %d\n", played, read(engine));
    KestClose(engine);
}

/// Until a film is open: the file itself, or one that it has led to.
void playPlain(const char *path)
{
    std::setlocale(LC_NUMERIC, "C");
    mpv_handle *const player = mpv_create();
    mpv_set_option_string(player, "vo", "null");
    mpv_set_option_string(player, "ao", "null");
    mpv_initialize(player);
    const char *command[] = {"loadfile", path, nullptr};
    mpv_command(player, command);
    mpv_event_id event = MPV_EVENT_START_FILE;
    while (event != MPV_EVENT_FILE_LOADED && event != MPV_EVENT_NONE)
        event = mpv_wait_event(player, 10)->event_id;
    mpv_terminate_destroy(player);
}

}  // namespace

int main(int argc, char **argv)
{
    limitMemory();
    QApplication application(argc, argv);
    QTimer::singleShot(700, &application, &QCoreApplication::quit);
    CVideoWnd window;  // the first widget makes Qt 5 look for fonts
    window.resize(64, 36);
    window.show();
    sayInTrace("/engine-begins");
    if (std::strcmp(argv[1], "plain") == 0)
        playPlain(argv[2]);
    else
        playAndRead(argv[1], window);
    sayInTrace("/engine-ended");
}
