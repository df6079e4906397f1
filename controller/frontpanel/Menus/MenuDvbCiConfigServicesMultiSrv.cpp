#include "Menus/MenuDvbCiConfigServicesMultiSrv.h"

#include "Lines/GenericList.h"
#include "Menus/MenuConditionalAccess.h"
#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

CMenuDvbCiConfigServicesMultiSrv::CMenuDvbCiConfigServicesMultiSrv(int slot, const std::string& instance)
    : CMenuDvbCiStaged(CaDvbCiConfigSrvs(slot), CaDvbCiSlot(slot), "camselectedservice", instance,
                       "Menu Style Basic")
{
}

void CMenuDvbCiConfigServicesMultiSrv::MakeLines()
{
    for (size_t i = 0; i < m_selections.size(); ++i)
        AddSelection(static_cast<int>(i), CaText::Service(m_read, m_selections[i].program));
    CGenericList* pAdd = new CGenericList();
    pAdd->AddEntry("None", "");
    const Zor::CParam& names = m_read.KeyExists("siserviceName") ? m_read["siserviceName"] : Zor::CParam();
    for (int i = 0; names.IsMap() && i < names.Length(); ++i) {
        const std::string instance = names.GetKey(i);
        pAdd->AddEntry(names[instance].ToString(""), instance.substr(instance.rfind('.') + 1));
    }
    AddOwn(pAdd, "Add Service: ");
    AddApply();
}

void CMenuDvbCiConfigServicesMultiSrv::OnOwnLine(CGenericLine* pLine, bool wasEditing)
{
    if (!wasEditing || IsEditing())
        return;
    const std::string program = pLine->GetValue();
    if (program.empty())
        return;
    // The module's own message for any addition, services included (kept as it reads).
    Message(" Adding PID...", "");
    Select(program, std::string());
}
