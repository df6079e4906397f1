#include "Menus/MenuScte35Config.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

CMenuScte35Config::CMenuScte35Config(const Capabilities_t& caps)
    : CConfigTableScreen(kScte35Config, kProcessing,
                         {
                             Target("ESAM", kEsamConfig).When(caps.esam),
                             Target("General", kScte35GeneralConfig),
                             Target("Relays", kRelayConfig).When(caps.cueTrigger),
                         })
{
}
