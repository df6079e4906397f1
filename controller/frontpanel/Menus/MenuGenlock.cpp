#include "Menus/MenuGenlock.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

CMenuGenlock::CMenuGenlock(const Capabilities_t& caps)
    : CConfigTableScreen(kGenlock, kProcessing,
                         {
                             List("Reference: ", caps.cardFrame ? "genlockFrameRefType" : "genlockRefType", ".1.1",
                                  {"Disabled", "External 1", "External 2", "External"}),
                             Target("Genlock Configuration", kGenlockSettings),
                             Target("Genlock Status", kGenlockStatus),
                         })
{
}
