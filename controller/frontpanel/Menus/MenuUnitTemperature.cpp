#include "Menus/MenuUnitTemperature.h"

namespace {

// The readings are in the controller's own unit; the page only gives them two decimals.
const CRow kLines[] = {
    Text("Sensor #: ", "tempReading", kEach, "%.2f"),
};

}  // namespace

CMenuUnitTemperature::CMenuUnitTemperature() : CStatusTableScreen("Unit Temperature", "Admin", kLines) {}
