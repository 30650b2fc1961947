// The window's two faces, the progress and the summary, and the thread behind them.
// Not here: the order of the films (exportjob.cpp).
#include "host/exportdialog.h"

#include "host/elidedlabel.h"
#include "host/mediaengine.h"
#include "host/plaintip.h"

#include <QDesktopServices>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileInfo>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QThread>
#include <QUrl>
#include <QVBoxLayout>

namespace {

QString timeLeftText(long long milliseconds)
{
    const long long minutes = (milliseconds + 59999) / 60000;
    if (milliseconds == 0)
        return ExportDialog::tr("Estimating the time left…");
    if (minutes < 2)
        return ExportDialog::tr("Less than a minute left");
    if (minutes < 60)
        return ExportDialog::tr("About %1 min left").arg(minutes);
    return ExportDialog::tr("About %1 h %2 min left").arg(minutes / 60).arg(minutes % 60);
}

QString countText(const ExportSummary &summary)
{
    const int written = int(summary.files.size());
    const int failed = int(summary.failures.size());
    if (failed == 0)
        return ExportDialog::tr("Films written: %1").arg(written);
    return ExportDialog::tr("Films written: %1, failed: %2").arg(written).arg(failed);
}

QString remarksText(const ExportSummary &summary)
{
    QStringList lines;
    for (const ExportRemark &remark : summary.failures + summary.leftOut)
        lines << QFileInfo(remark.path).fileName() + QStringLiteral(": ") + remark.text;
    return lines.join('\n');
}

}  // namespace

ExportDialog::ExportDialog(const QVector<FilmSettings> &films, const ExportOrder &order,
                           QWidget *parent)
    : QDialog(parent)
    , m_films(films)
    , m_order(order)
    , m_title(new ElidedLabel(this))
    , m_bar(new QProgressBar(this))
    , m_timeLeft(new QLabel(this))
    , m_folder(new ElidedLabel(this))
    , m_remarks(new QPlainTextEdit(this))
    , m_buttons(new QDialogButtonBox(QDialogButtonBox::Cancel, this))
{
    setWindowTitle(tr("Export"));
    setModal(true);
    layOut();
    connect(m_buttons, &QDialogButtonBox::rejected, this, &ExportDialog::reject);
}

ExportDialog::~ExportDialog()
{
    (void)summary();
}

const ExportSummary &ExportDialog::summary()
{
    if (m_thread && !m_thread->isFinished()) {
        m_cancelled = true;
        m_thread->wait();
    }
    return m_summary;
}

void ExportDialog::layOut()
{
    m_title->setObjectName(QStringLiteral("lblTitle"));
    m_title->setText(tr("Looking into the films…"));
    m_timeLeft->setText(timeLeftText(0));
    m_timeLeft->setObjectName(QStringLiteral("lblTimeLeft"));
    m_bar->setRange(0, 0);
    m_folder->setObjectName(QStringLiteral("lblFolder"));
    const QString folder = QDir::toNativeSeparators(QDir(m_order.folder).absolutePath());
    m_folder->setText(tr("In %1").arg(folder));
    m_folder->setToolTip(plainTip(folder));
    m_folder->hide();
    m_remarks->setObjectName(QStringLiteral("edtRemarks"));
    m_remarks->setReadOnly(true);
    m_remarks->hide();
    auto *layout = new QVBoxLayout(this);
    for (QWidget *widget : {static_cast<QWidget *>(m_title), static_cast<QWidget *>(m_bar),
                            static_cast<QWidget *>(m_timeLeft), static_cast<QWidget *>(m_folder)})
        layout->addWidget(widget);
    layout->addWidget(m_remarks, 1);
    layout->addStretch();
    layout->addSpacing(8);
    layout->addWidget(m_buttons);
    m_buttons->button(QDialogButtonBox::Cancel)->setText(tr("Cancel"));
    resize(440, sizeHint().height());
}

void ExportDialog::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    if (!m_thread)
        start();
}

void ExportDialog::start()
{
    m_thread.reset(QThread::create([this] { work(); }));
    connect(m_thread.get(), &QThread::finished, this, &ExportDialog::end);
    m_thread->start();
}

/// On the thread.
void ExportDialog::work()
{
    MediaEngine engine(QStringLiteral("null"));
    const auto watch = [this](const ExportState &state) {
        QMetaObject::invokeMethod(
            this, [this, state] { showState(state); }, Qt::QueuedConnection);
    };
    m_summary = exportFilms(engine, m_films, m_order, watch, [this] { return m_cancelled.load(); });
}

void ExportDialog::showState(const ExportState &state)
{
    if (m_cancelled)
        return;
    const QString name = QFileInfo(state.path).fileName();
    m_title->setText(tr("Film %1 of %2: %3").arg(state.number).arg(state.count).arg(name));
    m_title->setToolTip(plainTip(state.path));
    m_timeLeft->setText(timeLeftText(state.left));
    m_bar->setRange(0, state.done == 0 ? 0 : 1000);
    m_bar->setValue(state.done);
}

void ExportDialog::end()
{
    if (m_summary.stopped && m_summary.failures.isEmpty())
        QDialog::reject();
    else
        showSummary();
    Q_EMIT ended();
}

void ExportDialog::showSummary()
{
    m_bar->hide();
    m_timeLeft->hide();
    m_title->setText(countText(m_summary));
    m_title->setToolTip({});
    m_folder->show();
    m_remarks->setPlainText(remarksText(m_summary));
    m_remarks->setVisible(!m_remarks->toPlainText().isEmpty());
    m_buttons->setEnabled(true);
    m_buttons->setStandardButtons(QDialogButtonBox::Close);
    if (!m_summary.files.isEmpty())
        addOpenFolder();
    QPushButton *close = m_buttons->button(QDialogButtonBox::Close);
    close->setText(tr("Close"));
    close->setFocus();
    layout()->activate();
    resize(width(), minimumSizeHint().height());
}

void ExportDialog::addOpenFolder()
{
    QPushButton *open = m_buttons->addButton(tr("Open folder"), QDialogButtonBox::ActionRole);
    open->setObjectName(QStringLiteral("btnOpenFolder"));
    open->setAutoDefault(false);
    connect(open, &QPushButton::clicked, this, [this] {
        QDesktopServices::openUrl(QUrl::fromLocalFile(QDir(m_order.folder).absolutePath()));
    });
}

void ExportDialog::reject()
{
    if (!m_thread || m_thread->isFinished()) {
        QDialog::reject();
        return;
    }
    m_cancelled = true;
    m_timeLeft->setText(tr("Cancelling…"));
    m_buttons->setEnabled(false);
}
