// The 3D filter: every line that fills or reads a filter record, applying it and applying it again.
// Not here: the controls that show its values (playwidget_impl_panel3d.cpp).
#include "playwidget/playwidget_impl.h"
#include "playwidget/signalcut.h"

#include <QTimer>

namespace {

constexpr int filterKind = 9;
constexpr int filterType = 17;
constexpr int reapplyDelay = 100;  // ms

void init3DFilterInfo(tagKestFilterInfo *info, int mode, double depth)
{
    *info = {};
    info->type = filterType;
    info->mode = mode;
    info->depth = depth;
}

}  // namespace

int PlayWidget_Impl::setMovie3DPropsDirect(void *engine, int fileId, int mode, double depth)
{
    tagKestFilterInfo info;
    init3DFilterInfo(&info, mode, depth);
    return KestAddFilter2(engine, fileId, filterKind, &info);
}

// A failure is recorded under the one name whichever call was made, and the item takes the values
// all the same.
void PlayWidget_Impl::addFilter(int index, int mode, double depth)
{
    if (!engine)
        return;
    tagKestFilterInfo info;
    init3DFilterInfo(&info, mode, depth);
    const int code = playState == Stopped ? KestAddFilter2(engine, currentFileId, filterKind, &info)
                                          : KestAddFilter(engine, filterKind, &info);
    if (code)
        errors.addFunctionErrorWithCode(QStringLiteral("KestAddFilter"), code);
    if (PlayItem *item = playItem(index)) {
        item->mode = mode;
        item->depth = depth;
    }
}

// Every change is sent again a moment later: when the depth slider moves, the spin box that the
// depth is read from still shows the old value the first time. The flag is a toggle and no
// debounce; a change that finds it set is sent once and leaves the pending call to start over.
void PlayWidget_Impl::applyMovie3DProps()
{
    if (!engine)
        return;
    addFilter(currentIndex, movie3DModeFromUI(ui.cbx3DMode->currentIndex()), movie3DPosFromUI());
    reapplyPending = !reapplyPending;
    if (reapplyPending)
        QTimer::singleShot(reapplyDelay, this, SLOT(delaySetAgain()));
}

void PlayWidget_Impl::delaySetAgain()
{
    applyMovie3DProps();
}

void PlayWidget_Impl::loadMovie3DProps()
{
    const SignalCut combo(ui.cbx3DMode, SIGNAL(currentIndexChanged(int)), this,
                          SLOT(cbx3DModeCurrentIndexChanged(int)));
    const SignalCut spin(ui.edt3DPos, SIGNAL(valueChanged(int)), this,
                         SLOT(edt3DPosValueChanged(int)));
    tagKestFilterInfo info = {};
    if (KestGetFilter(engine, filterKind, &info) != 0)
        init3DFilterInfo(&info, Kest3DTurnOff, 0.0);
    showFilter(info);
}

// What the engine keeps for the file wins over what the host gave with the item.
void PlayWidget_Impl::beginFilter(PlayItem *item)
{
    tagKestFilterInfo info = {};
    if (KestGetFilter2(engine, item->fileId, filterKind, &info) == 0) {
        item->mode = info.mode;
        item->depth = info.depth;
    } else {
        init3DFilterInfo(&info, item->mode, item->depth);
    }
    {
        const SignalCut combo(ui.cbx3DMode, SIGNAL(currentIndexChanged(int)), this,
                              SLOT(cbx3DModeCurrentIndexChanged(int)));
        const SignalCut spin(ui.edt3DPos, SIGNAL(valueChanged(int)), this,
                             SLOT(edt3DPosValueChanged(int)));
        showFilter(info);
        applyMovie3DProps();
    }
    (void)KestAddFilter(engine, filterKind, &info);
}

void PlayWidget_Impl::showFilter(const tagKestFilterInfo &info)
{
    movie3DModeToUI(info.mode);
    movie3DPosToUI(info.depth);
}
