// The input screens, per fitted receiver card, and T2-MI.
#include "ScreenManager/TavScreenCreator.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

void CTavScreenCreator::BuildInputScreens() {}

void CTavScreenCreator::BuildT2Mi() {}
