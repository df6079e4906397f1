// The input screens, per fitted receiver card, and T2-MI.
#include "ScreenManager/TavScreenCreator.h"

#include "Menus/MenuAsiInput.h"
#include "Menus/MenuAsiInputSettings.h"
#include "Menus/MenuInput.h"
#include "Menus/MenuInputDvbS2SelectPort.h"
#include "Menus/MenuInputDvbS2Settings.h"
#include "Menus/MenuInputDvbS2Status.h"
#include "Menus/MenuInputIgmpConfig.h"
#include "Menus/MenuInputMpegIp.h"
#include "Menus/MenuInputMpegIpSettings.h"
#include "Menus/MenuInputMpegIpStatus.h"
#include "Menus/MenuInputSelect.h"
#include "Menus/MenuInputSelectStatus.h"
#include "Menus/MenuInputTurboPskConfig.h"
#include "Menus/MenuInputTurboPskStatus.h"
#include "Menus/MenuT2MiConfig.h"
#include "Menus/MenuT2MiStatus.h"
#include "Menus/MenuVsbConfig.h"
#include "Menus/MenuVsbStatus.h"
#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

void CTavScreenCreator::BuildInputScreens()
{
    Add(new CMenuInputSelectStatus(), kInputSelectStatus);
    Add(new CMenuInputSelect(), kInputSelectConfig);
    Add(new CMenuInput(m_caps), kInputs);
    // The ASI input is the main board's: every unit has it.
    Add(new CMenuAsiInput(), kAsiInputStatus);
    Add(new CMenuAsiInputSettings(), kAsiInputConfig);

    // Cards are numbered from 1 in the slot order of the subsystem query. A card's inputs
    // are ".<slot>.<port>"; the receivers below have one input each, ".<slot>.1".
    for (size_t i = 0; i < m_caps.dvbS2InSlots.size(); ++i) {
        const int card = static_cast<int>(i) + 1;
        const std::string& slot = m_caps.dvbS2InSlots[i];
        Add(new CMenuInputDvbS2Settings(card, slot), InputsDvbS2(card));
        Add(new CMenuInputDvbS2Status(card, slot), InputsDvbS2Status(card));
        Add(new CMenuInputDvbS2SelectPort(card, slot), InputsDvbS2SelectPort(card));
    }
    for (size_t i = 0; i < m_caps.mpegIpRcvSlots.size(); ++i) {
        const int card = static_cast<int>(i) + 1;
        Add(new CMenuInputMpegIp(card), InputsMpegIp(card));
        for (int stream = 1; stream <= kMpegIpStreams; ++stream) {
            const std::string input = m_caps.mpegIpRcvSlots[i] + "." + std::to_string(stream);
            Add(new CMenuInputMpegIpSettings(card, stream, input), InputsMpegIpStream(card, stream));
            Add(new CMenuInputMpegIpStatus(card, stream, input), InputsMpegIpStreamStatus(card, stream));
            Add(new CMenuInputIgmpConfig(card, stream, input), InputsIgmp(card, stream));
        }
    }
    for (size_t i = 0; i < m_caps.vsbInSlots.size(); ++i) {
        const int card = static_cast<int>(i) + 1;
        const std::string input = m_caps.vsbInSlots[i] + ".1";
        Add(new CMenuVsbConfig(card, input), InputsVsb(card));
        Add(new CMenuVsbStatus(card, input), InputsVsbStatus(card));
    }
    for (size_t i = 0; i < m_caps.turboPskInSlots.size(); ++i) {
        const int card = static_cast<int>(i) + 1;
        const std::string input = m_caps.turboPskInSlots[i] + ".1";
        Add(new CMenuInputTurboPskConfig(card, input), InputsTurboPsk(card));
        Add(new CMenuInputTurboPskStatus(card, input), InputsTurboPskStatus(card));
    }
}

void CTavScreenCreator::BuildT2Mi()
{
    Add(new CMenuT2MiStatus(), kT2MiStatus);
    Add(new CMenuT2MiConfig(), kT2MiConfig);
}
