#include "Menus/MenuHdSdiOutput.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

CMenuHdSdiOutput::CMenuHdSdiOutput(int path)
    : CConfigTableScreen(OutputsPath(path) + " HD-SDI Output", OutputsSdi(path),
                         {
                             List("Vid Loss Mode: ", "hdsdiVideoLossMode", kCard, {"Disable SDI", "Display Raster"}),
                             Target("HD-SDI ANC Data", OutputsHdAnc(path).c_str()),
                         })
{
    Table().SetCard(".1." + std::to_string(path));
}
