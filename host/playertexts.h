// The player's texts in the language of the program.
// Not here: which language that is (language.h).
#pragma once

class PlayWidget;

/// Call it before initialize(): behind a mode that is not offered, the texts of modes would land
/// one entry late.
void setPlayerTexts(PlayWidget &player);
