#include "Menus/MenuTransportStreamOutputs.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

namespace {

std::vector<CRow> Entries(const Capabilities_t& caps)
{
    std::vector<CRow> rows{Target("ASI Output Settings", kAsiOutputSettings).When(caps.tsOutputSrc)};
    for (size_t i = 0; i < caps.mpegIpTxSlots.size(); ++i) {
        const int card = static_cast<int>(i) + 1;
        const std::string label = "MPEG/IP " + std::to_string(card);
        rows.push_back(Target(label.c_str(), OutputsMpegIp(card).c_str()));
    }
    return rows;
}

}  // namespace

CMenuTransportStreamOutputs::CMenuTransportStreamOutputs(const Capabilities_t& caps)
    : CConfigTableScreen(kTransportStreamOutputs, kMainMenu, Entries(caps))
{
}
