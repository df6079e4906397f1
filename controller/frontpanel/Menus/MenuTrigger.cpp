#include "Menus/MenuTrigger.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

namespace {

std::vector<CRow> Lines(int triggers)
{
    std::vector<CRow> lines;
    for (int trigger = 1; trigger <= triggers; ++trigger) {
        const std::string name = DecodingTrigger(trigger);
        lines.push_back(Target(name.c_str(), name.c_str()));
    }
    return lines;
}

}  // namespace

CMenuTrigger::CMenuTrigger(int triggers) : CConfigTableScreen(kRelayConfig, kScte35Config, Lines(triggers)) {}
