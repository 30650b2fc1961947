// Which files a folder, a drop or a pasted list means.
// Not here: opening them (tst_preview_session.cpp).
#include "host/mediafiles.h"

#include <QDir>
#include <QFile>
#include <QMimeData>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

#include <memory>

class tst_PreviewMediaFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void aFolderMeansItsMediaFilesAsAPersonCounts();
    void onlyPlainDigitsCount();
    void aNameThatGoesOnComesLater();
    void foldersAreReplacedAndEmptyOnesNamed();
    void aPathThatDoesNotExistStays();
    void urlsOfFilesAreFiles();
    void aListHasAPathOrAUrlInEachLine();

private:
    void make(const QStringList &names) const;
    QStringList namesIn(const QString &folder) const;

    std::unique_ptr<QTemporaryDir> m_folder;
};

void tst_PreviewMediaFiles::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
}

void tst_PreviewMediaFiles::make(const QStringList &names) const
{
    for (const QString &name : names) {
        QFile file(m_folder->filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
}

QStringList tst_PreviewMediaFiles::namesIn(const QString &folder) const
{
    QStringList names = mediaFilesIn(folder);
    for (QString &name : names)
        name = QDir(m_folder->path()).relativeFilePath(name);
    return names;
}

void tst_PreviewMediaFiles::aFolderMeansItsMediaFilesAsAPersonCounts()
{
    make({QStringLiteral("Part 10.mkv"), QStringLiteral("part 2.MKV"),
          QStringLiteral("part 02b.mp4"), QStringLiteral("part 1.mkv"), QStringLiteral("10.ogg"),
          QStringLiteral("9.ogg"), QStringLiteral("a.webm"), QStringLiteral("notes.txt"),
          QStringLiteral("list.m3u"), QStringLiteral("cover.jpg"), QStringLiteral("mkv")});
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("folder.mkv")));
    QCOMPARE(
        namesIn(m_folder->path()),
        QStringList({QStringLiteral("9.ogg"), QStringLiteral("10.ogg"), QStringLiteral("a.webm"),
                     QStringLiteral("part 1.mkv"), QStringLiteral("part 2.MKV"),
                     QStringLiteral("part 02b.mp4"), QStringLiteral("Part 10.mkv")}));
}

void tst_PreviewMediaFiles::onlyPlainDigitsCount()
{
    const QStringList ordered
        = {QStringLiteral("2.mkv"),    QStringLiteral("10.mkv"), QStringLiteral("第2.mkv"),
           QStringLiteral("第10.mkv"), QStringLiteral("１.mkv"), QStringLiteral("１０.mkv"),
           QStringLiteral("２.mkv")};
    make(ordered);
    QCOMPARE(namesIn(m_folder->path()), ordered);
}

// However many zeros make the shorter one longer.
void tst_PreviewMediaFiles::aNameThatGoesOnComesLater()
{
    const QStringList ordered
        = {QStringLiteral("1.mkv"), QStringLiteral("00000001.mkv"), QStringLiteral("1.mkv.ogg")};
    make(ordered);
    QCOMPARE(namesIn(m_folder->path()), ordered);
}

void tst_PreviewMediaFiles::foldersAreReplacedAndEmptyOnesNamed()
{
    make({QStringLiteral("a.mkv")});
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("none")));
    const QString none = m_folder->filePath(QStringLiteral("none"));
    QStringList empty;
    const QStringList files
        = expandFolders({none + QStringLiteral("/."), m_folder->path()}, &empty);
    QCOMPARE(files, QStringList(m_folder->filePath(QStringLiteral("a.mkv"))));
    QCOMPARE(empty, QStringList(none));
}

void tst_PreviewMediaFiles::aPathThatDoesNotExistStays()
{
    QStringList empty;
    QCOMPARE(expandFolders({QStringLiteral("/no/../such.mkv")}, &empty),
             QStringList(QStringLiteral("/such.mkv")));
    QCOMPARE(expandFolders({QStringLiteral("such.mkv")}, &empty),
             QStringList(QDir::current().absoluteFilePath(QStringLiteral("such.mkv"))));
    QCOMPARE(empty, QStringList());
}

void tst_PreviewMediaFiles::urlsOfFilesAreFiles()
{
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(QStringLiteral("/films/a b.mkv")),
                  QUrl(QStringLiteral("https://example.org/c.mkv"))});
    QCOMPARE(filesIn(data), QStringList(QStringLiteral("/films/a b.mkv")));
}

void tst_PreviewMediaFiles::aListHasAPathOrAUrlInEachLine()
{
    QMimeData data;
    data.setText(QStringLiteral("/films/a b.mkv\r\n\n  file:///films/c%20d.mkv\nwords\n"
                                "https://example.org/e.mkv\n/films/f.mkv"));
    QCOMPARE(filesIn(data),
             QStringList({QStringLiteral("/films/a b.mkv"), QStringLiteral("/films/c d.mkv"),
                          QStringLiteral("/films/f.mkv")}));
}

QTEST_GUILESS_MAIN(tst_PreviewMediaFiles)
#include "tst_preview_mediafiles.moc"
