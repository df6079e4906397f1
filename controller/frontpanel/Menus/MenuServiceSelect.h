// "Service Selection": how the decoder picks its service (by the primary or backup
// service, by their PIDs, or seeking), and the pages that set each of them.
#pragma once

#include "ScreenManager/TableScreen.h"

class CMenuServiceSelect : public CConfigTableScreen {
public:
    CMenuServiceSelect();
};
