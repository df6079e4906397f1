#include "Menus/MenuInputTurboPskStatus.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

namespace {

const CRow kLines[] = {
    Text("Receiver Lock: ", "turbopskinRcvLock", kCard).Missing("Unlocked"),
    Text("Level: ", "turbopskinLevel", kCard, "%.1f").Unit(" dBm"),
    Text("SNR: ", "turbopskinSnr", kCard, "%.1f").Unit(" dB"),
    Text("Spectrum: ", "turbopskinSpectrum", kCard),
    Text("Locked Frequency: ", "turbopskinLockedFreq", kCard, "%.1f").Unit(" MHz"),
    Text("Tuning Frequency: ", "turbopskinTuningFreq", kCard, "%.1f").Unit(" MHz"),
    Text("Bitrate: ", "tsinputsrcTsBitrate", kCard, "%.3f").Scale(1e-6).Unit(" Mbps"),
    Text("TS Sync: ", "tsinputsrcTsSync", kCard).Missing("Unlocked"),
};

}  // namespace

CMenuInputTurboPskStatus::CMenuInputTurboPskStatus(int card, const std::string& input)
    : CStatusTableScreen(InputsTurboPskStatus(card), kInputs, kLines)
{
    Table().SetCard(input);
}
