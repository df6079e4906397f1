#include "Menus/MenuChangePanelPassword.h"

#include "Client/TavClient.h"
#include "Lines/GenericStringLine.h"
#include "Menus/MenuFrontpanelLock.h"
#include "Qb/Thread.h"
#include "ScreenManager/MenuStyle.h"
#include "ScreenManager/ScreenNames.h"

namespace {

const char* const kLockScreen = "Lock/Unlock Front Panel";
using ScreenName::kNoScreen;
const int kPasswordLength = 16;
const int kPasswordCharSet = 0;

}  // namespace

CMenuChangePanelPassword::CMenuChangePanelPassword()
    : CScreen("Menu Style Basic"),
      m_pOld(new CGenericStringLine(kPasswordLength, kPasswordCharSet)),
      m_pNew(new CGenericStringLine(kPasswordLength, kPasswordCharSet))
{
    m_pMenu->SetTitle("Change Password");
    m_pMenu->SetParentScreen(kLockScreen);
    m_pMenu->AppendLine(m_pOld, "Enter Old Password:");
    m_pMenu->AppendLine(m_pNew, "Enter New Password:");
}

void CMenuChangePanelPassword::ClearEntries()
{
    m_pOld->SetValue("");
    m_pNew->SetValue("");
}

void CMenuChangePanelPassword::Enter()
{
    ClearEntries();
    CScreen::Enter();
}

void CMenuChangePanelPassword::Pause(Qb::uint32 ms)
{
    Qb::CThread::Sleep(ms);
}

void CMenuChangePanelPassword::ShowMessage(const std::string& line1, const std::string& line2)
{
    PushToMenu();
    DrawPanelMessage(m_pDisplay, line1, line2);
    Pause(kPanelMessageMs);
    m_pMenu->Redraw(1);
}

std::string CMenuChangePanelPassword::HandleKey(const KeyPress_t& key)
{
    PushToMenu();
    const bool wasEditing = m_pMenu->IsEditing();
    const bool onNew = m_pMenu->GetSelectedLine() == m_pNew;
    std::string next = m_pMenu->HandleKey(key);
    // Only the ENTER that ends the edit of the new password acts.
    if (key.key != KEY_ENTER || !wasEditing || !onNew || m_pMenu->IsEditing())
        return next;

    const std::string stored = m_pClient != nullptr ? m_pClient->GetData("frontpanelPassword", ".0") : "";
    const std::string old = m_pOld->GetValue();
    if (old.size() != stored.size() || old != stored) {
        ClearEntries();
        ShowMessage("Invalid Password", "Please try again.");
        return kNoScreen;
    }
    const std::string password = m_pNew->GetValue();
    // The same limit as on the lock screen, on purpose: 3 characters are accepted.
    if (static_cast<int>(password.size()) < kMinPanelPasswordLength) {
        m_pNew->SetValue("");  // the old one was right: only the new one is typed again
        ShowMessage("Password is too short.", "Please try again.");
        return kNoScreen;
    }
    if (m_pClient == nullptr || !m_pClient->SendData("frontpanelPassword", ".0", password)) {
        ClearEntries();
        ShowMessage("Invalid Password", "Please try again.");
        return kNoScreen;
    }
    ShowMessage("Password Changed", "Successfully.");
    return kLockScreen;
}
