#include "Menus/MenuDvbCiConfigPidSingleSrv.h"

#include "Lines/GenericDisplayLine.h"
#include "Lines/GenericList.h"
#include "Menus/MenuConditionalAccess.h"
#include "Menus/MenuDvbCiConfigurePidMultiSrv.h"
#include "ScreenManager/MenuStyle.h"
#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

namespace {

const char* const kStreamPids[] = {"sivideoPid", "siaudioPid", "sidvbsubtitlesPid", "sivbiPid", "siotherPid"};
const char* const kStreamServices[] = {"sivideoSrvNum", "siaudioSrvNum", "sidvbsubtitlesSrvNum", "sivbiSrvNum",
                                       "siotherSrvNum"};

}  // namespace

CMenuDvbCiConfigPidSingleSrv::CMenuDvbCiConfigPidSingleSrv(int slot, const std::string& instance)
    : CMenuDvbCiStaged(CaDvbCiConfigPids(slot), CaDvbCiSlot(slot), "camselectedpid", instance,
                       "Menu Style Long List")
{
}

void CMenuDvbCiConfigPidSingleSrv::MakeLines()
{
    m_streams.clear();
    const Zor::CParam& names = m_read.KeyExists("siserviceName") ? m_read["siserviceName"] : Zor::CParam();
    // The service of the first selected PID, else the first one received.
    if (m_strService.empty() && !m_selections.empty() && m_selections.front().program != "65535")
        m_strService = m_selections.front().program;
    if (m_strService.empty() && names.IsMap() && names.Length() > 0)
        m_strService = names.GetKey(0).substr(names.GetKey(0).rfind('.') + 1);
    CGenericList* pService = new CGenericList();
    for (int i = 0; names.IsMap() && i < names.Length(); ++i) {
        const std::string instance = names.GetKey(i);
        pService->AddEntry(names[instance].ToString(""), instance.substr(instance.rfind('.') + 1));
    }
    pService->SetValue(m_strService);
    AddOwn(pService, "Service: ");

    std::vector<std::string> shown;
    for (size_t t = 0; t < sizeof(kStreamPids) / sizeof(kStreamPids[0]); ++t) {
        if (!m_read.KeyExists(kStreamPids[t]) || !m_read.KeyExists(kStreamServices[t]))
            continue;
        const Zor::CParam& pids = m_read[kStreamPids[t]];
        const Zor::CParam& services = m_read[kStreamServices[t]];
        for (int i = 0; pids.IsMap() && i < pids.Length(); ++i) {
            const std::string row = pids.GetKey(i);
            if (!services.KeyExists(row) || services[row].ToString("") != m_strService)
                continue;
            const std::string pid = pids[row].ToString("");
            bool selected = false;
            for (const Selection_t& selection : m_selections)
                selected = selected || selection.pid == pid;
            CGenericLine* pLine = new CGenericDisplayLine();
            AddOwn(pLine, (StreamText(m_read, pid) + (selected ? " *" : "")).c_str());
            m_streams.emplace_back(pLine, pid);
            shown.push_back(pid);
        }
    }
    // Selections the service shown does not carry: ENTER takes them out.
    for (size_t i = 0; i < m_selections.size(); ++i) {
        bool listed = false;
        for (const std::string& pid : shown)
            listed = listed || pid == m_selections[i].pid;
        if (listed)
            continue;
        std::string text = (m_selections[i].program == "65535" ? std::string("No Srv ")
                                                                : "Srv " + m_selections[i].program + " ") +
                           CaText::Pid(m_selections[i].pid);
        if (!m_selections[i].present)
            text += " (Not Present)";
        AddSelection(static_cast<int>(i), text);
    }
    AddApply();
}

std::string CMenuDvbCiConfigPidSingleSrv::HandleKey(const KeyPress_t& key)
{
    // ENTER on a stream line selects it for the module, or takes it out again.
    CGenericLine* pSelected = m_pMenu->GetSelectedLine();
    if (key.key == KEY_ENTER && !IsEditing() && !m_bReadOnly) {
        for (const auto& stream : m_streams) {
            if (stream.first != pSelected)
                continue;
            bool removed = false;
            for (size_t i = 0; i < m_selections.size() && !removed; ++i) {
                if (m_selections[i].pid != stream.second)
                    continue;
                Unselect(static_cast<int>(i));
                removed = true;
            }
            if (!removed)
                Select(m_strService, stream.second);
            Remake();
            UpdateLockMode();
            PushToMenu();
            m_pMenu->Redraw(2);
            return kNoScreen;
        }
    }
    return CMenuDvbCiStaged::HandleKey(key);
}

void CMenuDvbCiConfigPidSingleSrv::OnOwnLine(CGenericLine* pLine, bool wasEditing)
{
    // A service chosen: its streams are listed (nothing is selected by choosing it).
    if (wasEditing && !IsEditing() && !pLine->GetValue().empty())
        m_strService = pLine->GetValue();
}
