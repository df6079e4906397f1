#include "Menus/MenuInputSelectStatus.h"

#include "ScreenManager/ScreenNames.h"

namespace {

const CRow kLines[] = {
    Text("Primary: ", "inputPrimarySrc", ".1.1").From("tsinputsrcLabel", "tsinputsrcId").Unknown("Unknown"),
    Text("Backup: ", "inputBackupSrc", ".1.1").From("tsinputsrcLabel", "tsinputsrcId").Unknown("Unknown"),
    Text("Switch: ", "inputFailoverTrigger", ".1.1"),
    Text("Restore: ", "inputSrcRestoreTrigger", ".1.1"),
    Text("Switchover: ", "inputSwitchOverInterval", ".1.1").Unit(" Sec"),
    Target("Enter To Configure", ScreenName::kInputSelectConfig),
};

}  // namespace

CMenuInputSelectStatus::CMenuInputSelectStatus()
    : CStatusTableScreen(ScreenName::kInputSelectStatus, ScreenName::kInputs, kLines)
{
}
