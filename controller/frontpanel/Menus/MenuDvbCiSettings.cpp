#include "Menus/MenuDvbCiSettings.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

namespace {

const char* const kMode = "camoptMode";

std::vector<CRow> Lines(int slot)
{
    return {
        OnOff("State: ", "camslotState", kCard),
        List("Mode: ", kMode, kCard, {"Use Decoded PIDs", "Use Selected PIDs", "Use Selected Services"}),
        Target("Configure PIDs", CaDvbCiConfigPids(slot).c_str()).ShownWhen(kMode, kCard, {"Use Selected PIDs"}),
        Target("Configure Services", CaDvbCiConfigSrvs(slot).c_str())
            .ShownWhen(kMode, kCard, {"Use Selected Services"}),
        Target("Status", CaDvbCiStatus(slot).c_str()),
    };
}

}  // namespace

CMenuDvbCiSettings::CMenuDvbCiSettings(int slot, const std::string& instance)
    : CConfigTableScreen(CaDvbCiSlot(slot), kDvbCi, Lines(slot))
{
    Table().SetCard(instance + ".1");
}
