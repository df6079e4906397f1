#include "Menus/MenuScte104Config.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

namespace {

const CRow kLines[] = {
    List("Filter Mode: ", "scte104FilterMode", ".1.1", {"Pass First Op", "Pass All Ops"}),
};

}  // namespace

CMenuScte104Config::CMenuScte104Config() : CConfigTableScreen(kScte104Config, kProcessing, kLines) {}
