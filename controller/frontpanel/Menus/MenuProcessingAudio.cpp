#include "Menus/MenuProcessingAudio.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

namespace {

std::vector<CRow> Lines(int audioServices)
{
    std::vector<CRow> lines;
    for (int audio = 1; audio <= audioServices; ++audio) {
        const std::string name = DecodingAudioProcessingConfig(audio);
        lines.push_back(Target(name.c_str(), name.c_str()));
    }
    return lines;
}

}  // namespace

CMenuProcessingAudio::CMenuProcessingAudio(int audioServices)
    : CConfigTableScreen(kAudioProcessing, kProcessing, Lines(audioServices))
{
}
