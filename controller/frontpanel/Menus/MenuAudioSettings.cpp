#include "Menus/MenuAudioSettings.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

namespace {

const char kBelow[] = "  ";

std::vector<CRow> Lines(const std::string& instance)
{
    const char* at = instance.c_str();
    return {
        // Values too wide to follow their label have a row of their own below it.
        Heading("Downmix: "),
        List(kBelow, "audiosrvDownmixOp", at,
             {"Lo/Ro Stereo", "Lt/Rt (Dolby Surround)", "Lt/Rt Auto", "Dual Mono/Stereo", "Dual Left",
              "Dual Right"}),
        List("AC3 Mode: ", "audiosrvOperationalMode", at, {"Line Mode", "RF Mode", "Custom 1", "Custom 0"}),
        OnOff("Dynamic Range: ", "audiosrvDynamicRangeState", at),
        List("Format Mode: ", "audiosrvAudioFormatMode", at, {"Consumer", "Professional"}),
        List("Processing Mode: ", "audiosrvdiscreteProcessingMode", at, {"Downmix", "Discrete"}),
        List("Discrete: ", "audiosrvdiscreteDiscrete", at,
             {"Lf/Rf", "C/LFE", "Ls/Rs", "Ch1/Ch2", "Ch3/Ch4", "Ch5/Ch6", "Ch7/Ch8"})
            .ShownWhen("audiosrvdiscreteProcessingMode", at, {"Discrete"}),
        Number("Audio Offset: ", "audiooffsetAudioOffset", at, 4, 0, -500, 500).Unit(" ms"),
        Heading("DolbyE Offset: "),
        List(kBelow, "audiooffsetDolbyEOffset", at, {"None", "Advance 1 Video Frame"}),
    };
}

}  // namespace

CMenuAudioSettings::CMenuAudioSettings(int audio)
    : CConfigTableScreen("Audio " + std::to_string(audio) + " Processing", kAudioProcessing,
                         Lines(".1." + std::to_string(audio)), "Menu Style Long List")
{
}
