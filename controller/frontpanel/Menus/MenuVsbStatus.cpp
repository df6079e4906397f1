#include "Menus/MenuVsbStatus.h"

#include "Menus/MenuVsbConfig.h"
#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

namespace {

// The receiver reports -999 when it has no reading of the level or the MER.
const CRow kLines[] = {
    Text("Receiver Lock: ", "vsbinRfLock", kCard).Missing("Unlocked"),
    Text("Channel: ", "vsbinRfChannel", kCard),
    Text("Frequency: ", "vsbinSelectedFrequency", kCard, "%.1f").Unit(" MHz"),
    Text("Level: ", "vsbinRfLevel", kCard, "%.1f").Map({{"-999", "--"}}).Unit(" dBmV"),
    Text("MER: ", "vsbinMer", kCard, "%.1f").Map({{"-999", "--"}}).Unit(" dB"),
    Text("Bitrate: ", "tsinputsrcTsBitrate", kCard, "%.3f").Scale(1e-6).Unit(" Mbps"),
    Text("TS Sync: ", "tsinputsrcTsSync", kCard).Missing("Unlocked"),
    Text("Corr FEC Errors: ", "vsbinCorrectableFecErrors", kCard, "%d").Clip(kVsbCounterClip),
    Text("Uncorr FEC Errors: ", "vsbinUncorrectableFecErrors", kCard, "%d").Clip(kVsbCounterClip),
};

}  // namespace

CMenuVsbStatus::CMenuVsbStatus(int card, const std::string& input)
    : CStatusTableScreen(InputsVsbStatus(card), kInputs, kLines)
{
    Table().SetCard(input);
}
