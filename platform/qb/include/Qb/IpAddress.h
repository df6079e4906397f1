// IPv4 address held in host order, parsed from and formatted as a dotted quad.
#pragma once

#include <string>

#include "Qb/Types.h"

namespace Qb {

class CIpAddress {
public:
    CIpAddress() : m_uAddr(0), m_bValid(false) {}
    explicit CIpAddress(uint32 hostOrder) : m_uAddr(hostOrder), m_bValid(true) {}
    explicit CIpAddress(const std::string& dotted) : m_uAddr(0), m_bValid(false) { Parse(dotted); }

    // Strict dotted quad: four decimal numbers 0..255 of one to three digits (leading zeros
    // are decimal: "010" is 10), no blanks, no leading '+'. On failure
    // the address becomes 0.0.0.0 and invalid, and false is returned.
    bool Parse(const std::string& dotted);
    // Dotted text ("0.0.0.0" for an invalid address).
    std::string ToString() const;

    bool IsValid() const { return m_bValid; }
    uint32 Value() const { return m_uAddr; }
    uint8 Octet(int i) const { return static_cast<uint8>(m_uAddr >> (8 * (3 - i))); }
    bool operator==(const CIpAddress& o) const { return m_uAddr == o.m_uAddr && m_bValid == o.m_bValid; }
    bool operator!=(const CIpAddress& o) const { return !(*this == o); }

private:
    uint32 m_uAddr;
    bool m_bValid;
};

}  // namespace Qb
