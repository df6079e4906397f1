// What to do with the chosen profile: "Apply Profile", "Rename:" (edit the name, ENTER
// renames) and "Delete Profile". The title is the profile's name.
#pragma once

#include <string>

#include "ScreenManager/ScreenMinion.h"

class CGenericDisplayLine;
class CGenericStringLine;

class CProfileActions : public CScreenMinion {
public:
    explicit CProfileActions(CTavScreenMaster* pMaster);

    // The profile the actions are for; Build checks it is still stored.
    void SetProfile(const std::string& name) { m_strProfile = name; }
    const std::string& GetProfile() const { return m_strProfile; }

    void Build() override;
    int HandleKey(const KeyPress_t& key) override;

private:
    void Apply();
    void Rename(const std::string& newName);
    void Delete();
    // Shows a row's new text at once.
    void ShowRowText(CGenericDisplayLine* pLine, const std::string& text);

    std::string m_strProfile;
    CGenericDisplayLine* m_pApply;  // owned by the style
    CGenericStringLine* m_pRename;
    CGenericDisplayLine* m_pDelete;
};
