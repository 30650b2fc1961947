// The table of texts.
// Not here: the names of modes (modenames.cpp), which the list of films shows as well.
#include "host/playertexts.h"

#include "host/modenames.h"
#include "playwidget/playwidget.h"

#include <QCoreApplication>

namespace {

//! [host-texts]
constexpr struct
{
    PlayWidget::TranslationTextID id;
    const char *text;
} texts[] = {
    {PlayWidget::VolumeLeftTip, QT_TRANSLATE_NOOP("Player", "Mute")},
    {PlayWidget::VolumeRightTip, QT_TRANSLATE_NOOP("Player", "Full volume")},
    {PlayWidget::PriorFileTip, QT_TRANSLATE_NOOP("Player", "Previous film")},
    {PlayWidget::NextFileTip, QT_TRANSLATE_NOOP("Player", "Next film")},
    {PlayWidget::PriorPartTip, QT_TRANSLATE_NOOP("Player", "5 seconds back")},
    {PlayWidget::NextPartTip, QT_TRANSLATE_NOOP("Player", "5 seconds on")},
    {PlayWidget::PlayTip, QT_TRANSLATE_NOOP("Player", "Play")},
    {PlayWidget::PauseTip, QT_TRANSLATE_NOOP("Player", "Pause")},
    {PlayWidget::DepthLabelText, QT_TRANSLATE_NOOP("Player", "3D Depth:")},
    {PlayWidget::ApplyToAllText, QT_TRANSLATE_NOOP("Player", "Apply to all")},
    {PlayWidget::OkButtonText, QT_TRANSLATE_NOOP("Player", "OK")},
    {PlayWidget::CancelButtonText, QT_TRANSLATE_NOOP("Player", "Cancel")},
};
//! [host-texts]

// In the order of the ids, which is that of the player's list.
constexpr tagKest3DMode modes[]
    = {Kest3DTurnOff,    Kest3DRedCyan,     Kest3DRedGreen,    Kest3DRedBlue,
       Kest3DBlueYellow, Kest3DInterleaved, Kest3DSlideBySlide};

}  // namespace

void setPlayerTexts(PlayWidget &player)
{
    for (const auto &row : texts)
        player.setTranslationText(row.id, QCoreApplication::translate("Player", row.text));
    int id = PlayWidget::ModeTurnOffText;
    for (const tagKest3DMode mode : modes)
        player.setTranslationText(PlayWidget::TranslationTextID(id++), modeLabel(mode));
}
