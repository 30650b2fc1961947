// The play list, the selection in it, and the steps: from file to file, 5 s within a film.
// Not here: starting and stopping (playwidget_impl_transport.cpp).
#include "playwidget/playwidget_impl.h"

#include <QPointer>

namespace {

constexpr quint32 PartStep = 5000;  // ms

// Positions reach the engine in 32 bits, and a part step is counted in the same.
int lowHalf(quint64 value)
{
    return static_cast<int>(static_cast<quint32>(value));
}

}  // namespace

void PlayWidget_Impl::addPlayItem(int fileId, const QString &fileName, bool audioOnly, int mode,
                                  double depth)
{
    playItems.append(new PlayItem{fileId, fileName, mode, depth, mode, depth, audioOnly});
}

int PlayWidget_Impl::playItemCount() const
{
    return static_cast<int>(playItems.size());
}

PlayItem *PlayWidget_Impl::playItem(int index) const
{
    return playItems.value(index, nullptr);
}

PlayItem *PlayWidget_Impl::playItemByFileID(int fileId) const
{
    for (PlayItem *item : playItems) {
        if (item->fileId == fileId)
            return item;
    }
    return nullptr;
}

int PlayWidget_Impl::playIndex() const
{
    return currentIndex;
}

void PlayWidget_Impl::setPlayIndex(int index)
{
    if (playItem(index))
        currentIndex = index;
    else
        currentIndex = playItems.isEmpty() ? -1 : 0;
    const QPointer<PlayWidget_Impl> alive(this);
    if (copyCurrentItem())
        playVideo();
    if (alive)
        updatePriorAndNextState();
}

// The index becomes 0 although nothing is left to select: hosts read it so. Playback goes on.
void PlayWidget_Impl::clear()
{
    qDeleteAll(playItems);
    playItems.clear();
    currentIndex = 0;
}

bool PlayWidget_Impl::hasPrirorFile() const
{
    return currentIndex >= 1 && currentIndex < playItemCount();
}

bool PlayWidget_Impl::hasNextFile() const
{
    return currentIndex >= 0 && currentIndex < playItemCount() - 1;
}

bool PlayWidget_Impl::priorFileId()
{
    return hasPrirorFile() && stepFile(-1);
}

bool PlayWidget_Impl::nextFileId()
{
    return hasNextFile() && stepFile(1);
}

bool PlayWidget_Impl::stepFile(int step)
{
    currentIndex += step;
    return copyCurrentItem();
}

bool PlayWidget_Impl::copyCurrentItem()
{
    const PlayItem *item = playItem(currentIndex);
    if (!item)
        return false;
    currentFileId = item->fileId;
    currentFileName = item->fileName;
    currentAudioOnly = item->audioOnly;
    return true;
}

void PlayWidget_Impl::playPriorFile()
{
    if (!hasPrirorFile())
        return;
    stopVideo(true);
    priorFileId();
    const QPointer<PlayWidget_Impl> alive(this);
    playVideo();
    if (alive)
        updatePriorAndNextState();
}

void PlayWidget_Impl::playNextFile()
{
    if (!hasNextFile())
        return;
    stopVideo(true);
    nextFileId();
    const QPointer<PlayWidget_Impl> alive(this);
    playVideo();
    if (alive)
        updatePriorAndNextState();
}

void PlayWidget_Impl::playPriorPart()
{
    if (!hasOpenEdit())
        return;
    const int target = lowHalf(static_cast<quint64>(position) - PartStep);
    (void)KestSetCurPos(engine, static_cast<unsigned int>(target < 0 ? 0 : target));
}

void PlayWidget_Impl::playNextPart()
{
    if (!hasOpenEdit())
        return;
    long long target = lowHalf(static_cast<quint64>(position) + PartStep);
    if (target > duration)
        target = duration;
    (void)KestSetCurPos(engine, static_cast<unsigned int>(target));
}

void PlayWidget_Impl::updatePriorAndNextState()
{
    ui.btnPriorFile->setEnabled(hasPrirorFile());
    ui.btnNextFile->setEnabled(hasNextFile());
}
