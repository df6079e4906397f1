#include "Menus/MenuServiceLock.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

namespace {

std::vector<CRow> Lines(bool backup)
{
    const char* mode = backup ? "servicelockBackupLockMode" : "servicelockLockMode";
    return {
        List("Service Mode: ", mode, ".1.1", {"Service Name", "Service Number"}),
        // "Srv Name:" has no blank before the value: kept as the unit has always shown it.
        List("Srv Name:", backup ? "servicelockBackupServiceName" : "servicelockServiceName", ".1.1", {})
            .From("siserviceName")
            .ShownWhen(mode, ".1.1", {"Service Name"}),
        List("Service Number: ", backup ? "servicelockBackupServiceNum" : "servicelockServiceNum", ".1.1", {})
            .From("siserviceNum")
            .ShownWhen(mode, ".1.1", {"Service Number"}),
    };
}

}  // namespace

CMenuServiceLock::CMenuServiceLock(bool backup)
    : CConfigTableScreen(backup ? "Backup Service Select" : "Primary Service Select", kServiceSelectSettings,
                         Lines(backup))
{
}
