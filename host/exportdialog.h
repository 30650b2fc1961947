// ExportDialog: an export at work in a window, and what came of it.
// Not here: the export (exportjob.h).
#pragma once

#include "host/exportjob.h"

#include <QDialog>

#include <atomic>
#include <memory>

class ElidedLabel;
class QDialogButtonBox;
class QLabel;
class QPlainTextEdit;
class QProgressBar;
class QThread;

/// Exports on a thread and with an engine of its own, from exec() or open() on. Stays for the user to
/// read the summary; when the user cancels, it goes as soon as the half file is gone, unless there is
/// a failure to tell of.
class ExportDialog : public QDialog
{
    Q_OBJECT

public:
    ExportDialog(const QVector<FilmSettings> &films, const ExportOrder &order,
                 QWidget *parent = nullptr);

    /// As summary().
    ~ExportDialog() override;

    /// Cancels what is still at work, and waits for it.
    const ExportSummary &summary();

    /// Cancel, Escape and closing the window: cancels, or closes the summary.
    void reject() override;

Q_SIGNALS:
    void ended();

protected:
    void showEvent(QShowEvent *event) override;

private:
    void layOut();
    void start();
    void work();
    void showState(const ExportState &state);
    void end();
    void showSummary();
    void addOpenFolder();

    const QVector<FilmSettings> m_films;
    const ExportOrder m_order;
    ElidedLabel *m_title;
    QProgressBar *m_bar;
    QLabel *m_timeLeft;
    ElidedLabel *m_folder;
    QPlainTextEdit *m_remarks;
    QDialogButtonBox *m_buttons;
    std::unique_ptr<QThread> m_thread;
    std::atomic<bool> m_cancelled{false};
    ExportSummary m_summary;  // the thread's until it has finished
};
