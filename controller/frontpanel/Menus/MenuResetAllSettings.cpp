#include "Menus/MenuResetAllSettings.h"

#include "Client/TavClient.h"
#include "Lines/GenericDisplayLine.h"
#include "Lines/GenericYesNoLine.h"
#include "Qb/Thread.h"
#include "ScreenManager/MenuStyle.h"
#include "ScreenManager/PanelMessage.h"
#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

CMenuResetAllSettings::CMenuResetAllSettings() : CTavEventScreen("Menu Style Yes No"), m_pAnswer(nullptr)
{
    m_pMenu->SetTitle(kResetAllSettings);
    m_pMenu->SetParentScreen(kAdmin);
    for (const char* text : {"WARNING: Reset all Settings", "requires a reboot.", "Continue?"}) {
        CGenericLine* pLine = new CGenericDisplayLine();
        pLine->SetSelectable(false);
        m_pMenu->AppendLine(pLine, text);
    }
    m_pAnswer = new CGenericYesNoLine();
    m_pMenu->AppendLine(m_pAnswer, "");
}

void CMenuResetAllSettings::Enter()
{
    PushToMenu();
    m_pAnswer->SetIndex(1);  // "No" until the user moves to "Yes"
    UpdateLockMode();
    m_pMenu->Redraw(2);
}

std::string CMenuResetAllSettings::HandleKey(const KeyPress_t& key)
{
    std::string next = CTavEventScreen::HandleKey(key);
    if (key.key != KEY_ENTER || m_bReadOnly)
        return next;
    if (m_pAnswer->GetSelectedIndex() != 0)
        return kAdmin;
    const bool reset = m_pClient != nullptr && m_pClient->SendData("utilityResetSettings", ".0", "true");
    DrawPanelMessage(m_pDisplay, reset ? "Reset All Settings Success" : "Reset All Settings Failed", "");
    Pause(kPanelMessageMs);
    if (reset)
        m_pClient->SendData("utilityRebootUnit", ".0", "true");
    return kAdmin;
}

void CMenuResetAllSettings::Pause(Qb::uint32 ms)
{
    Qb::CThread::Sleep(ms);
}
