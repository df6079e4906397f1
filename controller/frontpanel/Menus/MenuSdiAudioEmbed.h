// "SDI Audio Embed": the audio service embedded in each pair of the four SDI audio groups.
// The embedding is the same on both video paths; each path's SDI page opens it, and EXIT
// goes back there.
#pragma once

#include "Qb/Types.h"
#include "ScreenManager/TableScreen.h"

class CMenuSdiAudioEmbed : public CConfigTableScreen {
public:
    // path: the video path whose SDI page opens it; services: the decoded audio services.
    CMenuSdiAudioEmbed(int path, Qb::uint32 services);
};
