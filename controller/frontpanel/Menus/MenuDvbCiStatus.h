// "DVB-CI(Top) Status" / "DVB-CI(Btm) Status": the module and its mode, then what the
// module works on in that mode: the PIDs it is given (" (Not Dscmblg)" while one is not
// descrambled), the selected PIDs (" (Not Present)" when not in the stream, grouped by
// service, PIDs of no service under "No Associated Service:") or the selected services.
#pragma once

#include <string>

#include "ScreenManager/TableScreen.h"

class CMenuDvbCiStatus : public CStatusTableScreen {
public:
    CMenuDvbCiStatus(int slot, const std::string& instance);
};
