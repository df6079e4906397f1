// The administration branch: the unit's settings and information, the panel lock, profiles.
#include "ScreenManager/TavScreenCreator.h"

#include "Menus/MenuAboutSystem.h"
#include "Menus/MenuAboutUnit.h"
#include "Menus/MenuAdmin.h"
#include "Menus/MenuAdminConfigDateTime.h"
#include "Menus/MenuAdminConfigureMpegIp.h"
#include "Menus/MenuAdminUpdateMethod.h"
#include "Menus/MenuChangePanelPassword.h"
#include "Menus/MenuConfigureNetwork.h"
#include "Menus/MenuFrontpanelLock.h"
#include "Menus/MenuHardwareSelect.h"
#include "Menus/MenuHardwareSelectSlot.h"
#include "Menus/MenuHardwareStatus.h"
#include "Menus/MenuInbandControlSettings.h"
#include "Menus/MenuInbandControlStatus.h"
#include "Menus/MenuListeningServicesSettings.h"
#include "Menus/MenuListeningServicesStatus.h"
#include "Menus/MenuMpegIpNetwork.h"
#include "Menus/MenuMpegIpNetworkSettings.h"
#include "Menus/MenuMpegIpNetworkStatus.h"
#include "Menus/MenuProfiles.h"
#include "Menus/MenuResetAllSettings.h"
#include "Menus/MenuSyslogConfiguration.h"
#include "Menus/MenuSystemTime.h"
#include "Menus/MenuUnitNetworkStatus.h"
#include "Menus/MenuUnitTemperature.h"
#include "Menus/MenuVoltageLevelStatus.h"
#include "Menus/ProfileStatus.h"
#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

void CTavScreenCreator::BuildAdmin()
{
    Add(new CMenuAdmin(m_caps), kAdmin);
    Add(new CMenuUnitNetworkStatus(), kUnitNetworking);
    Add(new CMenuConfigureNetwork(), kConfigureNetwork);
    Add(new CMenuSystemTime(), kSystemTime);
    Add(new CMenuAdminConfigDateTime(), kConfigureDateTime);
    Add(new CMenuAdminUpdateMethod(), kUpdateMethod);
    Add(new CMenuAboutSystem(), kAboutSystem);
    Add(new CMenuAboutUnit(), kAboutUnit);
    Add(new CMenuHardwareSelect(), kOptions);
    Add(new CMenuHardwareSelectSlot(), kSelectSlot);
    Add(new CMenuHardwareStatus("Top Slot"), kTopSlot);
    Add(new CMenuHardwareStatus("Bottom Slot"), kBottomSlot);
    Add(new CMenuSyslogConfiguration(), kSyslogConfiguration);
    if (!m_caps.mpegIpRcvSlots.empty()) {
        Add(new CMenuMpegIpNetwork(m_caps.mpegIpRcvSlots), kMpegIpNetworking);
        for (size_t i = 0; i < m_caps.mpegIpRcvSlots.size(); ++i) {
            const int card = static_cast<int>(i) + 1;
            const std::string& slot = m_caps.mpegIpRcvSlots[i];
            for (int port = 1; port <= 2; ++port) {
                const std::string instance = slot + "." + std::to_string(port);
                Add(new CMenuMpegIpNetworkSettings(MpegIpPort(card, port), instance), MpegIpPort(card, port));
                Add(new CMenuMpegIpNetworkStatus(MpegIpPortStatus(card, port), instance),
                    MpegIpPortStatus(card, port));
            }
            Add(new CMenuAdminConfigureMpegIp(card, slot), ConfigureMpegIpCard(card));
        }
    }
    if (m_caps.inbandControl) {
        Add(new CMenuInbandControlStatus(), kInbandControl);
        Add(new CMenuInbandControlSettings(), kConfigureInband);
    }
    Add(new CMenuListeningServicesStatus(), kListeningServices);
    Add(new CMenuListeningServicesSettings(), kListeningServicesSettings);
    Add(new CMenuResetAllSettings(), kResetAllSettings);
    Add(new CMenuUnitTemperature(), kUnitTemperature);
    Add(new CMenuVoltageLevelStatus(), kVoltageLevels);
    Add(new CMenuFrontpanelLock(), kPanelLock);
    Add(new CMenuChangePanelPassword(), kChangePanelPassword);
    Add(new CMenuProfiles(), kProfileConfig);
    Add(new CProfileStatus(), kProfileStatus);
}
