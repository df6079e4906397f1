#include "Menus/MenuCompositeSetting.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

CMenuCompositeSetting::CMenuCompositeSetting(int path)
    : CConfigTableScreen(path == 1 ? "Primary Composite" : "Secondary Composite", kBasebandOutputs,
                         {
                             Target("General Settings", OutputsCompositeGeneral(path).c_str()),
                             Target("VBI Settings", OutputsCompositeVbi(path).c_str()),
                         })
{
}
