#include "Menus/MenuInputMpegIp.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

namespace {

std::vector<CRow> Lines(int card)
{
    std::vector<CRow> rows;
    for (int stream = 1; stream <= kMpegIpStreams; ++stream) {
        const std::string label = "Stream " + std::to_string(stream);
        const std::string status = InputsMpegIp(card) + "-" + std::to_string(stream) + " Status";
        rows.push_back(Target(label.c_str(), InputsMpegIpStream(card, stream).c_str()));
        rows.push_back(Target(status.c_str(), InputsMpegIpStreamStatus(card, stream).c_str()));
    }
    return rows;
}

}  // namespace

CMenuInputMpegIp::CMenuInputMpegIp(int card) : CConfigTableScreen(InputsMpegIp(card), kInputs, Lines(card)) {}
