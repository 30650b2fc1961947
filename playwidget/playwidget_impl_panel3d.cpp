// The settings panel: mode, depth, apply to all; and the ways out of it, OK, Cancel, Escape, hiding.
// Not here: sending settings to the engine (playwidget_impl_filter3d.cpp).
#include "playwidget/modelist.h"
#include "playwidget/playwidget_impl.h"
#include "playwidget/signalcut.h"

#include <QKeyEvent>
#include <QPointer>
#include <QPushButton>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr double depthStep = 0.006;  // depth of one step of the spin box
constexpr int mostSteps = 50;
constexpr int defaultSteps = -2;

// Halves go upward. The range is kept before the value becomes an int, so that any depth that an
// engine or a host may hold can be shown; one that is no number shows as 0.
int stepsFromDepth(double depth)
{
    const double steps = std::floor(depth / depthStep + 0.5);
    if (std::isnan(steps))
        return 0;
    return static_cast<int>(qBound<double>(-mostSteps, steps, mostSteps));
}

// Where the entry of a mode stands in the complete list; -1 for a mode without one.
int firstPosition(tagKest3DMode mode)
{
    const auto row = std::find_if(std::begin(modeRows), std::end(modeRows),
                                  [mode](const ModeRow &row) { return row.mode == mode; });
    return row == std::end(modeRows) ? -1 : static_cast<int>(row - modeRows);
}

}  // namespace

int PlayWidget_Impl::movie3DModeFromUI(int index) const
{
    return ui.cbx3DMode->itemData(index).toInt();
}

void PlayWidget_Impl::movie3DModeToUI(int mode)
{
    for (int i = 0; i < ui.cbx3DMode->count(); ++i) {
        if (movie3DModeFromUI(i) == mode) {
            ui.cbx3DMode->setCurrentIndex(i);
            setTurnOffState();
            return;
        }
    }
}

double PlayWidget_Impl::movie3DPosFromUI() const
{
    return ui.edt3DPos->value() * depthStep;
}

// Blocks nothing: callers that must not react cut the spin box's signal, and the slider's runs.
void PlayWidget_Impl::movie3DPosToUI(double depth)
{
    const int steps = stepsFromDepth(depth);
    ui.edt3DPos->setValue(steps);
    ui.effectTracker->setValue(steps + mostSteps);
}

void PlayWidget_Impl::setTurnOffState()
{
    const bool on = movie3DModeFromUI(ui.cbx3DMode->currentIndex()) != Kest3DTurnOff;
    ui.effectTracker->setEnabled(on);
    ui.edt3DPos->setEnabled(on);
    ui.lbl3DDepth->setEnabled(on);
    if (on && ui.edt3DPos->value() == 0)
        ui.edt3DPos->setValue(defaultSteps);
}

void PlayWidget_Impl::cbx3DModeCurrentIndexChanged(int)
{
    applyMovie3DProps();
    setTurnOffState();
}

void PlayWidget_Impl::edt3DPosValueChanged(int value)
{
    applyMovie3DProps();
    const SignalCut spin(ui.edt3DPos, SIGNAL(valueChanged(int)), this,
                         SLOT(edt3DPosValueChanged(int)));
    ui.effectTracker->setValue(value + mostSteps);
}

// Applies before the spin box holds the new depth; the re-apply sends that one.
void PlayWidget_Impl::effectValueChanged(int value)
{
    applyMovie3DProps();
    const SignalCut spin(ui.edt3DPos, SIGNAL(valueChanged(int)), this,
                         SLOT(edt3DPosValueChanged(int)));
    ui.edt3DPos->setValue(value - mostSteps);
}

// Removes by place and not by mode: a second call takes whatever has moved up to that place.
void PlayWidget_Impl::set3DModeVisible(tagKest3DMode mode)
{
    const int position = firstPosition(mode);
    if (position < 0 || mode == Kest3DTurnOff)
        return;
    ui.cbx3DMode->removeItem(position);
    hiddenModeTextId = ModeTurnOffText + position;
}

void PlayWidget_Impl::resetAll()
{
    for (PlayItem *item : std::as_const(playItems)) {
        if (!item->isChanged())
            continue;
        if (const int code
            = setMovie3DPropsDirect(engine, item->fileId, item->savedMode, item->savedDepth)) {
            errors.addFunctionErrorWithCode(QStringLiteral("KestAddFilter2"), code);
            continue;
        }
        item->mode = item->savedMode;
        item->depth = item->savedDepth;
    }
}

void PlayWidget_Impl::applyToAll()
{
    const int mode = movie3DModeFromUI(ui.cbx3DMode->currentIndex());
    const double depth = movie3DPosFromUI();
    for (PlayItem *item : std::as_const(playItems)) {
        if (item == playItem(currentIndex))
            continue;
        if (const int code = setMovie3DPropsDirect(engine, item->fileId, mode, depth)) {
            errors.addFunctionErrorWithCode(QStringLiteral("KestAddFilter2"), code);
            continue;
        }
        item->mode = mode;
        item->depth = depth;
    }
}

bool PlayWidget_Impl::getApplyToAll() const
{
    return ui.chxApplyToAll->isChecked();
}

void PlayWidget_Impl::buttonBoxClicked(QAbstractButton *button)
{
    if (button != ui.buttonBox->button(QDialogButtonBox::Ok)) {
        reject();
        return;
    }
    stopVideo(true);
    if (getApplyToAll())
        applyToAll();
    Q_EMIT accepted();
}

void PlayWidget_Impl::reject()
{
    stopVideo(false);
    resetAll();
    Q_EMIT rejected();
}

void PlayWidget_Impl::keyPressEvent(QKeyEvent *event)
{
    // A host may delete the widget as soon as it hears of the rejection.
    const QPointer<PlayWidget_Impl> alive(this);
    if (event->key() == Qt::Key_Escape)
        reject();
    if (alive)
        QWidget::keyPressEvent(event);
}

void PlayWidget_Impl::hideEvent(QHideEvent *)
{
    stopVideo(false);
}
