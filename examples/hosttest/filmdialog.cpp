// The dialog: the player above one line of text.
// Not here: what the tests look for (tst_filmdialog.cpp).
#include "filmdialog.h"

#include "engine/mpv/kest_host.h"

#include <QLabel>
#include <QVBoxLayout>

FilmDialog::FilmDialog(void *engine, QWidget *parent)
    : QDialog(parent)
    , m_engine(engine)
    , m_player(new PlayWidget(this))
    , m_message(new QLabel(this))
{
    m_player->setFixedSize(m_player->actualSize());
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_player);
    layout->addWidget(m_message);
    m_player->initialize(engine, Kest3DTurnOff);
    connect(m_player, &PlayWidget::accepted, this, &QDialog::accept);
    connect(m_player, &PlayWidget::rejected, this, &QDialog::reject);
}

void FilmDialog::openFilm(int fileId, const QString &path, int mode, double depth)
{
    const int code = KestAddFile(m_engine, fileId, path.toUtf8().constData());
    if (code != KestOk) {
        m_message->setText(QString::fromLatin1(KestErrorText(code)));
        return;
    }
    m_player->addPlayItem(fileId, path, false, mode, depth);
    m_player->setPlayIndex(0);
    m_message->setText(m_player->errorString());
}

QString FilmDialog::message() const
{
    return m_message->text();
}
