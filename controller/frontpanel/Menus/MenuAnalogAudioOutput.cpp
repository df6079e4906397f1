#include "Menus/MenuAnalogAudioOutput.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

namespace {

std::vector<CRow> Outputs(Qb::uint32 outputs)
{
    std::vector<CRow> rows;
    for (Qb::uint32 n = 1; n <= outputs; ++n) {
        const std::string label = "Analog Output " + std::to_string(n);
        rows.push_back(Target(label.c_str(), OutputsAnalog(static_cast<int>(n)).c_str()));
    }
    return rows;
}

}  // namespace

CMenuAnalogAudioOutput::CMenuAnalogAudioOutput(Qb::uint32 outputs)
    : CConfigTableScreen(kAnalogAudio, kBasebandOutputs, Outputs(outputs))
{
}
