#include "Menus/MenuAudio.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

namespace {

// Every row of an audio service is hidden while the service carries no audio.
CRow PerAudio(CRow row)
{
    return row.HiddenWhen("selectedaudioType", kEach, {"None"});
}

const CRow kLines[] = {
    Record("selectedaudioType"),
    PerAudio(Text("Audio # Type: ", "selectedaudioType", kEach)),
    PerAudio(Text("PID: ", "selectedaudioPid", kEach, "%04X")),
    // "kbps" follows the number without a blank, as the unit has always shown it.
    PerAudio(Text("Bitrate: ", "audiosrvBitrate", kEach, "%3.0f").Unit("kbps")),
    PerAudio(Text("Sample Rate: ", "audiosrvSamplingRate", kEach, "%3.1f").Unit(" kHz")),
    PerAudio(Text("Coding Mode: ", "audiosrvChannelCoding", kEach)),
    PerAudio(Text("Sample Size: ", "audiosrvBitsPerSample", kEach)),
    PerAudio(Text("Dial Norm: ", "audiosrvDialNormValue", kEach).Unit(" dB")),
    EndRecord(),
};

}  // namespace

CMenuAudio::CMenuAudio() : CStatusTableScreen(kAudioStatus, kDecoding, kLines, "Menu Style Long List") {}
