// The pane's widgets, and the dialogs that its buttons open.
// Not here: the list (filmview.cpp).
#include "host/filmpane.h"

#include "host/elidedlabel.h"
#include "host/filmlist.h"
#include "host/filmview.h"
#include "host/lastfolder.h"
#include "host/mediafiles.h"
#include "host/plaintip.h"

#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QMenu>
#include <QMimeData>
#include <QToolButton>

FilmPane::FilmPane(FilmList *films, QWidget *parent)
    : QWidget(parent)
    , m_view(new FilmView(films, this))
    , m_export(new QToolButton(this))
    , m_notice(new QLabel(this))
    , m_settingsFile(new ElidedLabel(this))
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(8, 8, 8, 8);
    layout->addLayout(makeActions());
    layout->addWidget(m_view, 1);
    layout->addWidget(m_notice);
    layout->addLayout(makeSettingsLine());
    m_notice->setTextFormat(Qt::PlainText);
    m_notice->setWordWrap(true);
    m_notice->hide();
    setMinimumWidth(260);
}

QHBoxLayout *FilmPane::makeActions()
{
    auto *menu = new QMenu(this);
    const auto add = [this, menu](const QString &text, const QKeySequence &key, auto slot) {
        QAction *action = menu->addAction(text);
        action->setShortcut(key);
        connect(action, &QAction::triggered, this, slot);
        addAction(action);  // its key works while the menu is closed
    };
    add(tr("Open films…"), QKeySequence::Open, &FilmPane::openFiles);
    add(tr("Open folder…"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_O), &FilmPane::openFolder);
    add(tr("Paste files or a list of paths"), QKeySequence::Paste, &FilmPane::paste);

    auto *open = new QToolButton(this);
    open->setObjectName(QStringLiteral("btnOpen"));
    open->setText(tr("Open films…"));
    open->setToolTip(tr("Films and sound files; the arrow offers folders and lists"));
    open->setPopupMode(QToolButton::MenuButtonPopup);
    open->setMenu(menu);
    connect(open, &QToolButton::clicked, this, &FilmPane::openFiles);

    m_export->setObjectName(QStringLiteral("btnExport"));
    m_export->setText(tr("Export…"));
    m_export->setToolTip(tr("Write the films whose 3D is on into a folder, as they are shown"));
    m_export->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_E));
    m_export->setEnabled(false);
    connect(m_export, &QToolButton::clicked, this, &FilmPane::chooseExportFolder);

    auto *line = new QHBoxLayout;
    line->addWidget(open);
    line->addStretch();
    line->addWidget(m_export);
    return line;
}

QHBoxLayout *FilmPane::makeSettingsLine()
{
    auto *choose = new QToolButton(this);
    choose->setObjectName(QStringLiteral("btnSettingsFile"));
    choose->setText(tr("Choose…"));
    choose->setToolTip(tr("Choose the file that OK writes the settings to"));
    choose->setAutoRaise(true);
    connect(choose, &QToolButton::clicked, this, &FilmPane::chooseSettingsFile);
    auto *line = new QHBoxLayout;
    line->addWidget(m_settingsFile, 1);
    line->addWidget(choose);
    return line;
}

void FilmPane::showSettingsFile(const QString &file)
{
    m_settingsFile->setText(file.isEmpty() ? tr("No settings file yet")
                                           : tr("OK writes %1").arg(QFileInfo(file).fileName()));
    m_settingsFile->setToolTip(file.isEmpty() ? QString() : plainTip(file));
}

void FilmPane::showNotice(const QString &text)
{
    m_notice->setText(text);
    m_notice->setVisible(!text.isEmpty());
}

void FilmPane::setExportEnabled(bool enabled)
{
    m_export->setEnabled(enabled);
}

void FilmPane::openFiles()
{
    const QStringList files = QFileDialog::getOpenFileNames(this, tr("Open films"), lastFolder());
    if (files.isEmpty())
        return;
    rememberFolderOf(files.first());
    Q_EMIT filesWanted(files);
}

void FilmPane::openFolder()
{
    const QString folder
        = QFileDialog::getExistingDirectory(this, tr("Open a folder of films"), lastFolder());
    if (folder.isEmpty())
        return;
    rememberFolderOf(folder);
    Q_EMIT filesWanted({folder});
}

void FilmPane::paste()
{
    const QMimeData *copied = QApplication::clipboard()->mimeData();  // null before the first copy
    const QStringList files = copied ? filesIn(*copied) : QStringList();
    showNotice(files.isEmpty() ? tr("What was copied names no file.") : QString());
    if (!files.isEmpty())
        Q_EMIT filesWanted(files);
}

void FilmPane::chooseSettingsFile()
{
    const QString file = QFileDialog::getSaveFileName(this, tr("Write the settings to"),
                                                      lastFolder() + QStringLiteral("/films.json"),
                                                      tr("Settings (*.json)"));
    if (file.isEmpty())
        return;
    rememberFolderOf(file);
    Q_EMIT settingsFileWanted(file);
}

void FilmPane::chooseExportFolder()
{
    const QString folder
        = QFileDialog::getExistingDirectory(this, tr("Export into a folder"), lastFolder());
    if (folder.isEmpty())
        return;
    rememberFolderOf(folder);
    Q_EMIT exportWanted(folder);
}
