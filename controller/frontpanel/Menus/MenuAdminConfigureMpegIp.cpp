#include "Menus/MenuAdminConfigureMpegIp.h"

#include "ScreenManager/ScreenNames.h"

namespace {

const CRow kLines[] = {
    List("Default Gateway: ", "mpegipcardDefaultGateway", kCard, {"Port 1", "Port 2"}),
    OnOff("ICMP Response: ", "mpegipcardIcmpResponse", kCard),
};

}  // namespace

CMenuAdminConfigureMpegIp::CMenuAdminConfigureMpegIp(int number, const std::string& slot)
    : CConfigTableScreen(ScreenName::ConfigureMpegIpCard(number), ScreenName::kMpegIpNetworking, kLines)
{
    Table().SetCard(slot);
}
