#include "Menus/MenuSourceIdStatus.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

namespace {

const CRow kLines[] = {
    Text("Source ID: ", "ancoptSourceIdCurrentSourceId", ".1.1").Missing("None"),
    Target("Source ID Config", kSourceIdConfig),
};

}  // namespace

CMenuSourceIdStatus::CMenuSourceIdStatus() : CConfigTableScreen(kSourceIdStatus, kProcessing, kLines) {}
