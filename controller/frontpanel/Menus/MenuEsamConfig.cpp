#include "Menus/MenuEsamConfig.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

namespace {

const char kBelow[] = "  ";

const CRow kLines[] = {
    OnOff("ESAM Processing: ", "esamProcessingState", ".1.1"),
    // Addresses and IDs are wider than the row after their label: each has a row of its own.
    Heading("POIS URI: "),
    Entry(kBelow, "esamPoisUri", ".1.1", CharSet::Printable, 64),
    Number("POIS Timeout: ", "esamPoisResponseTimeout", ".1.1", 2, 0, 1, 60).Unit(" sec"),
    List("Timeout Behavior: ", "esamPoisTimeoutBehavior", ".1.1", {"Pass Msg", "Retry POIS", "Discard Msg"}),
    Heading("Acquisition Point ID: "),
    Entry(kBelow, "esamAcquisitionPointId", ".1.1", CharSet::Printable, 32),
    Heading("Acquisition Signal ID: "),
    Entry(kBelow, "esamAcquisitionSignalId", ".1.1", CharSet::Printable, 32),
};

}  // namespace

CMenuEsamConfig::CMenuEsamConfig() : CConfigTableScreen(kEsamConfig, kScte35Config, kLines, "Menu Style Long List") {}
