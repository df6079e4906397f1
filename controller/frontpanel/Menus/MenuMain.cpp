#include "Menus/MenuMain.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

CMenuMain::CMenuMain(const Capabilities_t& caps)
    : CConfigTableScreen("Main Menu", kHome,
                         {
                             Target("Inputs", kInputs),
                             Target("T2MI", kT2MiStatus).When(caps.t2mi),
                             Target("Conditional Access", kConditionalAccess).When(caps.biss || caps.camSlot),
                             Target("Decoding", kDecoding).When(caps.decoder),
                             Target("Processing", kProcessing).When(caps.decoder),
                             Target("Baseband Outputs", kBasebandOutputs).When(caps.decoder),
                             Target("Transport Stream Outputs", kTransportStreamOutputs),
                             Target("Admin", kAdmin),
                             Target("Active Errors", kActiveErrors),
                         })
{
}
