#include "Menus/MenuVoltageLevelStatus.h"

namespace {

const CRow kLines[] = {
    Text("12V: ", "sensor12V", ".0", "%.2f"),
    Text("5V: ", "sensor5V", ".0", "%.2f"),
    Text("3V: ", "sensor3V", ".0", "%.2f"),
};

}  // namespace

CMenuVoltageLevelStatus::CMenuVoltageLevelStatus()
    : CStatusTableScreen("Voltage Levels Status", "Admin", kLines)
{
}
