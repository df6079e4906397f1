#include "Menus/MenuFrontpanelLock.h"

#include <log4cpp/Category.hh>

#include "Client/TavClient.h"
#include "Display/Display.h"
#include "Display/TextAdjustment.h"
#include "Lines/GenericDisplayLine.h"
#include "Lines/GenericList.h"
#include "Lines/GenericStringLine.h"
#include "Qb/Thread.h"
#include "ScreenManager/MenuStyle.h"
#include "ScreenManager/PanelMessage.h"
#include "ScreenManager/ScreenNames.h"

namespace {

const char* const kPassword = "frontpanelPassword";
const char* const kLockMode = "frontpanelLockMode";
const char* const kInstance = ".0";
using ScreenName::kNoScreen;

// The controller keeps at most 16 characters; letters and digits are typed.
const int kPasswordLength = 16;
const int kPasswordCharSet = 0;

}  // namespace

CMenuFrontpanelLock::CMenuFrontpanelLock()
    : CTavEventScreen("Menu Style Basic"),
      m_modeTexts{"None", "Lock Panel", "Disable Panel"},
      m_pNewPassword(nullptr),
      m_pPassword(nullptr),
      m_pLockMode(nullptr),
      m_pChangeLink(nullptr)
{
    m_pMenu->SetParentScreen("Admin");
    AddRequest(kPassword, kInstance);
    AddRequest(kLockMode, kInstance);
    AddRequest("frontpanelLockStatus", kInstance);
}

void CMenuFrontpanelLock::Enter()
{
    PushToMenu();
    Build();
    m_pMenu->Redraw(2);
}

std::string CMenuFrontpanelLock::Password() const
{
    return CachedValue(kPassword, kInstance).ToString("");
}

Qb::int32 CMenuFrontpanelLock::LockMode() const
{
    return CachedValue(kLockMode, kInstance).ToInt32(0);
}

void CMenuFrontpanelLock::Build()
{
    LoadValues();
    m_pMenu->GetLines().Clear();
    m_pMenu->GetCursor().SetItemCount(0);
    m_pMenu->GetCursor().Reset();
    m_pNewPassword = nullptr;
    m_pPassword = nullptr;
    m_pLockMode = nullptr;
    m_pChangeLink = nullptr;

    if (Password().empty()) {
        m_strAction = "Set Panel Password";
        m_pNewPassword = new CGenericStringLine(kPasswordLength, kPasswordCharSet);
        m_pMenu->AppendLine(m_pNewPassword, "Enter New Password: ");
    } else if (LockMode() == LOCK_MODE_NONE) {
        m_strAction = "Lock Panel";
        m_pLockMode = new CGenericList();
        for (const std::string& text : m_modeTexts)
            m_pLockMode->AddEntry(text);
        m_pMenu->AppendLine(m_pLockMode, "Lock Mode: ");
        m_pChangeLink = new CGenericDisplayLine();
        m_pMenu->AppendLine(m_pChangeLink, "Change Password", "Change Panel Password");
    } else {
        m_strAction = "Unlock Panel";
        m_pPassword = new CGenericStringLine(kPasswordLength, kPasswordCharSet);
        m_pMenu->AppendLine(m_pPassword, "Enter Password: ");
    }
    m_pMenu->SetTitle(m_strAction);
}

void CMenuFrontpanelLock::Pause(Qb::uint32 ms)
{
    Qb::CThread::Sleep(ms);
}

void CMenuFrontpanelLock::ShowMessage(const std::string& line1, const std::string& line2)
{
    PushToMenu();
    DrawPanelMessage(m_pDisplay, line1, line2);
    Pause(kPanelMessageMs);
    Build();
    m_pMenu->Redraw(1);
}

std::string CMenuFrontpanelLock::HandleKey(const KeyPress_t& key)
{
    PushToMenu();
    const bool wasEditing = m_pMenu->IsEditing();

    // EXIT outside an edit leaves by the lock mode, which the style does not know.
    if (key.key == KEY_EXIT && !wasEditing) {
        LoadValues();
        return LockMode() == LOCK_MODE_DISABLED ? std::string("Home") : m_pMenu->GetParentScreen();
    }

    std::string next = m_pMenu->HandleKey(key);
    if (next != kNoScreen)
        return next;  // the "Change Password" link
    // Only the ENTER that ends an edit acts; the one that starts it, and EXIT, do not.
    if (key.key != KEY_ENTER || m_pMenu->IsEditing())
        return kNoScreen;

    if (m_pNewPassword != nullptr) {
        std::string password = m_pNewPassword->GetValue();
        if (static_cast<int>(password.size()) < kMinPanelPasswordLength) {
            ShowMessage("Password is too short.", "Please try again.");
        } else if (m_pClient != nullptr && m_pClient->SendData(kPassword, kInstance, password)) {
            ShowMessage("Set Panel Password Success", "");
        } else {
            log4cpp::Category::getInstance("tav.frontpanel")
                .error("Lock screen: the panel password was refused");
            ShowMessage("Invalid Password", "Please try again.");
        }
    } else if (m_pLockMode != nullptr) {
        // "None" writes nothing: the panel is free already.
        Qb::int32 mode = m_pLockMode->GetCommittedIndex() + 1;
        if ((mode == LOCK_MODE_LOCKED || mode == LOCK_MODE_DISABLED) && m_pClient != nullptr &&
            m_pClient->SendData(kLockMode, kInstance, std::to_string(mode)))
            ShowMessage(mode == LOCK_MODE_LOCKED ? "Panel Locked" : "Panel Disabled", "");
    } else if (m_pPassword != nullptr) {
        std::string entered = m_pPassword->GetValue();
        LoadValues();
        Qb::int32 mode = LockMode();
        if (mode == LOCK_MODE_LOCKED || mode == LOCK_MODE_DISABLED) {
            const std::string stored = Password();
            if (entered.size() == stored.size() && entered == stored) {
                if (m_pClient != nullptr)
                    m_pClient->SendData(kLockMode, kInstance, std::to_string(LOCK_MODE_NONE));
                ShowMessage("Panel Unlocked", "");
            } else {
                ShowMessage("Invalid Password", "Please try again.");
            }
        } else {
            // Unlocked elsewhere meanwhile: offer what fits the mode now.
            Build();
            m_pMenu->Redraw(1);
        }
    }
    return kNoScreen;
}
