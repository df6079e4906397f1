#include "Menus/MenuOutputAsiSettings.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

CRow OutputSource()
{
    return List("Source: ", "tsoutputsrcSource", kCard, {})
        .From("outputsrcLabel", kInstanceNumber)
        .Map({{"Descrambled and Processed", "Descramble & Process"}})
        .Unknown("Unknown");
}

namespace {

// The ASI output is the main board's, which is always slot 1.
const char* const kAsiOutput = ".1.1";

}  // namespace

CMenuOutputAsiSettings::CMenuOutputAsiSettings()
    : CConfigTableScreen("ASI Output", kTransportStreamOutputs,
                         {
                             OnOff("Transmission: ", "tsoutputsrcState", kCard),
                             OutputSource(),
                         })
{
    Table().SetCard(kAsiOutput);
}
