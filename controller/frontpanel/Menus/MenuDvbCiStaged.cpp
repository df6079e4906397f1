#include "Menus/MenuDvbCiStaged.h"

#include "Client/Globals.h"
#include "Client/TavClient.h"
#include "Lines/GenericDisplayLine.h"
#include "Qb/Str.h"
#include "Qb/Thread.h"
#include "ScreenManager/MenuStyle.h"
#include "ScreenManager/PanelMessage.h"
#include "ScreenManager/ScreenNames.h"
#include "Zor/Op.h"

namespace {

const char* const kSiObjects[] = {
    "siserviceNum", "siserviceName", "siserviceRowStatus", "sivideoSrvNum", "sivideoPid", "sivideoType",
    "siaudioSrvNum", "siaudioPid", "siaudioType", "siaudioLanguage", "sidvbsubtitlesSrvNum",
    "sidvbsubtitlesPid", "sivbiSrvNum", "sivbiPid", "sivbiType", "siotherSrvNum",
    "siotherPid", "siotherStreamTypeDesc",
};

}  // namespace

CMenuDvbCiStaged::CMenuDvbCiStaged(const std::string& title, const std::string& parent, const std::string& table,
                                   const std::string& instance, const std::string& style)
    : CTavEventScreen(style), m_strSlot(instance), m_strTable(table), m_bChanged(false)
{
    m_pMenu->SetTitle(title);
    m_pMenu->SetParentScreen(parent);
}

void CMenuDvbCiStaged::Load()
{
    m_read = Zor::CParam(Zor::PT_MAP);
    m_selections.clear();
    m_removed.clear();
    m_bChanged = false;
    if (m_pClient == nullptr)
        return;
    Zor::CParam request(Zor::PT_LIST);
    for (const char* column : {"RowStatus", "ProgramNumber", "Pid", "Presence"})
        request.AddParam(Zor::CParam::String(m_strTable + column + ".%"));
    for (const char* object : kSiObjects)
        request.AddParam(Zor::CParam::String(std::string(object) + ".%"));
    Zor::CRet ret = m_pClient->GetValues(kZorClientName, request);
    if (ret.Success() && ret.Val().IsMap())
        m_read = ret.Val();
    const std::string rowStatus = m_strTable + "RowStatus";
    if (!m_read.KeyExists(rowStatus))
        return;
    const Zor::CParam& rows = m_read[rowStatus];
    const std::string prefix = m_strSlot + ".";
    for (int i = 0; rows.IsMap() && i < rows.Length(); ++i) {
        const std::string row = rows.GetKey(i);
        if (row.compare(0, prefix.size(), prefix) != 0)
            continue;
        auto column = [&](const char* name) {
            const std::string object = m_strTable + name;
            return m_read.KeyExists(object) && m_read[object].KeyExists(row) ? m_read[object][row].ToString("")
                                                                           : std::string();
        };
        m_selections.push_back(Selection_t{row, column("ProgramNumber"), column("Pid"),
                                           column("Presence") != "Not Present"});
    }
}

void CMenuDvbCiStaged::Enter()
{
    // Back from the save question (EXIT there): the changes are still waiting.
    if (!m_bChanged)
        Load();
    Remake();
    UpdateLockMode();
    PushToMenu();
    m_pMenu->Redraw(2);
}

void CMenuDvbCiStaged::Add(CGenericLine* pLine, const char* label, Use_e use, int index)
{
    if (m_pMenu->AppendLine(pLine, label))
        m_lines.push_back(Line_t{pLine, use, index});
    else
        delete pLine;
}

void CMenuDvbCiStaged::AddSelection(int index, const std::string& label)
{
    Add(new CGenericDisplayLine(), label.c_str(), USE_SELECTION, index);
}

void CMenuDvbCiStaged::AddApply()
{
    Add(new CGenericDisplayLine(), "Apply", USE_APPLY, -1);
}

void CMenuDvbCiStaged::AddOwn(CGenericLine* pLine, const char* label)
{
    Add(pLine, label, USE_OWN, -1);
}

void CMenuDvbCiStaged::Remake()
{
    const int selected = m_pMenu->GetCursor().GetIndex();
    m_pMenu->GetLines().Clear();
    m_pMenu->GetCursor().SetItemCount(0);
    m_lines.clear();
    MakeLines();
    const int count = static_cast<int>(m_lines.size());
    if (selected > 0 && count > 0)
        m_pMenu->GetCursor().SetIndex(selected < count ? selected : count - 1);
    m_iLockMode = 0;  // new lines have not seen the lock mode yet
}

