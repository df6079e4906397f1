#include "Menus/MenuServiceSelect.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

namespace {

const char kBelow[] = "  ";

const CRow kLines[] = {
    // The longer modes do not fit beside the label: the value has a row of its own.
    Heading("Selection Mode: "),
    List(kBelow, "serviceselectionMode", ".1.1",
         {"Auto Seek", "Use Backup Svc", "Use Primary Svc", "Use Backup PIDs", "Use Primary PIDs"}),
    OnOff("On Backup: ", "serviceselectionBackupState", ".1.1"),
    Target("Primary Service Select", kPrimaryServiceLock),
    Target("Backup Service Select", kBackupServiceLock),
    Target("Primary PID Select", kPrimaryPidLock),
    Target("Backup PID Select", kBackupPidLock),
};

}  // namespace

CMenuServiceSelect::CMenuServiceSelect() : CConfigTableScreen("Service Selection", kDecoding, kLines) {}
