// The facade: hands every call on to the one implementation.
// Not here: any behaviour but the host's view of an item and of the error list.
#include "playwidget/playwidget.h"

#include "playwidget/accessibleplayer.h"
#include "playwidget/keyboardaccess.h"
#include "playwidget/palettefollower.h"
#include "playwidget/playwidget_impl.h"

namespace {

bool readProps(const PlayItem *item, bool &changed, int &mode, double &depth)
{
    if (!item)
        return false;
    changed = item->isChanged();
    mode = item->mode;
    depth = item->depth;
    return true;
}

}  // namespace

PlayWidget::PlayWidget(QWidget *parent)
    : QWidget(parent)
    , m_impl(new PlayWidget_Impl(this))
{
    connect(m_impl, &PlayWidget_Impl::accepted, this, &PlayWidget::accepted);
    connect(m_impl, &PlayWidget_Impl::rejected, this, &PlayWidget::rejected);
    new PaletteFollower(m_impl);
    new AccessiblePlayer(m_impl);
    setKeyboardAccess(this, true);
}

PlayWidget::~PlayWidget()
{
    setKeyboardAccess(this, false);  // it must not outlive the controls that it watches
    delete m_impl;
}

void PlayWidget::initialize(void *engine, tagKest3DMode mode)
{
    m_impl->set3DModeVisible(mode);
    m_impl->initialize(engine);
}

void PlayWidget::addPlayItem(int fileId, const QString &fileName, bool audioOnly, int mode,
                             double depth)
{
    m_impl->addPlayItem(fileId, fileName, audioOnly, mode, depth);
}

void PlayWidget::setPlayIndex(int index)
{
    m_impl->setPlayIndex(index);
}

int PlayWidget::playIndex() const
{
    return m_impl->playIndex();
}

int PlayWidget::playItemCount() const
{
    return m_impl->playItemCount();
}

void PlayWidget::clear()
{
    m_impl->clear();
}

bool PlayWidget::getApplyToAll() const
{
    return m_impl->getApplyToAll();
}

void PlayWidget::set3DModeVisible(tagKest3DMode mode)
{
    m_impl->set3DModeVisible(mode);
}

void PlayWidget::setTranslationText(TranslationTextID id, const QString &text)
{
    m_impl->setTranslationText(static_cast<PlayWidget_Impl::TranslationTextID>(id), text);
    AccessiblePlayer::of(m_impl)->nameControls();
}

int PlayWidget::setMovie3DPropsDirect(void *engine, int fileId, int mode, double depth)
{
    return PlayWidget_Impl::setMovie3DPropsDirect(engine, fileId, mode, depth);
}

bool PlayWidget::movie3DPropsByIndex(int index, bool &changed, int &mode, double &depth) const
{
    return readProps(m_impl->playItem(index), changed, mode, depth);
}

bool PlayWidget::movie3DPropsByFileID(int fileId, bool &changed, int &mode, double &depth) const
{
    return readProps(m_impl->playItemByFileID(fileId), changed, mode, depth);
}

QString PlayWidget::errorString() const
{
    return m_impl->errorList().join(QStringLiteral("\r\n"));
}

QSize PlayWidget::actualSize() const
{
    return {702, 585};
}
