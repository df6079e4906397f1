#include "Menus/MenuDvbCiSaveChanges.h"

#include "Lines/GenericDisplayLine.h"
#include "Lines/GenericYesNoLine.h"
#include "Menus/MenuDvbCiStaged.h"
#include "ScreenManager/MenuStyle.h"
#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

CMenuDvbCiSaveChanges::CMenuDvbCiSaveChanges(CMenuDvbCiStaged* pStaged, const std::string& staged)
    : CTavEventScreen("Menu Style Yes No"), m_pStaged(pStaged), m_strStaged(staged), m_pAnswer(nullptr)
{
    m_pMenu->SetTitle(staged);
    m_pMenu->SetParentScreen(staged);
    for (const char* text : {"    Changes not saved yet.", "   Do you want to save your", "           changes?"}) {
        CGenericLine* pLine = new CGenericDisplayLine();
        pLine->SetSelectable(false);
        m_pMenu->AppendLine(pLine, text);
    }
    m_pAnswer = new CGenericYesNoLine();
    m_pMenu->AppendLine(m_pAnswer, "");
}

void CMenuDvbCiSaveChanges::Enter()
{
    PushToMenu();
    m_pAnswer->SetIndex(0);  // "Yes": the changes were made on purpose
    UpdateLockMode();
    m_pMenu->Redraw(2);
}

std::string CMenuDvbCiSaveChanges::HandleKey(const KeyPress_t& key)
{
    std::string next = CTavEventScreen::HandleKey(key);
    if (key.key != KEY_ENTER || m_bReadOnly || m_pStaged == nullptr)
        return next;
    if (m_pAnswer->GetSelectedIndex() == 0)
        m_pStaged->Save();
    else
        m_pStaged->Discard();
    return m_pStaged->GetMenu()->GetParentScreen();
}
