// "DVB-CI(Btm) Config PIDs" for a module that descrambles one service: "Service: "
// picks a received service, whose elementary streams are then listed (ENTER selects a
// stream for the module or takes it out, "*" marks the selected ones); selected PIDs that
// the chosen service does not carry follow. "Apply"; staged (CMenuDvbCiStaged).
#pragma once

#include <string>

#include "Menus/MenuDvbCiStaged.h"

class CMenuDvbCiConfigPidSingleSrv : public CMenuDvbCiStaged {
public:
    CMenuDvbCiConfigPidSingleSrv(int slot, const std::string& instance);

    std::string HandleKey(const KeyPress_t& key) override;

protected:
    void MakeLines() override;
    void OnOwnLine(CGenericLine* pLine, bool wasEditing) override;

private:
    std::string m_strService;  // program number of the service shown
    std::vector<std::pair<CGenericLine*, std::string>> m_streams;  // stream lines and their PIDs
};
