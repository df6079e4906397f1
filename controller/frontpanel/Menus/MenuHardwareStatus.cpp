#include "Menus/MenuHardwareStatus.h"

#include "Menus/HardwareTable.h"
#include "ScreenManager/ScreenNames.h"

namespace {

// One detail of the board at `location`, from "object.%".
CRow Detail(const char* label, const char* object, const std::string& location)
{
    CRow row = Show(label, nullptr, {}, [object, location](const CRowValues& v) {
        std::string board = BoardAt(v, location);
        return board.empty() ? std::string() : v(object, board);
    });
    row.computeReads = {std::string(object) + kEach, std::string("hardwareLocation") + kEach};
    return row;
}

std::vector<CRow> Lines(const std::string& location)
{
    CRow name = Detail("", "hardwareName", location);
    name.Missing("No Hardware Detected");
    return {
        name,
        Detail("Serial: ", "hardwareSerial", location),
        Detail("Assembly: ", "hardwareAssembly", location),
        Detail("Revision: ", "hardwareRev", location),
        Detail("Run: ", "hardwareRun", location),
        Detail("PI: ", "hardwarePI", location),
        Detail("", "hardwareLocation", location),
    };
}

}  // namespace

CMenuHardwareStatus::CMenuHardwareStatus(const std::string& location)
    : CStatusTableScreen("Board Info", ScreenName::kSelectSlot, Lines(location))
{
}
