#include "Menus/MenuMpegIpNetwork.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

namespace {

std::vector<CRow> Entries(size_t cards)
{
    std::vector<CRow> rows;
    for (int card = 1; card <= static_cast<int>(cards); ++card) {
        for (int port = 1; port <= 2; ++port) {
            rows.push_back(Target(MpegIpPort(card, port).c_str(), MpegIpPort(card, port).c_str()));
            rows.push_back(Target(MpegIpPortStatus(card, port).c_str(), MpegIpPortStatus(card, port).c_str()));
        }
        rows.push_back(Target(ConfigureMpegIpCard(card).c_str(), ConfigureMpegIpCard(card).c_str()));
    }
    return rows;
}

}  // namespace

CMenuMpegIpNetwork::CMenuMpegIpNetwork(const std::vector<std::string>& cards)
    : CConfigTableScreen(kMpegIpNetworking, kAdmin, Entries(cards.size()))
{
}
