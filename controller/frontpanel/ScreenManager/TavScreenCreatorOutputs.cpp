// Baseband outputs (with the decoder) and transport-stream outputs.
#include "ScreenManager/TavScreenCreator.h"

#include "Menus/MenuAesAudioSettings.h"
#include "Menus/MenuAnalogAudioOutput.h"
#include "Menus/MenuAnalogOutputSettings.h"
#include "Menus/MenuCompositeGeneralSettings.h"
#include "Menus/MenuCompositeSetting.h"
#include "Menus/MenuCompositeVbiSettings.h"
#include "Menus/MenuHdAncSettings.h"
#include "Menus/MenuHdSdiOutput.h"
#include "Menus/MenuMpegIpOutput.h"
#include "Menus/MenuOutput.h"
#include "Menus/MenuOutputAsiSettings.h"
#include "Menus/MenuOutputMpegIpSettings.h"
#include "Menus/MenuOutputMpegIpStatus.h"
#include "Menus/MenuSdAncSettings.h"
#include "Menus/MenuSdSdiOutput.h"
#include "Menus/MenuSdVbiSettings.h"
#include "Menus/MenuSdiAudioEmbed.h"
#include "Menus/MenuSdiOutput.h"
#include "Menus/MenuTransportStreamOutputs.h"
#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

void CTavScreenCreator::BuildBasebandOutputs()
{
    Add(new CMenuOutput(m_caps), kBasebandOutputs);
    // The primary video path, and the secondary one where the unit has it.
    const int paths = m_caps.secondVideo ? 2 : 1;
    for (int path = 1; path <= paths; ++path) {
        Add(new CMenuSdiOutput(path, m_caps), OutputsSdi(path));
        Add(new CMenuSdSdiOutput(path), OutputsSdSdi(path));
        Add(new CMenuSdAncSettings(path), OutputsSdAnc(path));
        Add(new CMenuSdVbiSettings(path), OutputsSdVbi(path));
        if (m_caps.hdOutput) {
            Add(new CMenuHdSdiOutput(path), OutputsHdSdi(path));
            Add(new CMenuHdAncSettings(path), OutputsHdAnc(path));
        }
        Add(new CMenuSdiAudioEmbed(path, m_caps.audioDecode), OutputsAudioEmbed(path));
        Add(new CMenuCompositeSetting(path), OutputsComposite(path));
        Add(new CMenuCompositeGeneralSettings(path), OutputsCompositeGeneral(path));
        Add(new CMenuCompositeVbiSettings(path), OutputsCompositeVbi(path));
    }
    if (m_caps.audioDigital > 0)
        Add(new CMenuAesAudioSettings(m_caps.audioDigital, m_caps.audioDecode), kDigitalAudio);
    if (m_caps.audioAnalog > 0) {
        Add(new CMenuAnalogAudioOutput(m_caps.audioAnalog), kAnalogAudio);
        for (Qb::uint32 output = 1; output <= m_caps.audioAnalog; ++output)
            Add(new CMenuAnalogOutputSettings(static_cast<int>(output), m_caps.audioDecode),
                OutputsAnalog(static_cast<int>(output)));
    }
}

void CTavScreenCreator::BuildTransportStreamOutputs()
{
    Add(new CMenuTransportStreamOutputs(m_caps), kTransportStreamOutputs);
    if (m_caps.tsOutputSrc)
        Add(new CMenuOutputAsiSettings(), kAsiOutputSettings);
    // Cards are numbered in slot order; each transmits one stream, its first port's.
    for (size_t i = 0; i < m_caps.mpegIpTxSlots.size(); ++i) {
        const int card = static_cast<int>(i) + 1;
        const std::string stream = m_caps.mpegIpTxSlots[i] + ".1";
        Add(new CMenuMpegIpOutput(card), OutputsMpegIp(card));
        Add(new CMenuOutputMpegIpSettings(card, stream, m_caps.mpegIpTxFec), OutputsMpegIpSettings(card));
        Add(new CMenuOutputMpegIpStatus(card, stream, m_caps.mpegIpTxFec), OutputsMpegIpStatus(card));
    }
}
