#include "Menus/MenuMpegIpNetworkSettings.h"

#include "ScreenManager/ScreenNames.h"

namespace {

const CRow kLines[] = {
    Address("IP Address: ", "mpegipnicIpAddr", kCard),
    Address("Subnet Mask: ", "mpegipnicSubnetMask", kCard),
    Address("Gateway: ", "mpegipnicGateway", kCard),
    List("Speed: ", "mpegipnicLinkSpeed", kCard,
         {"Auto", "1000Mbps Full Duplex", "1000Mbps Half Duplex", "100Mbps Full Duplex", "100Mbps Half Duplex",
          "10Mbps Full Duplex", "10Mbps Half Duplex"}),
};

}  // namespace

CMenuMpegIpNetworkSettings::CMenuMpegIpNetworkSettings(const std::string& title, const std::string& port)
    : CConfigTableScreen(title, ScreenName::kMpegIpNetworking, kLines)
{
    Table().SetCard(port);
}
