#include "Menus/MenuSdiAudioEmbed.h"

#include "Menus/MenuAesAudioSettings.h"
#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

namespace {

const int kGroups = 4;  // an SDI signal carries four audio groups of two pairs

std::vector<CRow> Groups(Qb::uint32 services)
{
    std::vector<CRow> rows;
    for (int group = 1; group <= kGroups; ++group) {
        const std::string instance = ".1." + std::to_string(group);
        rows.push_back(Heading(("Group " + std::to_string(group)).c_str()));
        rows.push_back(WithAudioChoices(List("Pair 1: ", "sdiaudioGroupPair1", instance.c_str(), {}), services));
        rows.push_back(WithAudioChoices(List("Pair 2: ", "sdiaudioGroupPair2", instance.c_str(), {}), services));
    }
    return rows;
}

}  // namespace

CMenuSdiAudioEmbed::CMenuSdiAudioEmbed(int path, Qb::uint32 services)
    : CConfigTableScreen("SDI Audio Embed", OutputsSdi(path), Groups(services))
{
}
