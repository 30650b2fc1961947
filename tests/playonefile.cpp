// A host in small: opens one file, plays and seeks in it for a moment, and closes.
// Not here: judging what that did (tst_kest_opens_one_file.cpp, which traces this program).
#include "engine/mpv/kest_host.h"
#include "engine/videownd.h"

#include <QApplication>
#include <QTimer>

#include <cstdio>

#include <fcntl.h>
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
int play(const char *path, CVideoWnd &window)
{
    EditBeginParams params = {1, 1, 1.0, 36, 64, 36, 64, &window, &window, quitAtEnd, nullptr};
    void *const engine = KestOpen("null");
    KestAddFile(engine, 1, path);
    KestEditBegin(engine, &params);
    const int code = KestPlay(engine);
    KestSetCurPos(engine, 100);
    if (code == KestOk)
        QCoreApplication::exec();
    KestClose(engine);
    return code;
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
    const int code = play(argv[1], window);
    sayInTrace("/engine-ended");
    std::printf("%d\n", code);
}
