#include "Menus/MenuProcessing.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

namespace {

std::vector<CRow> Lines(const Capabilities_t& caps)
{
    std::vector<CRow> lines;
    if (caps.secondVideo) {
        lines.push_back(Target("Primary Video", DecodingVideoSettings(1).c_str()));
        lines.push_back(Target("Secondary Video", DecodingVideoSettings(2).c_str()));
    } else {
        lines.push_back(Target("Video", DecodingVideoSettings(1).c_str()));
    }
    lines.push_back(Target("Audio Processing", kAudioProcessing).When(caps.audioDecode > 0));
    lines.push_back(Target("SCTE35", kScte35Config).When(caps.scte35Processing && caps.scte35Service));
    lines.push_back(Target("SCTE104", kScte104Config));
    lines.push_back(Target("Source ID", kSourceIdStatus));
    lines.push_back(Target("Genlock", kGenlock).When(caps.genlock));
    return lines;
}

}  // namespace

CMenuProcessing::CMenuProcessing(const Capabilities_t& caps) : CConfigTableScreen(kProcessing, kMainMenu, Lines(caps))
{
}
