// "Syslog Configuration": whether the unit sends its log, and to which receivers: one
// group of rows per receiver (address, port, protocol, "Remove"), and a receiver added by
// typing its address.
#pragma once

#include "ScreenManager/TableScreen.h"

class CMenuSyslogConfiguration : public CConfigTableScreen {
public:
    CMenuSyslogConfiguration();
};
