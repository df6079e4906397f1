#include "Menus/MenuInputTurboPskConfig.h"

#include "Menus/MenuInputDvbS2Settings.h"
#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

namespace {

const CRow kLines[] = {
    OnOff("Receive: ", "tsinputsrcState", kCard),
    List("Mode: ", "turbopskinMode", kCard, {"DVB-S", "TurboPSK"}),
    List("Modulation: ", "turbopskinModulationMode", kCard,
         {"QPSK 1/2", "QPSK 2/3", "QPSK 3/4", "QPSK 5/6", "QPSK 7/8", "8PSK 2/3", "8PSK 3/4 (2.05)",
          "8PSK 3/4 (2.10)", "8PSK 3/4 (2.20)", "8PSK 5/6", "8PSK 8/9"}),
    LoOffsetMode("turbopskinLoOffset", kCard),
    Number("LO Offset: ", "turbopskinLoOffset", kCard, 7, 1, 0.0, 20000.0).Unit(" MHz"),
    Number("Satellite Freq: ", "turbopskinSatelliteFreq", kCard, 7, 1, 0.0, 30000.0).Unit(" MHz"),
    Number("Symbol Rate: ", "turbopskinSymbolRate", kCard, 7, 4, 1.0, 45.0).Unit(" MSps"),
};

}  // namespace

CMenuInputTurboPskConfig::CMenuInputTurboPskConfig(int card, const std::string& input)
    : CConfigTableScreen(InputsTurboPsk(card) + " Input Config", kInputs, kLines)
{
    Table().SetCard(input);
}
