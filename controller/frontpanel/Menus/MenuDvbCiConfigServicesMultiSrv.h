// "DVB-CI(Top) Config Srvs" for a module that descrambles several services: the selected
// services (ENTER takes one out), "Add Service: " from the services received, and "Apply".
// The changes are staged (CMenuDvbCiStaged).
#pragma once

#include <string>

#include "Menus/MenuDvbCiStaged.h"

class CMenuDvbCiConfigServicesMultiSrv : public CMenuDvbCiStaged {
public:
    CMenuDvbCiConfigServicesMultiSrv(int slot, const std::string& instance);

protected:
    void MakeLines() override;
    void OnOwnLine(CGenericLine* pLine, bool wasEditing) override;
};
