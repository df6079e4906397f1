#include "Menus/MenuTriggerSetting.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

namespace {

std::vector<CRow> Lines(const std::string& instance)
{
    const char* at = instance.c_str();
    return {
        OnOff("Relay Triggering: ", "dpicueRelayState", at),
        Number("Relay Output: ", "dpicueRelayOutput", at, 1, 0, 1, 4),
        List("Event Filter: ", "dpicueEventFilterMode", at, {"Pass All", "Pass Event ID", "Pass Event Src"}),
        Hex("Event ID (Hex): ", "dpicueEventId", at, 8).ShownWhen("dpicueEventFilterMode", at, {"Pass Event ID"}),
        Hex("Event Source (Hex): ", "dpicueEventSource", at, 8)
            .ShownWhen("dpicueEventFilterMode", at, {"Pass Event Src"}),
        Number("Offset: ", "dpicueTriggerOffset", at, 6, 0, -10000, 10000).Unit(" ms"),
        List("Relay Mode: ", "dpicueTriggerMode", at, {"Pulse", "Latch"}),
        Number("Latch Timeout: ", "dpicueLatchTriggeredTimeout", at, 4, 0, 1, 3600)
            .Unit(" sec")
            .ShownWhen("dpicueTriggerMode", at, {"Latch"}),
        List("Pulse Event: ", "dpicueActiveState", at, {"Out of Network", "Rtn to Network"})
            .ShownWhen("dpicueTriggerMode", at, {"Pulse"}),
        Number("Pulse Duration: ", "dpicuePulseTriggeredDuration", at, 5, 0, 10, 10000)
            .Unit(" ms")
            .ShownWhen("dpicueTriggerMode", at, {"Pulse"}),
    };
}

}  // namespace

CMenuTriggerSetting::CMenuTriggerSetting(int trigger, const std::string& slot)
    : CConfigTableScreen(DecodingTrigger(trigger), kRelayConfig, Lines(slot + ".1"), "Menu Style Long List")
{
}
