#include "Menus/ProfileSelect.h"

#include "Client/Globals.h"
#include "Client/TavClient.h"
#include "Lines/GenericDisplayLine.h"
#include "Lines/GenericStringLine.h"
#include "ScreenManager/MenuStyle.h"

namespace {

// The unit's limit for a profile name; names may hold blanks, so all printable characters
// are offered and the controller has the last word.
const int kNameMax = 32;
const int kPrintable = 4;

}  // namespace

CProfileSelect::CProfileSelect(CTavScreenMaster* pMaster) : CScreenMinion(pMaster), m_pCreate(nullptr) {}

void CProfileSelect::Build()
{
    ResetStyle("Profile Config");
    m_profiles.clear();
    m_strChosen.clear();
    m_pCreate = new CGenericStringLine(kNameMax, kPrintable);
    if (!Style().AppendLine(m_pCreate, "Create: ")) {
        delete m_pCreate;
        m_pCreate = nullptr;
    }
    Zor::CParam names;
    if (Client() != nullptr) {
        Zor::CRet ret = Client()->GetValue(kZorClientName, "profilelistName.%");
        if (ret.Success() && ret.Val().IsMap())
            names = ret.Val();
    }
    for (int i = 0; i < names.Length(); ++i) {
        const std::string name = names[names.GetKey(i)].ToString("");
        CGenericDisplayLine* pLine = new CGenericDisplayLine(name);
        if (Style().AppendLine(pLine, ""))
            m_profiles[static_cast<int>(m_profiles.size())] = name;
        else
            delete pLine;
    }
    if (m_profiles.empty()) {
        CGenericDisplayLine* pLine = new CGenericDisplayLine("<< No Profiles >>");
        if (!Style().AppendLine(pLine, ""))
            delete pLine;
    }
}

int CProfileSelect::HandleKey(const KeyPress_t& key)
{
    const bool editing = IsEditing();
    if (key.key == KEY_EXIT && !editing)
        return RESULT_LEAVE;
    if (key.key != KEY_ENTER) {
        PassKey(key);
        return RESULT_STAY;
    }
    const int index = SelectedIndex();
    if (index >= 1) {
        auto found = m_profiles.find(index - 1);
        if (found == m_profiles.end())
            return RESULT_STAY;
        m_strChosen = found->second;
        return RESULT_CHOSEN;
    }
    PassKey(key);  // starts the edit, or ends it and keeps the typed text
    if (editing && m_pCreate != nullptr)
        Create(m_pCreate->GetValue());
    return RESULT_STAY;
}

void CProfileSelect::Create(const std::string& name)
{
    if (name.empty()) {
        ShowMessage("Please specify", "a profile name");
        Pause(1500);
    } else {
        ShowMessage("", "Creating Profile...");
        Zor::CRet ret;
        if (Client() != nullptr)
            ret = Client()->SendOp(kZorClientName, "profileCreateProfile", Zor::COid(".0"), name);
        if (!ret.Success()) {
            ShowMessage("", "Unsuccessful");
            Pause(2500);
        }
        Pause(500);
    }
    Build();
    Draw(2);
}
