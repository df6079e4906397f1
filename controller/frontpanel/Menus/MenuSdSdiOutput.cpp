#include "Menus/MenuSdSdiOutput.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

CMenuSdSdiOutput::CMenuSdSdiOutput(int path)
    : CConfigTableScreen(OutputsPath(path) + " SD-SDI Output", OutputsSdi(path),
                         {
                             List("Vid Loss Mode: ", "sdsdiVideoLossMode", kCard, {"Disable SDI", "Display Raster"}),
                             Target("SD-SDI ANC Data", OutputsSdAnc(path).c_str()),
                             Target("SD-SDI VBI Data", OutputsSdVbi(path).c_str()),
                         })
{
    Table().SetCard(".1." + std::to_string(path));
}
