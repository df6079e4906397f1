#include "Menus/MenuOutputMpegIpSettings.h"

#include "Menus/MenuOutputAsiSettings.h"
#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

CMenuOutputMpegIpSettings::CMenuOutputMpegIpSettings(int card, const std::string& stream, bool fec)
    : CConfigTableScreen(
          OutputsMpegIpSettings(card), OutputsMpegIp(card),
          {
              OnOff("Transmission: ", "tsoutputsrcState", kCard),
              OutputSource(),
              List("Connector: ", "mpegiptxNic", kCard, {"Port 1", "Port 2"}),
              Address("Dest. IP: ", "mpegiptxDestinationIp", kCard),
              Number("Dest. Port: ", "mpegiptxDestinationPort", kCard, 5, 0, 1, 65535),
              Number("Source Port: ", "mpegiptxSourcePort", kCard, 5, 0, 1, 65535),
              Number("#/TS Packets: ", "mpegiptxTsPackets", kCard, 1, 0, 1, 7),
              List("Diff. Services: ", "mpegiptxDiffServ", kCard,
                   {"Default", "AF11", "AF12", "AF13", "AF21", "AF22", "AF23", "AF31", "AF32", "AF33", "AF41", "AF42",
                    "AF43"}),
              List("Encapsulation: ", "mpegiptxEncapsulation", kCard, {"UDP", "RTP"}),
              List("FEC: ", "mpegiptxfecState", kCard, {"Columns/Rows", "Disabled"}).When(fec),
              Number("FEC Columns: ", "mpegiptxfecColumns", kCard, 2, 0, 1, 20)
                  .When(fec)
                  .ShownWhen("mpegiptxfecState", kCard, {"Columns/Rows"}),
              Number("FEC Rows: ", "mpegiptxfecRows", kCard, 2, 0, 4, 20)
                  .When(fec)
                  .ShownWhen("mpegiptxfecState", kCard, {"Columns/Rows"}),
          })
{
    Table().SetCard(stream);
}
