#include "Menus/MenuInput.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

namespace {

std::vector<CRow> Lines(const Capabilities_t& caps)
{
    std::vector<CRow> rows = {
        Target("Input Select", kInputSelectConfig),
        Target("Input Select Status", kInputSelectStatus),
        Target("ASI Input Status", kAsiInputStatus),
    };
    // Per card, numbered in slot order; the card's screens exist only when it is fitted.
    for (int card = 1; card <= static_cast<int>(caps.vsbInSlots.size()); ++card) {
        rows.push_back(Target(InputsVsb(card).c_str(), InputsVsb(card).c_str()));
        rows.push_back(Target(InputsVsbStatus(card).c_str(), InputsVsbStatus(card).c_str()));
    }
    for (int card = 1; card <= static_cast<int>(caps.turboPskInSlots.size()); ++card) {
        rows.push_back(Target(InputsTurboPsk(card).c_str(), InputsTurboPsk(card).c_str()));
        rows.push_back(Target(InputsTurboPskStatus(card).c_str(), InputsTurboPskStatus(card).c_str()));
    }
    for (int card = 1; card <= static_cast<int>(caps.dvbS2InSlots.size()); ++card) {
        rows.push_back(Target(InputsDvbS2(card).c_str(), InputsDvbS2(card).c_str()));
        rows.push_back(Target(InputsDvbS2SelectPort(card).c_str(), InputsDvbS2SelectPort(card).c_str()));
    }
    for (int card = 1; card <= static_cast<int>(caps.mpegIpRcvSlots.size()); ++card)
        rows.push_back(Target(InputsMpegIp(card).c_str(), InputsMpegIp(card).c_str()));
    // Named after the input that is not in use: ENTER switches to it.
    rows.push_back(Command("Switch to Backup Input", "inputManualSwitchover", ".1.1", "true")
                       .LabelBy("inputInputActive", ".1.1", {{"Backup", "Switch to Primary Input"}}));
    return rows;
}

}  // namespace

CMenuInput::CMenuInput(const Capabilities_t& caps) : CConfigTableScreen("Inputs", kMainMenu, Lines(caps)) {}
