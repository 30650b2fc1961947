// Embedding, from the first line to reading the settings back.
// Not here: printing them.
#include "host/previewdialog.h"

#include "host/modenames.h"
#include "playwidget/playwidget.h"

#include <QVBoxLayout>

PreviewDialog::PreviewDialog(const MediaEngine &engine, const QVector<MediaFile> &files,
                             const Options &options)
    : m_player(new PlayWidget(this))
    , m_files(files)
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_player);
    m_player->setFixedSize(m_player->actualSize());
    layout->setSizeConstraint(QLayout::SetFixedSize);

    m_player->initialize(engine.handle(), options.hiddenMode);
    for (const MediaFile &file : m_files)
        m_player->addPlayItem(file.id, file.path, file.audioOnly, options.mode, options.depth);
    connect(m_player, &PlayWidget::accepted, this, &QDialog::accept);
    connect(m_player, &PlayWidget::rejected, this, &QDialog::reject);
}

void PreviewDialog::start()
{
    m_player->setPlayIndex(0);
}

QString PreviewDialog::settings() const
{
    QString text;
    for (const MediaFile &file : m_files) {
        bool changed = false;
        int mode = Kest3DTurnOff;
        double depth = 0.0;
        m_player->movie3DPropsByFileID(file.id, changed, mode, depth);
        text += QStringLiteral("%1\t%2\t%3\t%4\n")
                    .arg(modeName(mode), QString::number(depth),
                         changed ? QStringLiteral("changed") : QStringLiteral("unchanged"),
                         file.path);
    }
    return text;
}

QString PreviewDialog::errors() const
{
    return m_player->errorString();
}
