// An IPv4 address, shown as its dotted text and edited digit by digit as four zero-padded
// groups ("010.020.004.031"); the points are stepped over.
//
//   CGenericIpLine()
//   SetValue(text)    a dotted quad; an empty text is "0.0.0.0"; anything else is false
//                     and changes nothing
//   GetValue()        the dotted address ("10.20.4.31"); while editing, the edited one
//   GetAddress()      the committed address
//   SetAcceptor(f)    a screen's own rule on top of the 0..255 check (multicast only, ...)
//
// ENTER refuses an address with a group above 255, or one the acceptor rejects: editing
// ends, the previous address stays and nothing is written; WasRefused() then says so.
#pragma once

#include <functional>

#include "Lines/EntryLine.h"
#include "Qb/IpAddress.h"

class CGenericIpLine : public CEntryLine {
public:
    CGenericIpLine();

    void SetAcceptor(std::function<bool(const Qb::CIpAddress&)> acceptor) { m_acceptor = acceptor; }
    const Qb::CIpAddress& GetAddress() const { return m_address; }

    bool SetValue(const char* value) override;
    bool SetValue(const std::string& value) override { return SetValue(value.c_str()); }
    std::string GetValue() override;

protected:
    Template_t EditTemplate() override;
    bool Accept(const std::string& edited) override;
    // The edited groups as an address; false when a group is above 255.
    static bool ParseGroups(const std::string& edited, Qb::CIpAddress* pAddress);

private:
    Qb::CIpAddress m_address;
    std::function<bool(const Qb::CIpAddress&)> m_acceptor;
};
