// Conditional access: BISS and the DVB-CI slots the unit reports.
#include "ScreenManager/TavScreenCreator.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

void CTavScreenCreator::BuildConditionalAccess() {}
