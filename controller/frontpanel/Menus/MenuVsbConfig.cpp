#include "Menus/MenuVsbConfig.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

namespace {

const CRow kLines[] = {
    OnOff("Receive: ", "tsinputsrcState", kCard),
    List("Modulation: ", "vsbinModulation", kCard, {"8VSB", "256-QAMB", "64-QAMB"}),
    List("Channel Plan: ", "vsbinChannelPlan", kCard, {"FCC Cable", "HRC Cable", "IRC Cable", "Off Air"}),
    Number("Channel: ", "vsbinRfChannel", kCard, 3, 0, 1.0, 158.0),
    Number("Level Threshold: ", "vsbinLowLevelThreshold", kCard, 5, 1, -30.0, 30.0).Unit(" dBmV"),
    Number("MER Threshold: ", "vsbinLowMerThreshold", kCard, 4, 1, 0.0, 45.0).Unit(" dB"),
    Text("Corr FEC Errors: ", "vsbinCorrectableFecErrors", kCard, "%d").Clip(kVsbCounterClip),
    Text("Uncorr FEC Errors: ", "vsbinUncorrectableFecErrors", kCard, "%d").Clip(kVsbCounterClip),
    Command("Reset Counters", "vsbinFecErrorsReset", kCard, "true"),
};

}  // namespace

CMenuVsbConfig::CMenuVsbConfig(int card, const std::string& input)
    : CConfigTableScreen(InputsVsb(card) + " Input Config", kInputs, kLines)
{
    Table().SetCard(input);
}
