#include "Menus/MenuMpegIpNetworkStatus.h"

#include "ScreenManager/ScreenNames.h"

namespace {

const CRow kLines[] = {
    Text("Link Status: ", "mpegipnicLinkStatus", kCard).Missing("Unknown"),
    Text("IGMP Version: ", "mpegipnicIgmpVersion", kCard),
    Text("IP Address: ", "mpegipnicIpAddr", kCard),
    Text("Subnet Mask: ", "mpegipnicSubnetMask", kCard),
    Text("Gateway: ", "mpegipnicGateway", kCard),
    Text("MAC: ", "mpegipnicMACAddr", kCard),
    Text("Speed: ", "mpegipnicLinkSpeedStatus", kCard),
    Text("Tx Bitrate: ", "mpegipnicAggTxBitrate", kCard, "%2.3f").Scale(1e-6).Unit(" Mbps"),
    Text("Rx Bitrate: ", "mpegipnicAggRxBitrate", kCard, "%2.3f").Scale(1e-6).Unit(" Mbps"),
};

}  // namespace

CMenuMpegIpNetworkStatus::CMenuMpegIpNetworkStatus(const std::string& title, const std::string& port)
    : CStatusTableScreen(title, ScreenName::kMpegIpNetworking, kLines)
{
    Table().SetCard(port);
}
