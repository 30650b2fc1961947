// The texts that a host replaces, by id.
// Not here: the texts that stand there at first (ui/, playwidget_impl_skin.cpp).
#include "playwidget/playwidget_impl.h"

#include <QPushButton>

void PlayWidget_Impl::setTranslationText(TranslationTextID id, const QString &text)
{
    const QList<QWidget *> tipTargets = {ui.btnVolumeLeft, ui.btnVolumeRight, ui.btnPriorFile,
                                         ui.btnNextFile,   ui.btnPriorPart,   ui.btnNextPart};
    switch (id) {
    case VolumeLeftTip:
    case VolumeRightTip:
    case PriorFileTip:
    case NextFileTip:
    case PriorPartTip:
    case NextPartTip:
        tipTargets[id]->setToolTip(text);
        break;
    case PlayTip:
        playToolTip = text;
        if (playState != Playing)
            ui.btnPlay->setToolTip(text);
        break;
    case PauseTip:
        pauseToolTip = text;
        if (playState == Playing)
            ui.btnPlay->setToolTip(text);
        break;
    case ModeTurnOffText:
    case ModeRedCyanText:
    case ModeRedGreenText:
    case ModeRedBlueText:
    case ModeBlueYellowText:
    case ModeInterleavedText:
    case ModeSlideBySlideText:
        // Ids go by the complete list: behind a removed entry a text lands one entry later.
        if (id != hiddenModeTextId)
            ui.cbx3DMode->setItemText(id - ModeTurnOffText, text);
        break;
    case DepthLabelText:
        ui.lbl3DDepth->setText(text);
        break;
    case ApplyToAllText:
        ui.chxApplyToAll->setText(text);
        break;
    case OkButtonText:
        ui.buttonBox->button(QDialogButtonBox::Ok)->setText(text);
        break;
    case CancelButtonText:
        ui.buttonBox->button(QDialogButtonBox::Cancel)->setText(text);
        break;
    }
}
