#include "Menus/MenuProfiles.h"

#include "ScreenManager/MenuStyle.h"

CMenuProfiles::CMenuProfiles() : CTavScreenMaster("Admin"), m_select(this), m_actions(this)
{
    m_pMenu->SetTitle("Profile Config");
}

void CMenuProfiles::OnEnter()
{
    // The list minion is current whenever the screen was left by its own EXIT, so only a
    // screen taken over (or left for the lock screen) comes back to the actions.
    if (GetMinion() == &m_actions)
        GiveControl(&m_actions);
    else
        GiveControl(&m_select);
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
