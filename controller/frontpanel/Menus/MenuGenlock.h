// "Genlock Config": the reference the outputs lock to (on a frame-mounted unit, the
// frame's reference setting), and the offset and status pages.
#pragma once

#include "ScreenManager/Capabilities.h"
#include "ScreenManager/TableScreen.h"

class CMenuGenlock : public CConfigTableScreen {
public:
    explicit CMenuGenlock(const Capabilities_t& caps);
};
