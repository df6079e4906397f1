#include "Menus/MenuServiceSelectStatus.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

namespace {

// Services are keyed by their number in the service information ("siserviceName.1.3" is
// service 3), so the name follows the selected number.
std::string ServiceName(const CRowValues& v)
{
    const std::string number = v("selectedserviceServiceNum");
    return number.empty() ? std::string() : v("siserviceName", ".1." + number);
}

const CRow kLines[] = {
    Text("Service: ", "selectedserviceServiceNum", ".1.1"),
    Show("Name: ", ".1.1", {"selectedserviceServiceNum", "siserviceName.%"}, ServiceName).Missing("Unknown"),
    Text("Mode: ", "serviceselectionMode", ".1.1").Missing("Unknown"),
};

}  // namespace

CMenuServiceSelectStatus::CMenuServiceSelectStatus()
    : CStatusTableScreen(kServiceSelectStatus, kDecoding, kLines)
{
}
