// A short message that replaces a screen for a moment ("Changes Discarded", a refused
// value): two centred rows on a cleared panel, without key hints.
#pragma once

#include <string>

#include "Qb/Types.h"

class CDisplay;

// How long a message stays up; the key thread waits meanwhile, so keys pressed during it
// wait in the queue.
const Qb::uint32 kPanelMessageMs = 1500;

// Clears the panel and shows a two-row message (rows 1 and 2, centred), without key hints.
void DrawPanelMessage(CDisplay* pDisplay, const std::string& line1, const std::string& line2);
