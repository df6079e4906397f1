#include "Menus/MenuProfiles.h"

#include "ScreenManager/ScreenNames.h"

#include "ScreenManager/MenuStyle.h"

CMenuProfiles::CMenuProfiles() : CTavScreenMaster(ScreenName::kProfileStatus), m_select(this), m_actions(this)
{
    m_pMenu->SetTitle("Profile Config");
}

void CMenuProfiles::OnEnter()
{
    // The list minion was dropped when the screen was left by its own EXIT; any other
    // leave (a takeover, the lock screen) comes back to the same minion and selection.
    if (GetMinion() == &m_actions) {
        m_actions.Draw(2);
    } else if (GetMinion() == &m_select) {
        const Qb::int32 selected = m_select.Style().GetCursor().GetIndex();
        GiveControl(&m_select);  // read afresh
        if (selected < m_select.Style().GetLines().GetCount()) {
            m_select.Style().GetCursor().SetIndex(selected);
            m_select.Draw(2);
        }
    } else {
        GiveControl(&m_select);
    }
}

std::string CMenuProfiles::OnResult(int result)
{
    if (result == CScreenMinion::RESULT_CHOSEN && GetMinion() == &m_select) {
        m_actions.SetProfile(m_select.GetChosen());
        GiveControl(&m_actions);
    } else if (result == CScreenMinion::RESULT_LEAVE) {
        if (GetMinion() != &m_actions) {
            GiveControl(nullptr);  // the next entry starts from the list
            return GetBackName();
        }
        GiveControl(&m_select);
    }
    return "No Screen";
}
