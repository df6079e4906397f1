#include "Menus/MenuHardwareSelect.h"

#include "Menus/HardwareTable.h"
#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

namespace {

const CRow kLines[] = {
    Record("hardwareModelId").Empty("No Hardware Detected"),
    Show("", kEach, {"hardwareModelId", "hardwareLocation", "modelId", "modelName"},
         [](const CRowValues& v) { return ModelName(v, v("hardwareModelId")) + " " + v("hardwareLocation"); })
        .Unselectable(),
    EndRecord(),
    Target("Select Slot for Hardware Details", kSelectSlot),
};

}  // namespace

CMenuHardwareSelect::CMenuHardwareSelect() : CStatusTableScreen(kOptions, kAboutSystem, kLines) {}
