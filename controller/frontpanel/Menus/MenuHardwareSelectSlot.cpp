#include "Menus/MenuHardwareSelectSlot.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

CMenuHardwareSelectSlot::CMenuHardwareSelectSlot()
    : CConfigTableScreen("Select Slot", kOptions,
                         {
                             Target("Top Slot", kTopSlot),
                             Target("Bottom Slot", kBottomSlot),
                         })
{
}
