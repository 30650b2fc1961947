// The pane beside the player, alone.
// Not here: the dialog that it stands in (tst_preview_session.cpp).
#include "host/filmlist.h"
#include "host/filmpane.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QMimeData>
#include <QSignalSpy>
#include <QTest>

#include <algorithm>

class tst_PreviewFilmPane : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pastingBeforeAnythingWasCopiedSaysSo()
    {
        QVERIFY(!QApplication::clipboard()->mimeData());
        FilmList films;
        FilmPane pane(&films);
        QSignalSpy wanted(&pane, &FilmPane::filesWanted);
        paste(pane);
        QVERIFY(wanted.isEmpty());
        QVERIFY(tells(pane, "What was copied names no file."));
    }

private:
    static void paste(const FilmPane &pane)
    {
        const auto actions = pane.findChildren<QAction *>();
        for (QAction *action : actions)
            if (action->shortcut() == QKeySequence(QKeySequence::Paste))
                return action->trigger();
        QFAIL("there is nothing to paste with");
    }

    static bool tells(const FilmPane &pane, const QString &text)
    {
        const auto labels = pane.findChildren<QLabel *>();
        return std::any_of(labels.begin(), labels.end(),
                           [&text](const QLabel *label) { return label->text() == text; });
    }
};

QTEST_MAIN(tst_PreviewFilmPane)
#include "tst_preview_filmpane.moc"
