#include "Menus/MenuAdminUpdateMethod.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

namespace {

const CRow kLines[] = {
    Text("NTP Server: ", "datetimeNtpServer", ".0"),
    Target("NTP Server Setting", kConfigureDateTime),
    Target("Admin Manual Settings", kConfigureDateTime),
};

}  // namespace

CMenuAdminUpdateMethod::CMenuAdminUpdateMethod() : CConfigTableScreen(kUpdateMethod, kSystemTime, kLines) {}
