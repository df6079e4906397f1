#include "Menus/MenuAdminUpdateMethod.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

namespace {

// The two methods are the clock's update modes under the names this page has always used.
const CRow kLines[] = {
    List("Set By: ", "datetimeUpdateMode", ".0", {}).Choice("NTP Server", "NTP").Choice("Admin Manual Settings", "Manual"),
    Address("NTP Server Setting: ", "datetimeNtpServer", ".0").ShownWhen("datetimeUpdateMode", ".0", {"NTP"}),
};

}  // namespace

CMenuAdminUpdateMethod::CMenuAdminUpdateMethod() : CConfigTableScreen(kUpdateMethod, kSystemTime, kLines) {}
