// Conditional access: BISS and the DVB-CI slots the unit reports.
#include "ScreenManager/TavScreenCreator.h"

#include "Menus/MenuBissAddServices.h"
#include "Menus/MenuBissSelectedServicesStatus.h"
#include "Menus/MenuBissSetting.h"
#include "Menus/MenuBissSettings.h"
#include "Menus/MenuConditionalAccess.h"
#include "Menus/MenuDvbCi.h"
#include "Menus/MenuDvbCiConfigPidSingleSrv.h"
#include "Menus/MenuDvbCiConfigServicesMultiSrv.h"
#include "Menus/MenuDvbCiConfigServicesSingleSrv.h"
#include "Menus/MenuDvbCiConfigurePidMultiSrv.h"
#include "Menus/MenuDvbCiSaveChanges.h"
#include "Menus/MenuDvbCiSettings.h"
#include "Menus/MenuDvbCiStatus.h"
#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

void CTavScreenCreator::BuildConditionalAccess()
{
    if (!m_caps.biss && !m_caps.camSlot)
        return;
    Add(new CMenuConditionalAccess(m_caps), kConditionalAccess);
    if (m_caps.biss) {
        Add(new CMenuBissSettings(), kBissConfig);
        Add(new CMenuBissSetting(), kBissServiceSettings);
        Add(new CMenuBissAddServices(), kBissAddServices);
        Add(new CMenuBissSelectedServicesStatus(), kBissSelectedServicesStatus);
    }
    if (!m_caps.camSlot)
        return;
    Add(new CMenuDvbCi(m_caps.camSlots), kDvbCi);
    // Top and bottom: the first two slots reported.
    for (size_t i = 0; i < m_caps.camSlots.size() && i < 2; ++i) {
        const int slot = static_cast<int>(i);
        const std::string& instance = m_caps.camSlots[i];
        Add(new CMenuDvbCiSettings(slot, instance), CaDvbCiSlot(slot));
        Add(new CMenuDvbCiStatus(slot, instance), CaDvbCiStatus(slot));
        // A module that descrambles several services at once gets the staged screens.
        const bool multi = m_caps.multiServiceDescrambling && i < m_caps.camSlotMultiService.size() &&
                           m_caps.camSlotMultiService[i];
        CMenuDvbCiStaged* pPids = multi ? static_cast<CMenuDvbCiStaged*>(new CMenuDvbCiConfigurePidMultiSrv(slot, instance))
                                        : new CMenuDvbCiConfigPidSingleSrv(slot, instance);
        Add(pPids, CaDvbCiConfigPids(slot));
        Add(new CMenuDvbCiSaveChanges(pPids, CaDvbCiConfigPids(slot)), CaSaveChanges(CaDvbCiConfigPids(slot)));
        if (multi) {
            CMenuDvbCiStaged* pServices = new CMenuDvbCiConfigServicesMultiSrv(slot, instance);
            Add(pServices, CaDvbCiConfigSrvs(slot));
            Add(new CMenuDvbCiSaveChanges(pServices, CaDvbCiConfigSrvs(slot)),
                CaSaveChanges(CaDvbCiConfigSrvs(slot)));
        } else {
            Add(new CMenuDvbCiConfigServicesSingleSrv(slot, instance), CaDvbCiConfigSrvs(slot));
        }
    }
}
