#include "Menus/ProfileActions.h"

#include "Client/Globals.h"
#include "Client/TavClient.h"
#include "Display/Display.h"
#include "Lines/GenericDisplayLine.h"
#include "Lines/GenericScrollLine.h"
#include "Lines/GenericStringLine.h"
#include "ScreenManager/MenuStyle.h"

namespace {

const int kNameMax = 32;
const int kPrintable = 4;

bool ProfileStored(CTavClient* pClient, const std::string& name)
{
    if (pClient == nullptr)
        return false;
    Zor::CRet ret = pClient->GetValue(kZorClientName, "profilelistName.%");
    if (!ret.Success() || !ret.Val().IsMap())
        return false;
    for (int i = 0; i < ret.Val().Length(); ++i)
        if (ret.Val()[ret.Val().GetKey(i)].ToString("") == name)
            return true;
    return false;
}

template <typename Line>
Line* Append(CMenuStyle& style, Line* pLine, const char* label)
{
    if (style.AppendLine(pLine, label))
        return pLine;
    delete pLine;
    return nullptr;
}

}  // namespace

CProfileActions::CProfileActions(CTavScreenMaster* pMaster)
    : CScreenMinion(pMaster), m_pApply(nullptr), m_pRename(nullptr), m_pDelete(nullptr)
{
}

void CProfileActions::Build()
{
    ResetStyle(ProfileStored(Client(), m_strProfile) ? m_strProfile : "Error with Profile Selection");
    m_pApply = Append(Style(), new CGenericDisplayLine("Apply Profile"), "");
    m_pRename = Append(Style(), new CGenericStringLine(kNameMax, kPrintable), "Rename:");
    if (m_pRename != nullptr)
        m_pRename->SetValue(m_strProfile);
    m_pDelete = Append(Style(), new CGenericDisplayLine("Delete Profile"), "");
}

int CProfileActions::HandleKey(const KeyPress_t& key)
{
    const bool editing = IsEditing();
    if (key.key == KEY_EXIT && !editing)
        return RESULT_LEAVE;
    if (key.key != KEY_ENTER) {
        PassKey(key);
        return RESULT_STAY;
    }
    switch (SelectedIndex()) {
        case 0:
            if (!editing)
                Apply();
            return RESULT_STAY;
        case 1:
            PassKey(key);  // starts the edit, or ends it and keeps the typed name
            if (editing && m_pRename != nullptr)
                Rename(m_pRename->GetValue());
            return RESULT_STAY;
        case 2:
            if (editing)
                return RESULT_STAY;
            Delete();
            return RESULT_LEAVE;
        default:
            return RESULT_STAY;
    }
}

void CProfileActions::ShowRowText(CGenericDisplayLine* pLine, const std::string& text)
{
    if (pLine == nullptr)
        return;
    pLine->SetValue(text);
    Draw(0);
}

void CProfileActions::Apply()
{
    // The controller's state events then drive the apply display.
    ShowRowText(m_pApply, "Applying Profile...");
    if (Client() != nullptr)
        (void)Client()->SendOp(kZorClientName, "profileApplyProfile", Zor::COid(".0"), m_strProfile);
    ShowRowText(m_pApply, "Apply Profile");
}

void CProfileActions::Rename(const std::string& newName)
{
    Zor::CRet ret;
    if (Client() != nullptr)
        ret = Client()->SendOp(kZorClientName, "profileRenameProfile", Zor::COid(".0"),
                               m_strProfile + "," + newName);
    if (ret.Success()) {
        m_strProfile = newName;
    } else if (Display() != nullptr) {
        Style().Clear(0, 0);
        std::string first = "Error renaming profile:";
        Display()->WriteAligned(first, 1, 0, 0);
        CGenericScrollLine message(ret.Msg());
        message.SetDisplay(Display());
        message.Draw(2);
        Display()->RedrawWindow();
        Display()->SetRightIndicators(0);
        Pause(2000);
    }
    Build();
    Draw(2);
}

void CProfileActions::Delete()
{
    ShowRowText(m_pDelete, "Deleting Profile...");
    if (Client() != nullptr)
        (void)Client()->SendOp(kZorClientName, "profileDeleteProfile", Zor::COid(".0"), m_strProfile);
    Pause(500);
}
