#include "Menus/MenuInputSelect.h"

#include "ScreenManager/ScreenNames.h"

namespace {

// Inputs are offered by their labels and written as their ids.
const CRow kLines[] = {
    List("Primary: ", "inputPrimarySrc", ".1.1", {}).From("tsinputsrcLabel", "tsinputsrcId").Unknown("Unknown"),
    List("Backup: ", "inputBackupSrc", ".1.1", {}).From("tsinputsrcLabel", "tsinputsrcId").Unknown("Unknown"),
    List("Switch: ", "inputFailoverTrigger", ".1.1", {"None", "Manual Only", "TS Sync Loss", "Decode Failure"}),
    List("Restore: ", "inputSrcRestoreTrigger", ".1.1", {"None", "Manual Only", "Primary TS Restored"}),
    Number("Switchover: ", "inputSwitchOverInterval", ".1.1", 3, 0, 0, 300).Unit(" Sec"),
};

}  // namespace

CMenuInputSelect::CMenuInputSelect()
    : CConfigTableScreen(ScreenName::kInputSelectConfig, ScreenName::kInputs, kLines)
{
}
