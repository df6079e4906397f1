// "DVB-CI(Top) Config PIDs" for a module that descrambles several services: the selected
// PIDs under a heading per service ("Srv 3:", "No Associated Service:" for program number
// 65535), ENTER on one takes it out; "Add PID: " takes a PID in hexadecimal (it joins the
// service it belongs to in the stream, or none); "Apply". Staged (CMenuDvbCiStaged).
#pragma once

#include <string>

#include "Menus/MenuDvbCiStaged.h"

class CMenuDvbCiConfigurePidMultiSrv : public CMenuDvbCiStaged {
public:
    CMenuDvbCiConfigurePidMultiSrv(int slot, const std::string& instance);

protected:
    void MakeLines() override;
    void OnOwnLine(CGenericLine* pLine, bool wasEditing) override;
};

// The program number of the service that carries the PID in the received stream, "65535"
// when none does (read from the service information's stream tables).
std::string ProgramOfPid(const Zor::CParam& read, const std::string& pid);
// The stream line of a PID: "0x0101 Dolby D eng" from the service information.
std::string StreamText(const Zor::CParam& read, const std::string& pid);
