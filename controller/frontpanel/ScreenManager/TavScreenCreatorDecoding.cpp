// Decoding and processing, on units with the decoder.
#include "ScreenManager/TavScreenCreator.h"

#include "Menus/MenuAncStatus.h"
#include "Menus/MenuAudio.h"
#include "Menus/MenuAudioSettings.h"
#include "Menus/MenuDecoding.h"
#include "Menus/MenuEsamConfig.h"
#include "Menus/MenuGenlock.h"
#include "Menus/MenuGenlockSettings.h"
#include "Menus/MenuGenlockStatus.h"
#include "Menus/MenuHdSdVideoSettings.h"
#include "Menus/MenuHdSdVideoStatus.h"
#include "Menus/MenuOverlaySettings.h"
#include "Menus/MenuPidLock.h"
#include "Menus/MenuProcessing.h"
#include "Menus/MenuProcessingAudio.h"
#include "Menus/MenuScte104Config.h"
#include "Menus/MenuScte35Config.h"
#include "Menus/MenuScte35GeneralConfig.h"
#include "Menus/MenuScte35Status.h"
#include "Menus/MenuServiceLock.h"
#include "Menus/MenuServiceSelect.h"
#include "Menus/MenuServiceSelectStatus.h"
#include "Menus/MenuSourceIdConfig.h"
#include "Menus/MenuSourceIdStatus.h"
#include "Menus/MenuTimecodeExtraction.h"
#include "Menus/MenuTrigger.h"
#include "Menus/MenuTriggerSetting.h"
#include "Menus/MenuVideoHdSdConfig.h"
#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

// The audio services the decoder decodes: their status and their processing pages.
void CTavScreenCreator::BuildAudioProcessing()
{
    const int audioServices = static_cast<int>(m_caps.audioDecode);
    if (audioServices == 0)
        return;
    Add(new CMenuAudio(), kAudioStatus);
    Add(new CMenuProcessingAudio(audioServices), kAudioProcessing);
    for (int audio = 1; audio <= audioServices; ++audio)
        Add(new CMenuAudioSettings(audio), DecodingAudioProcessingConfig(audio));
}

void CTavScreenCreator::BuildDecoding()
{
    Add(new CMenuDecoding(m_caps), kDecoding);
    Add(new CMenuServiceSelect(), kServiceSelectSettings);
    Add(new CMenuServiceSelectStatus(), kServiceSelectStatus);
    Add(new CMenuServiceLock(false), kPrimaryServiceLock);
    Add(new CMenuServiceLock(true), kBackupServiceLock);
    Add(new CMenuPidLock(false, m_caps), kPrimaryPidLock);
    Add(new CMenuPidLock(true, m_caps), kBackupPidLock);
    Add(new CMenuHdSdVideoStatus(), kVideoStatus);
    Add(new CMenuAncStatus(), kAncStatus);
    if (m_caps.scte35Service)
        Add(new CMenuScte35Status(), kScte35Status);
    Add(new CMenuTimecodeExtraction(), kTimecode);
}

void CTavScreenCreator::BuildProcessing()
{
    Add(new CMenuProcessing(m_caps), kProcessing);
    const int paths = m_caps.secondVideo ? 2 : 1;
    for (int path = 1; path <= paths; ++path) {
        Add(new CMenuHdSdVideoSettings(path, paths == 2), DecodingVideoSettings(path));
        Add(new CMenuVideoHdSdConfig(path, false, paths == 2), DecodingAspect4x3(path));
        Add(new CMenuVideoHdSdConfig(path, true, paths == 2), DecodingAspect16x9(path));
    }
    Add(new CMenuOverlaySettings(), kOverlaySettings);
    Add(new CMenuScte104Config(), kScte104Config);
    if (m_caps.scte35Processing && m_caps.scte35Service) {
        Add(new CMenuScte35Config(m_caps), kScte35Config);
        Add(new CMenuScte35GeneralConfig(), kScte35GeneralConfig);
        if (m_caps.esam)
            Add(new CMenuEsamConfig(), kEsamConfig);
        if (m_caps.cueTrigger) {
            Add(new CMenuTrigger(static_cast<int>(m_caps.cueTriggerSlots.size())), kRelayConfig);
            for (size_t i = 0; i < m_caps.cueTriggerSlots.size(); ++i)
                Add(new CMenuTriggerSetting(static_cast<int>(i) + 1, m_caps.cueTriggerSlots[i]),
                    DecodingTrigger(static_cast<int>(i) + 1));
        }
    }
    if (m_caps.genlock) {
        Add(new CMenuGenlock(m_caps), kGenlock);
        Add(new CMenuGenlockSettings(m_caps), kGenlockSettings);
        Add(new CMenuGenlockStatus(m_caps), kGenlockStatus);
    }
    Add(new CMenuSourceIdStatus(), kSourceIdStatus);
    Add(new CMenuSourceIdConfig(), kSourceIdConfig);
}
