// "Digital Audio": which decoded audio service each AES port carries, passed through as
// received or as PCM. One port per AES output of the unit.
#pragma once

#include "Qb/Types.h"
#include "ScreenManager/TableScreen.h"

class CMenuAesAudioSettings : public CConfigTableScreen {
public:
    // ports: the unit's AES outputs; services: its decoded audio services.
    CMenuAesAudioSettings(Qb::uint32 ports, Qb::uint32 services);
};

// The row offered the choice "Audio n Pass-through" / "Audio n PCM" for each decoded
// audio service (the AES ports and the SDI embedding pairs).
CRow WithAudioChoices(CRow row, Qb::uint32 services);
