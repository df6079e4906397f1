#include "Qb/IpAddress.h"

#include <cstdio>

namespace Qb {

bool CIpAddress::Parse(const std::string& dotted)
{
    m_uAddr = 0;
    m_bValid = false;
    uint32 addr = 0;
    int octets = 0;
    size_t i = 0;
    const size_t n = dotted.size();
    while (octets < 4) {
        // One to three digits. Leading zeros are decimal ("192.168.001.010" is how an
        // address looks in a fixed-width edit field), never octal.
        uint32 value = 0;
        size_t digits = 0;
        while (i < n && dotted[i] >= '0' && dotted[i] <= '9' && digits < 4) {
            value = value * 10 + static_cast<uint32>(dotted[i] - '0');
            ++i;
            ++digits;
        }
        if (digits == 0 || digits > 3 || value > 255)
            return false;
        addr = (addr << 8) | value;
        ++octets;
        if (octets < 4) {
            if (i >= n || dotted[i] != '.')
                return false;
            ++i;
        }
    }
    if (i != n)
        return false;
    m_uAddr = addr;
    m_bValid = true;
    return true;
}

std::string CIpAddress::ToString() const
{
    const uint32 a = m_bValid ? m_uAddr : 0;
    char text[16];
    snprintf(text, sizeof text, "%u.%u.%u.%u", static_cast<unsigned>((a >> 24) & 0xFF),
             static_cast<unsigned>((a >> 16) & 0xFF), static_cast<unsigned>((a >> 8) & 0xFF),
             static_cast<unsigned>(a & 0xFF));
    return text;
}

}  // namespace Qb
