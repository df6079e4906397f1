#include "Menus/MenuBissSetting.h"

#include "Lines/GenericList.h"
#include "Qb/Str.h"
#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

namespace {

const char* const kMode = "bissinterfaceMode";
const char* const kKey = "bissinterfaceSelectedKey";

const CRow kLines[] = {
    List("Op. Mode: ", kMode, ".1.1", {}),
    List("Key: ", kKey, ".1.1", {}),
};

}  // namespace

CMenuBissSetting::CMenuBissSetting() : CConfigTableScreen("BISS", kBissConfig, kLines) {}

void CMenuBissSetting::BuildLines()
{
    CConfigTableScreen::BuildLines();
    AddRequest("bissserviceAlias.%");
}

void CMenuBissSetting::AfterLoad()
{
    CConfigTableScreen::AfterLoad();
    // The controller keeps both as numbers: the mode 0 "Disabled", 1 "All PIDs", then one
    // per key in row order from 2; the selected key as the key's row number.
    CGenericList* pMode = dynamic_cast<CGenericList*>(Table().Find(kMode, ".1.1"));
    CGenericList* pKey = dynamic_cast<CGenericList*>(Table().Find(kKey, ".1.1"));
    if (pMode == nullptr || pKey == nullptr)
        return;
    pMode->ClearEntries();
    pMode->AddEntry("Disabled", "0");
    pMode->AddEntry("All PIDs", "1");
    pKey->ClearEntries();
    const Zor::CParam& aliases = GetValues().IsMap() && GetValues().KeyExists("bissserviceAlias")
                                     ? GetValues()["bissserviceAlias"]
                                     : Zor::CParam();
    for (int i = 0; aliases.IsMap() && i < aliases.Length(); ++i) {
        const std::string instance = aliases.GetKey(i);
        const std::string alias = aliases[instance].ToString("");
        pMode->AddEntry(alias, Qb::Str::Format("%d", i + 2));
        pKey->AddEntry(alias, instance.substr(instance.rfind('.') + 1));
    }
    pMode->SetValue(CachedValue(kMode, ".1.1").ToString(""));
    pKey->SetValue(CachedValue(kKey, ".1.1").ToString(""));
}
