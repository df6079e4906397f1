#include "Menus/MenuAboutUnit.h"

#include "ScreenManager/ScreenNames.h"

namespace {

const CRow kLines[] = {
    Text("Serial: ", "unitSerialNum", ".0"),
    Text("Software Version: ", "updateCurrentVersion", ".0"),
};

}  // namespace

CMenuAboutUnit::CMenuAboutUnit() : CStatusTableScreen(ScreenName::kAboutUnit, ScreenName::kAboutSystem, kLines) {}
