#include "Menus/MenuDecoding.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

CMenuDecoding::CMenuDecoding(const Capabilities_t& caps)
    : CConfigTableScreen(kDecoding, kMainMenu,
                         {
                             Target("Service Select Status", kServiceSelectStatus),
                             Target("Video", kVideoStatus),
                             Target("Ancillary Status", kAncStatus),
                             Target("Audio", kAudioStatus).When(caps.audioDecode > 0),
                             Target("Advanced Settings", kServiceSelectSettings),
                             Target("SCTE35", kScte35Status).When(caps.scte35Service),
                             Target("Timecode", kTimecode),
                         })
{
}
