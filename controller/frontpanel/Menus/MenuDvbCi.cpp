#include "Menus/MenuDvbCi.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

namespace {

std::vector<CRow> Lines(const std::vector<std::string>& slots)
{
    std::vector<CRow> lines;
    for (size_t i = 0; i < slots.size() && i < 2; ++i) {
        const int slot = static_cast<int>(i);
        const std::string instance = slots[i] + ".1";
        const std::string settings = CaDvbCiSlot(slot);
        lines.push_back(Text(slot == 0 ? "Top Slot: " : "Bottom Slot: ", "camslotCamName", instance.c_str())
                            .Missing("No Module")
                            .Opens(settings.c_str()));
        lines.push_back(Text(" ", "camoptMode", instance.c_str()).Opens(settings.c_str()));
        lines.push_back(Target(settings.c_str(), settings.c_str()));
        lines.push_back(Target(CaDvbCiStatus(slot).c_str(), CaDvbCiStatus(slot).c_str()));
    }
    return lines;
}

}  // namespace

CMenuDvbCi::CMenuDvbCi(const std::vector<std::string>& slots)
    : CConfigTableScreen(kDvbCi, kConditionalAccess, Lines(slots))
{
}
