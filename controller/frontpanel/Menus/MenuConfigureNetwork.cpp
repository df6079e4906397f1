#include "Menus/MenuConfigureNetwork.h"

#include "Client/TavClient.h"
#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

namespace {

const char* const kApply = "tcpipApplyNew";

// While an apply is in progress the controller keeps "tcpipApplyNew" true.
CRow Staged(CRow row)
{
    return row.SuffixWhen(kApply, ".0", "true", " (Busy)");
}

const CRow kLines[] = {
    Staged(Entry("Host Name: ", "tcpipNewHostname", ".0", CharSet::HostName, 18)),
    Staged(OnOff("DHCP: ", "tcpipNewIpMode", ".0")),
    Staged(Address("IP: ", "tcpipNewIpAddress", ".0")),
    Staged(Address("Mask: ", "tcpipNewNetmask", ".0")),
    Staged(Address("Gateway: ", "tcpipNewGateway", ".0")),
    Command("Apply", kApply, ".0", "true"),
};

// The staged objects with the objects in force that they become.
const char* const kStaged[][2] = {
    {"tcpipNewHostname", "tcpipHostname"}, {"tcpipNewIpMode", "tcpipIpMode"},
    {"tcpipNewIpAddress", "tcpipIpAddress"}, {"tcpipNewNetmask", "tcpipNetmask"},
    {"tcpipNewGateway", "tcpipGateway"},
};

}  // namespace

CMenuConfigureNetwork::CMenuConfigureNetwork() : CConfigTableScreen(kConfigureNetwork, kUnitNetworking, kLines) {}

std::string CMenuConfigureNetwork::HandleKey(const KeyPress_t& key)
{
    const bool leaving = key.key == KEY_EXIT && !IsEditing();
    std::string next = CConfigTableScreen::HandleKey(key);
    if (!leaving || m_pClient == nullptr || next == kNoScreen)
        return next;
    bool discarded = false;
    for (const auto& pair : kStaged) {
        std::string staged = m_pClient->GetData(pair[0], ".0");
        std::string live = m_pClient->GetData(pair[1], ".0");
        if (staged != live && !m_bReadOnly) {
            m_pClient->SendData(pair[0], ".0", live);
            discarded = true;
        }
    }
    if (discarded)
        ShowMessage("     Back Button Pressed", "      Changes Discarded", false);
    return next;
}
