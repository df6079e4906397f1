#include "Menus/MenuInputMpegIpStatus.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

namespace {

// Counters that would not fit their row: twelve digits pass.
constexpr const char* kClip = ">999999999999";

CRow Counter(const char* label, const char* object)
{
    return Text(label, object, kCard, "%d").Clip(kClip);
}

const CRow kLines[] = {
    Text("IP: ", "mpegiprcvDestinationIp", kCard),
    Text("Port: ", "mpegiprcvPort", kCard),
    Text("TS Sync: ", "tsinputsrcTsSync", kCard).Missing("Unknown"),
    Text("Bitrate: ", "tsinputsrcTsBitrate", kCard, "%2.3f").Scale(1e-6).Unit(" Mbps"),
    Counter("Packet: ", "mpegiprcvStreamIPPkts"),
    Text("Packets/Frame: ", "mpegiprcvTsPacketsPerIpPacket", kCard),
    Text("Encapsulation: ", "mpegiprcvEncapsulation", kCard),
    Text("Buffer Delay: ", "mpegiprcvBufferDelay", kCard).Unit(" ms"),
    Heading("RTP"),
    Counter(" OOO Packets: ", "mpegiprcvRtpOutOfOrderCount"),
    Counter(" Dup Packets: ", "mpegiprcvRtpDuplicateCount"),
    Counter(" Mis Packets: ", "mpegiprcvRtpLostPacketCount"),
    Heading("FEC"),
    Text(" Row: ", "mpegiprcvFecRows", kCard),
    Text(" Col: ", "mpegiprcvFecColumns", kCard),
    Counter(" COR/FEC: ", "mpegiprcvFecCorrectedPerPeriod"),
    Counter(" Corr Packets: ", "mpegiprcvFecCorrectedCount"),
    Counter(" UnCorr Packets: ", "mpegiprcvFecUncorrectedCount"),
};

}  // namespace

CMenuInputMpegIpStatus::CMenuInputMpegIpStatus(int card, int stream, const std::string& input)
    : CStatusTableScreen(InputsMpegIpStream(card, stream) + " Input Status", InputsMpegIp(card), kLines)
{
    Table().SetCard(input);
}
