#include "Menus/MenuAdminConfigDateTime.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

namespace {

// By hand only: a clock kept by a time server cannot be set.
CRow Manual(CRow row)
{
    return row.ShownWhen("datetimeUpdateMode", ".0", {"Manual"});
}

const CRow kLines[] = {
    List("Update Mode: ", "datetimeUpdateMode", ".0", {"Manual", "NTP"}),
    Address("NTP Server: ", "datetimeNtpServer", ".0"),
    Manual(Date("Set Date: ", "datetimeNow", ".0")),
    Manual(Time("Set Time: ", "datetimeNow", ".0")),
    Manual(Heading("Format MM/DD/YYYY hh:mm:ss")),
};

}  // namespace

CMenuAdminConfigDateTime::CMenuAdminConfigDateTime() : CConfigTableScreen(kConfigureDateTime, kSystemTime, kLines) {}
