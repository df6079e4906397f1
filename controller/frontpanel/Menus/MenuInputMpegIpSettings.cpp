#include "Menus/MenuInputMpegIpSettings.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

namespace {

std::vector<CRow> Lines(int card, int stream)
{
    return {
        OnOff("Receive: ", "tsinputsrcState", kCard),
        List("Connector: ", "mpegiprcvNic", kCard, {"Port 1", "Port 2"}),
        List("Reception: ", "mpegiprcvStreamMode", kCard, {"Multicast", "Unicast"}),
        Address("IP: ", "mpegiprcvDestinationIp", kCard),
        Number("Port: ", "mpegiprcvPort", kCard, 5, 0, 1.0, 65535.0),
        OnOff("Null Strip: ", "mpegiprcvNullStrippedState", kCard),
        // The buffer is set by size or by delay, as its mode says.
        List("Buffer Mode: ", "mpegiprcvBufferMode", kCard, {"Size (KB)", "Delay (ms)"}),
        Number("Buffer Size: ", "mpegiprcvBufferSize", kCard, 5, 0, 64.0, 16384.0)
            .Unit(" KB")
            .ShownWhen("mpegiprcvBufferMode", kCard, {"Size (KB)"}),
        Number("Buffer Delay: ", "mpegiprcvBufferDelayTarget", kCard, 4, 0, 10.0, 2000.0)
            .Unit(" ms")
            .ShownWhen("mpegiprcvBufferMode", kCard, {"Delay (ms)"}),
        OnOff("SSRC Filter: ", "mpegiprcvSsrcFilterState", kCard),
        Hex("SSRC: ", "mpegiprcvSsrcFilterValue", kCard, 8).ShownWhen("mpegiprcvSsrcFilterState", kCard, {"Enabled"}),
        OnOff("FEC: ", "mpegiprcvFecState", kCard),
        Target("IGMP Filter Configuration", InputsIgmp(card, stream).c_str()),
        Command("Reset Counters", "mpegiprcvResetCounters", kCard, "true"),
    };
}

}  // namespace

CMenuInputMpegIpSettings::CMenuInputMpegIpSettings(int card, int stream, const std::string& input)
    : CConfigTableScreen(InputsMpegIpStream(card, stream) + " Input Config", InputsMpegIp(card), Lines(card, stream))
{
    Table().SetCard(input);
}
