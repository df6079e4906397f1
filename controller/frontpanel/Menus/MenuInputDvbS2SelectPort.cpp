#include "Menus/MenuInputDvbS2SelectPort.h"

#include "Menus/MenuInputDvbS2Settings.h"
#include "ScreenManager/ScreenNames.h"

CMenuInputDvbS2SelectPort::CMenuInputDvbS2SelectPort(int card, const std::string& slot)
    : CMenuInputPortSelect(ScreenName::InputsDvbS2SelectPort(card), ScreenName::kInputs, "dvbs2instatusActivePort",
                           slot + ".1", kDvbS2RfPorts)
{
}
