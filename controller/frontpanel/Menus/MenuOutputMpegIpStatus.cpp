#include "Menus/MenuOutputMpegIpStatus.h"

#include "Menus/MenuOutputAsiSettings.h"
#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

CMenuOutputMpegIpStatus::CMenuOutputMpegIpStatus(int card, const std::string& stream, bool fec)
    : CStatusTableScreen(OutputsMpegIpStatus(card), OutputsMpegIp(card),
                         {
                             Text("Transmission: ", "tsoutputsrcState", kCard),
                             OutputSource(),
                             Text("Connector: ", "mpegiptxNic", kCard),
                             Text("Dest. IP: ", "mpegiptxDestinationIp", kCard),
                             Text("Dest. Port: ", "mpegiptxDestinationPort", kCard),
                             Text("Source Port: ", "mpegiptxSourcePort", kCard),
                             Text("#/TS Packets: ", "mpegiptxTsPackets", kCard),
                             Text("Diff. Services: ", "mpegiptxDiffServ", kCard),
                             Text("Encapsulation: ", "mpegiptxEncapsulation", kCard),
                             Text("FEC: ", "mpegiptxfecState", kCard).When(fec),
                             Text("FEC Columns: ", "mpegiptxfecColumns", kCard)
                                 .When(fec)
                                 .ShownWhen("mpegiptxfecState", kCard, {"Columns/Rows"}),
                             Text("FEC Rows: ", "mpegiptxfecRows", kCard)
                                 .When(fec)
                                 .ShownWhen("mpegiptxfecState", kCard, {"Columns/Rows"}),
                             Text("Unicast MAC Status: ", "mpegiptxUnicastReceiverNotFound", kCard),
                             Text("MAC: ", "mpegiptxUnicastReceiverMACAddr", kCard),
                         })
{
    Table().SetCard(stream);
}
