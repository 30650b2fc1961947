// What holds of a player at any time, whatever happened to it.
// Not here: anything that makes something happen.
#pragma once

#include "fuzz/bytes.h"
#include "playwidget/playwidget_impl.h"

#include <QTimer>

inline void checkPlayer(const PlayWidget_Impl &player)
{
    const Ui_PlayWidget_Impl &ui = player.ui;
    REQUIRE(player.playState >= PlayWidget_Impl::Playing
            && player.playState <= PlayWidget_Impl::Stopped);
    REQUIRE(player.playUpdateTimer->isActive() == (player.playState == PlayWidget_Impl::Playing));
    REQUIRE(player.currentIndex >= -1);
    REQUIRE(player.currentIndex < qMax(1, player.playItemCount()));
    REQUIRE(ui.panPlayControl->isHidden() == ui.lblFileName->isHidden());
    REQUIRE(qAbs(ui.edt3DPos->value()) <= 50);
    REQUIRE(ui.effectTracker->value() >= 0 && ui.effectTracker->value() <= 100);
    // Where the handle's width is odd, a drag passes the right end by a few steps.
    REQUIRE(ui.playTracker->getValue() >= 0 && ui.playTracker->getValue() <= 1020);
    REQUIRE(ui.volumeTracker->getValue() >= 0 && ui.volumeTracker->getValue() <= 220);
}
