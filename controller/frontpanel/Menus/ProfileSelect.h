// The profile list of "Profile Config": "Create: " (type a name, ENTER stores the current
// settings under it), then one row per stored profile; ENTER on a profile chooses it.
#pragma once

#include <map>
#include <string>

#include "ScreenManager/ScreenMinion.h"

class CGenericStringLine;

class CProfileSelect : public CScreenMinion {
public:
    explicit CProfileSelect(CTavScreenMaster* pMaster);

    // Reads "profilelistName" afresh and makes the rows.
    void Build() override;
    int HandleKey(const KeyPress_t& key) override;

    const std::string& GetChosen() const { return m_strChosen; }

private:
    void Create(const std::string& name);

    std::map<int, std::string> m_profiles;  // list row (from 0) -> profile name
    std::string m_strChosen;
    CGenericStringLine* m_pCreate;  // owned by the style
};
