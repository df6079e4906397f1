#include "Menus/MenuGenlockSettings.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

CMenuGenlockSettings::CMenuGenlockSettings(const Capabilities_t& caps)
    : CConfigTableScreen(
          kGenlockSettings, kGenlock,
          {
              Number("SD V Offset: ", "sdgenlockOffsetVertLines", ".1.1", 4, 0, -262, 262),
              Number("SD H Offset: ", "sdgenlockOffsetHorPixels", ".1.1", 4, 0, -857, 857),
              Number("SD Phase Offset: ", "sdgenlockSubcarrierOffset", ".1.1", 4, 0, -180, 180),
              Number("HD V Offset: ", "hdgenlockOffsetVertLines", ".1.1", 4, 0, -562, 562).When(caps.hdOutput),
              Number("HD H Offset: ", "hdgenlockOffsetHorPixels", ".1.1", 5, 0, -1100, 1100).When(caps.hdOutput),
          },
          "Menu Style Long List")
{
}
