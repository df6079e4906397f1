#include "Menus/MenuAnalogOutputSettings.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

namespace {

std::vector<CRow> Lines(Qb::uint32 services)
{
    CRow service = List("Audio Service: ", "analogaudioPort", kCard, {});
    for (Qb::uint32 n = 1; n <= services; ++n) {
        const std::string audio = "Audio " + std::to_string(n);
        service.Choice(audio.c_str(), audio.c_str());
    }
    return {
        service,
        Number("Output Level: ", "analogaudioOutputLevel", kCard, 4, 1, 0.0, 24.0).Unit(" dBu"),
    };
}

}  // namespace

CMenuAnalogOutputSettings::CMenuAnalogOutputSettings(int output, Qb::uint32 services)
    : CConfigTableScreen("Analog Output " + std::to_string(output), kAnalogAudio, Lines(services))
{
    Table().SetCard(".1." + std::to_string(output));
}
