// A file that is being written when the program is left, or its folder goes.
// Not here: films in files that are finished, cancelled or fail (tst_filmexport.cpp).
#include "host/newfile.h"

#include <QTemporaryDir>
#include <QTest>

#include <cstdlib>

#include <sys/wait.h>
#include <unistd.h>

class tst_NewFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // So Qt does when the display goes away.
    void anExitFromWithinLeavesNothing()
    {
        const QTemporaryDir folder;
        const pid_t child = fork();
        if (child == 0) {
            NewFile file(folder.filePath(QStringLiteral("film.mkv")));
            if (!file.open() || file.file().write("half") != 4)
                _exit(2);
            std::exit(1);
        }
        int status = 0;
        QCOMPARE(waitpid(child, &status, 0), child);
        QCOMPARE(WEXITSTATUS(status), 1);
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList());
    }

    void anExitAfterItIsFinishedLeavesTheFile()
    {
        const QTemporaryDir folder;
        const QString name = folder.filePath(QStringLiteral("film.mkv"));
        const pid_t child = fork();
        if (child == 0) {
            NewFile file(name);
            if (!file.open() || file.commit() != name)
                _exit(2);
            // Another's, that happens to be called like ours was.
            QFile(name + QStringLiteral(".part")).open(QIODevice::WriteOnly);
            std::exit(1);
        }
        int status = 0;
        QCOMPARE(waitpid(child, &status, 0), child);
        QCOMPARE(WEXITSTATUS(status), 1);
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files),
                 QStringList({QStringLiteral("film.mkv"), QStringLiteral("film.mkv.part")}));
    }

    void itSaysWhyItCannotBeFinished()
    {
        const QTemporaryDir room;
        const QDir folder(room.filePath(QStringLiteral("folder")));
        QVERIFY(folder.mkpath(QStringLiteral(".")));
        NewFile file(folder.filePath(QStringLiteral("film.mkv")));
        QVERIFY(file.open());
        QVERIFY(QDir(folder).removeRecursively());
        QCOMPARE(file.commit(), QString());
        QCOMPARE(file.error(), QStringLiteral("Source file does not exist."));
    }
};

QTEST_GUILESS_MAIN(tst_NewFile)
#include "tst_newfile.moc"
