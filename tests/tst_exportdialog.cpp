// The export's window: what it shows at work, what it says at the end, and cancelling.
// Not here: the exported films (tst_filmexport.cpp), their order (tst_exportjob.cpp).
#include "clips.h"
#include "host/elidedlabel.h"
#include "host/exportdialog.h"

#include <QDesktopServices>
#include <QDialogButtonBox>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QtTest>

class tst_ExportDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_clips.valid());
        m_short = m_clips.pattern("short.mkv", "160x90", 1);
        m_long = m_clips.longPattern("long.mkv");
        QVERIFY(!m_short.isEmpty() && !m_long.isEmpty());
    }

    void theSummaryTellsWhatWasWrittenAndWhere()
    {
        const QString folder = m_clips.path("one");
        ExportDialog dialog({redCyan(m_short)}, {folder, false});
        run(dialog);
        QVERIFY(dialog.isVisible());
        QCOMPARE(title(dialog), QString("Films written: 1"));
        QCOMPARE(dialog.findChild<QLabel *>("lblFolder")->text(), "In " + folder);
        QVERIFY(dialog.findChild<QLabel *>("lblFolder")->isVisible());
        QVERIFY(!remarks(dialog)->isVisible());
        QCOMPARE(filesIn(folder), QStringList("short.red-cyan.mkv"));
        QDesktopServices::setUrlHandler("file", this, "rememberUrl");
        dialog.findChild<QPushButton *>("btnOpenFolder")->click();
        QDesktopServices::unsetUrlHandler("file");
        QCOMPARE(m_opened, QUrl::fromLocalFile(folder));
        button(dialog, QDialogButtonBox::Close)->click();
        QVERIFY(!dialog.isVisible());
    }

    void aFilmThatFailsIsNamedAndTheOthersAreWritten()
    {
        const QString folder = m_clips.path("two");
        ExportDialog dialog({redCyan("/no/such/film.mkv"), redCyan(m_short)}, {folder, false});
        run(dialog);
        QCOMPARE(title(dialog), QString("Films written: 1, failed: 1"));
        QVERIFY(remarks(dialog)->isVisible());
        QCOMPARE(remarks(dialog)->toPlainText(), QString("film.mkv: The file does not exist"));
        QCOMPARE(failureLines(dialog.summary()),
                 QStringList("/no/such/film.mkv: The file does not exist"));
        QCOMPARE(filesIn(folder), QStringList("short.red-cyan.mkv"));
    }

    void atWorkItNamesTheFilmAndTheBarRises()
    {
        ExportDialog dialog({redCyan(m_long)}, {m_clips.path("work"), false});
        dialog.show();
        QTRY_COMPARE_WITH_TIMEOUT(title(dialog), QString("Film 1 of 1: long.mkv"), 20000);
        const auto *bar = dialog.findChild<QProgressBar *>();
        QTRY_VERIFY_WITH_TIMEOUT(bar->maximum() == 1000 && bar->value() > 0, 20000);
        QVERIFY(dialog.findChild<QLabel *>("lblTimeLeft")->text().endsWith("left"));
    }

    void cancelLeavesNothingAndCloses()
    {
        const QString folder = m_clips.path("cancelled");
        ExportDialog dialog({redCyan(m_long)}, {folder, false});
        QSignalSpy ended(&dialog, &ExportDialog::ended);
        dialog.show();
        QTRY_COMPARE_WITH_TIMEOUT(filesIn(folder), QStringList("long.red-cyan.mkv.part"), 20000);
        button(dialog, QDialogButtonBox::Cancel)->click();
        QVERIFY(ended.size() == 1 || ended.wait(20000));
        QVERIFY(!dialog.isVisible());
        QVERIFY(dialog.summary().stopped);
        QCOMPARE(filesIn(folder), QStringList());
    }

    void goingAwayAtWorkLeavesNothing()
    {
        const QString folder = m_clips.path("gone");
        {
            ExportDialog dialog({redCyan(m_long)}, {folder, false});
            dialog.show();
            QTRY_COMPARE_WITH_TIMEOUT(filesIn(folder), QStringList("long.red-cyan.mkv.part"),
                                      20000);
        }
        QCOMPARE(filesIn(folder), QStringList());
    }

    void aRelativeFolderIsToldInFull()
    {
        ExportDialog dialog({}, {"some/folder", false});
        QCOMPARE(dialog.findChild<QLabel *>("lblFolder")->text(),
                 "In " + QDir::currentPath() + "/some/folder");
    }

    void aFolderThatCannotBeMadeIsTold()
    {
        ExportDialog dialog({redCyan(m_short)}, {m_short + "/folder", false});
        run(dialog);
        QCOMPARE(title(dialog), QString("Films written: 0, failed: 1"));
        QCOMPARE(remarks(dialog)->toPlainText(), QString("folder: the folder cannot be made"));
    }

public Q_SLOTS:
    void rememberUrl(const QUrl &url) { m_opened = url; }

private:
    static FilmSettings redCyan(const QString &path) { return {path, Kest3DRedCyan, 0.02, true}; }
    static QString title(const ExportDialog &dialog)
    {
        return dialog.findChild<QLabel *>("lblTitle")->text();
    }
    static QPlainTextEdit *remarks(const ExportDialog &dialog)
    {
        return dialog.findChild<QPlainTextEdit *>();
    }
    static QPushButton *button(const ExportDialog &dialog, QDialogButtonBox::StandardButton which)
    {
        return dialog.findChild<QDialogButtonBox *>()->button(which);
    }
    static QStringList filesIn(const QString &folder)
    {
        return QDir(folder).entryList(QDir::Files);
    }
    static void run(ExportDialog &dialog)
    {
        QSignalSpy ended(&dialog, &ExportDialog::ended);
        dialog.show();
        QVERIFY(ended.wait(30000));
    }

    Clips m_clips;
    QString m_short, m_long;
    QUrl m_opened;
};

QTEST_MAIN(tst_ExportDialog)
#include "tst_exportdialog.moc"
