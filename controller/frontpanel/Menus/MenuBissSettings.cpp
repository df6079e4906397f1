#include "Menus/MenuBissSettings.h"

#include "Qb/Str.h"
#include "ScreenManager/ScreenNames.h"
#include "Zor/Param.h"

using namespace ScreenName;

namespace {

const char* const kMode = "bissserviceBissMode";

const CRow kLines[] = {
    Show("Op. Mode: ", ".1.1", {"bissinterfaceMode", "bissserviceAlias.%"}, BissModeText)
        .Opens(kBissServiceSettings),
    Record("bissserviceAlias", ".1."),
    Entry("Alias: ", "bissserviceAlias", kEach, CharSet::Printable, 16),
    List("BISS Mode: ", kMode, kEach, {"Mode 1", "Mode E"}),
    Key("Sess Word: ", "bissserviceMode1SessionWord", kEach, 12).ShownWhen(kMode, kEach, {"Mode 1"}),
    Key("Session Word:", "bissserviceModeESessionWord", kEach, 16).ShownWhen(kMode, kEach, {"Mode E"}),
    Key("Injected ID: ", "bissserviceModeEInjectedId", kEach, 14).ShownWhen(kMode, kEach, {"Mode E"}),
    EndRecord(),
    Target("Add BISS Services", kBissAddServices),
};

}  // namespace

std::string BissModeText(const CRowValues& values)
{
    const std::string mode = values("bissinterfaceMode", ".1.1");
    if (mode.empty())
        return "";
    const Qb::int32 number = Qb::Str::ToInt32(mode, -1);
    if (number == 0)
        return "Disabled";
    if (number == 1)
        return "All PIDs";
    const Zor::CParam& aliases = values.All().IsMap() && values.All().KeyExists("bissserviceAlias")
                                     ? values.All()["bissserviceAlias"]
                                     : Zor::CParam();
    if (number >= 2 && aliases.IsMap() && number - 2 < aliases.Length())
        return aliases[aliases.GetKey(number - 2)].ToString("");
    return mode;
}

CMenuBissSettings::CMenuBissSettings() : CConfigTableScreen(kBissConfig, kConditionalAccess, kLines) {}
