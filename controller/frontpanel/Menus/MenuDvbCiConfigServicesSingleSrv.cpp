#include "Menus/MenuDvbCiConfigServicesSingleSrv.h"

#include "Menus/MenuConditionalAccess.h"
#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

namespace {

const char* const kRows = "camselectedserviceRowStatus";
const char* const kProgram = "camselectedserviceProgramNumber";

std::vector<CRow> Lines(const std::string& instance)
{
    const std::string within = instance + ".";
    return {
        Record(kRows, within.c_str()),
        Show("", kEach, {kProgram, "siserviceName.%", "siserviceRowStatus.%"},
             [](const CRowValues& v) { return CaText::Service(v.All(), v(kProgram)); }),
        Command(" Remove", kRows, kEach, "6"),
        EndRecord(),
        // The first row of the slot is the one service; without it, one can be chosen.
        AddRow("Select Service: ", kRows, kProgram, instance.c_str())
            .Choice("None", "")
            .From("siserviceName", "siserviceNum")
            .HiddenWhen(kRows, kCard, {"1"}),
    };
}

}  // namespace

CMenuDvbCiConfigServicesSingleSrv::CMenuDvbCiConfigServicesSingleSrv(int slot, const std::string& instance)
    : CConfigTableScreen(CaDvbCiConfigSrvs(slot), CaDvbCiSlot(slot), Lines(instance), "Menu Style Long List")
{
    Table().SetCard(instance + ".1");
}