bool CMenuDvbCiStaged::Select(const std::string& program, const std::string& pid)
{
    for (const Selection_t& selection : m_selections)
        if (selection.program == program && selection.pid == pid)
            return false;
    m_selections.push_back(Selection_t{std::string(), program, pid, true});
    m_bChanged = true;
    return true;
}

void CMenuDvbCiStaged::Unselect(int index)
{
    if (index < 0 || index >= static_cast<int>(m_selections.size()))
        return;
    const Selection_t& gone = m_selections[static_cast<size_t>(index)];
    if (!gone.row.empty())
        m_removed.push_back(gone.row);
    m_selections.erase(m_selections.begin() + index);
    m_bChanged = true;
}

std::string CMenuDvbCiStaged::HandleKey(const KeyPress_t& key)
{
    const bool wasEditing = IsEditing();
    CGenericLine* pSelected = m_pMenu->GetSelectedLine();
    const Line_t* pLine = nullptr;
    for (const Line_t& line : m_lines)
        if (line.pLine == pSelected)
            pLine = &line;
    if (key.key == KEY_EXIT && !wasEditing && m_bChanged) {
        // A panel locked meanwhile cannot answer the question: the changes are dropped.
        if (!m_bReadOnly)
            return ScreenName::CaSaveChanges(GetName());
        Discard();
    }
    if (key.key == KEY_ENTER && !wasEditing && pLine != nullptr && pLine->use != USE_OWN) {
        if (m_bReadOnly)
            return ScreenName::kNoScreen;
        if (pLine->use == USE_APPLY) {
            if (m_bChanged)
                Save();
            Load();
        } else {
            Unselect(pLine->index);
        }
        Remake();
        UpdateLockMode();
        PushToMenu();
        m_pMenu->Redraw(2);
        return ScreenName::kNoScreen;
    }
    std::string next = CTavEventScreen::HandleKey(key);
    if (key.key == KEY_ENTER && pLine != nullptr && pLine->use == USE_OWN) {
        OnOwnLine(pLine->pLine, wasEditing);
        if (!IsEditing()) {
            Remake();
            UpdateLockMode();
            PushToMenu();
            m_pMenu->Redraw(2);
        }
    }
    return next;
}

void CMenuDvbCiStaged::Message(const std::string& line1, const std::string& line2)
{
    DrawPanelMessage(m_pDisplay, line1, line2);
    Qb::CThread::Sleep(kPanelMessageMs);
}

bool CMenuDvbCiStaged::Save()
{
    if (m_pClient == nullptr)
        return false;
    Message("Saving Changes...", " Applying...");
    Zor::CTxn txn;
    const std::string rowStatus = m_strTable + "RowStatus";
    for (const std::string& row : m_removed)
        txn.AddOp(Zor::COp(rowStatus, Zor::COid(row), Zor::CParam::String("6")));
    // New rows take the numbers after the highest one the slot has.
    Qb::uint32 next = 1;
    const std::string prefix = m_strSlot + ".";
    if (m_read.KeyExists(rowStatus)) {
        const Zor::CParam& rows = m_read[rowStatus];
        for (int i = 0; rows.IsMap() && i < rows.Length(); ++i) {
            const std::string row = rows.GetKey(i);
            if (row.compare(0, prefix.size(), prefix) != 0)
                continue;
            const Qb::uint32 number = Qb::Str::ToUInt32(row.substr(prefix.size()), 0);
            next = number >= next ? number + 1 : next;
        }
    }
    for (const Selection_t& selection : m_selections) {
        if (!selection.row.empty())
            continue;
        const Zor::COid row((prefix + Qb::Str::Format("%u", next++)).c_str());
        txn.AddOp(Zor::COp(rowStatus, row, Zor::CParam::String("4")));
        txn.AddOp(Zor::COp(m_strTable + "ProgramNumber", row, Zor::CParam::String(selection.program)));
        if (!selection.pid.empty())
            txn.AddOp(Zor::COp(m_strTable + "Pid", row, Zor::CParam::String(selection.pid)));
    }
    const bool saved = txn.IsEmpty() || m_pClient->SendTxn(kZorClientName, txn).Success();
    m_bChanged = false;
    m_removed.clear();
    return saved;
}

void CMenuDvbCiStaged::Discard()
{
    m_bChanged = false;
    m_removed.clear();
}
