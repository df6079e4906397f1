#include "Menus/MenuAboutSystem.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

CMenuAboutSystem::CMenuAboutSystem()
    : CConfigTableScreen(kAboutSystem, kAdmin,
                         {
                             Target("About Unit", kAboutUnit),
                             Target("Options", kOptions),
                         })
{
}
