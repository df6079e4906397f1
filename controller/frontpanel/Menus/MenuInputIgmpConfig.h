// "IGMP n-s Config": the source filter of one MPEG/IP stream: its mode, the filtered
// source addresses (added, changed and removed in place), and an IGMP report on demand.
#pragma once

#include <string>

#include "ScreenManager/TableScreen.h"

// True for an address that may stand as a source in an IGMP filter: a unicast host, not
// "0.0.0.0", loopback, multicast, reserved or broadcast.
bool IsIgmpSourceAddress(const std::string& address);

class CMenuInputIgmpConfig : public CConfigTableScreen {
public:
    // input: the stream's input instance (".4.2").
    CMenuInputIgmpConfig(int card, int stream, const std::string& input);

    std::string HandleKey(const KeyPress_t& key) override;

private:
    void ClearAll();

    std::string m_strRows;  // the instances of this stream's filter rows start so
};
