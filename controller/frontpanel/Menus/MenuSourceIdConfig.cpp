#include "Menus/MenuSourceIdConfig.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

namespace {

const CRow kLines[] = {
    List("Lookup Mode: ", "ancoptSourceIdLookupMode", ".1.1", {"Auto", "Manual"}),
    Entry("Manual ID: ", "ancoptSourceIdManualSourceId", ".1.1", CharSet::Printable, 16)
        .ShownWhen("ancoptSourceIdLookupMode", ".1.1", {"Manual"}),
    Number("Timeout: ", "ancoptSourceIdTimeout", ".1.1", 3, 0, 1, 600).Unit(" sec"),
};

}  // namespace

CMenuSourceIdConfig::CMenuSourceIdConfig() : CConfigTableScreen(kSourceIdConfig, kSourceIdStatus, kLines) {}
