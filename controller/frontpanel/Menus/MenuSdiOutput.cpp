#include "Menus/MenuSdiOutput.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

CMenuSdiOutput::CMenuSdiOutput(int path, const Capabilities_t& caps)
    : CConfigTableScreen(OutputsSdi(path), kBasebandOutputs,
                         {
                             Target("SD-SDI Output", OutputsSdSdi(path).c_str()),
                             Target("HD-SDI Output", OutputsHdSdi(path).c_str()).When(caps.hdOutput),
                             Target("Audio Embedding", OutputsAudioEmbed(path).c_str()),
                         })
{
}
