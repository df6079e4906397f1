// A typed address that creates a row of a table keyed by that address: bound to the
// table's row status and the instance before the address (".1.4" for an IPv4 address of
// type 1, length 4), it writes createAndGo (4) at that instance followed by the address.
// It starts at "0.0.0.0" every time and keeps nothing once written.
#pragma once

#include "Lines/GenericIpLine.h"

class CAddRowIpLine : public CGenericIpLine {
public:
    CAddRowIpLine();

    // The value of a bound row status is not an address: the line keeps its own.
    void RefreshValue() override {}
    Qb::uint32 WriteObject(const std::string& address) override;
};
