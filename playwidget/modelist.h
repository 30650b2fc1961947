// The 3D modes that the widget offers, in the order of the list that the user chooses from.
// Not here: what the modes do to a picture; that is the engine's.
#pragma once

#include "engine/kest.h"

struct ModeRow
{
    int mode;
    const char *text;
    const char *icon;
};

constexpr ModeRow modeRows[] = {
    {Kest3DTurnOff, "Turn off 3D", ":/skin/mode_turnoff.png"},
    {Kest3DRedCyan, "Red/Cyan", ":/skin/mode_redcyan.png"},
    {Kest3DRedGreen, "Red/Green", ":/skin/mode_redgreen.png"},
    {Kest3DRedBlue, "Red/Blue", ":/skin/mode_redblue.png"},
    {Kest3DBlueYellow, "Blue/Yellow", ":/skin/mode_yellowblue.png"},
    {Kest3DInterleaved, "Interleaved", ":/skin/mode_interlaced.png"},
    {Kest3DSlideBySlide, "Slide By Slide", ":/skin/mode_sidebyside.png"},
};
