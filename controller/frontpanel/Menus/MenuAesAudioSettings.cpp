#include "Menus/MenuAesAudioSettings.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

CRow WithAudioChoices(CRow row, Qb::uint32 services)
{
    for (Qb::uint32 n = 1; n <= services; ++n) {
        const std::string audio = "Audio " + std::to_string(n);
        row.Choice((audio + " Pass-through").c_str(), (audio + " Pass-through").c_str());
        row.Choice((audio + " PCM").c_str(), (audio + " PCM").c_str());
    }
    return row;
}

namespace {

std::vector<CRow> Ports(Qb::uint32 ports, Qb::uint32 services)
{
    std::vector<CRow> rows;
    for (Qb::uint32 port = 1; port <= ports; ++port) {
        const std::string label = "Port " + std::to_string(port) + ": ";
        const std::string instance = ".1." + std::to_string(port);
        rows.push_back(WithAudioChoices(List(label.c_str(), "aesaudioPort", instance.c_str(), {}), services));
    }
    return rows;
}

}  // namespace

CMenuAesAudioSettings::CMenuAesAudioSettings(Qb::uint32 ports, Qb::uint32 services)
    : CConfigTableScreen(kDigitalAudio, kBasebandOutputs, Ports(ports, services))
{
}
