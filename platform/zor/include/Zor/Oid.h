// Instance identifier of a managed object: dotted unsigned numbers, ordered like an SNMP walk.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace Zor {

class COid {
public:
    COid() = default;
    // Parses "1.1", ".1.1", "0" or ".0"; text that is not a dotted list of unsigned numbers
    // yields an empty oid.
    COid(const char* text);          // NOLINT: implicit on purpose, oids are written as text
    COid(const std::string& text);   // NOLINT
    // count numbers, taken from d0, d1, d2 in that order (count 0 to 3).
    COid(unsigned count, unsigned d0, unsigned d1 = 0, unsigned d2 = 0);
    COid(const COid&) = default;
    COid& operator=(const COid&) = default;
    COid& operator=(const char* text);

    // Parses text into this oid. With clearFirst the oid is replaced, otherwise the numbers
    // are appended. False (and the oid left empty when clearFirst) on malformed text.
    bool Str2Oid(const char* text, bool clearFirst = true);
    // Leading-point text form: ".1.1"; "" for an empty oid.
    std::string OidStr() const;
    // The i-th number from the left / from the right, counted from 0; 0 when out of range.
    uint32_t GetDigitL(unsigned i) const;
    uint32_t GetDigitR(unsigned i) const;
    // The first n numbers in leading-point text form (all of them when n is larger).
    std::string OidSubStrL(unsigned n) const;

    unsigned Length() const { return static_cast<unsigned>(m_digits.size()); }
    bool IsEmpty() const { return m_digits.empty(); }
    const std::vector<uint32_t>& Digits() const { return m_digits; }

    COid operator+(const COid& tail) const;
    COid operator+(int digit) const;

    bool operator==(const COid& o) const { return m_digits == o.m_digits; }
    bool operator!=(const COid& o) const { return m_digits != o.m_digits; }
    // Numeric, left to right; a prefix sorts first (".1" < ".1.1" < ".2").
    bool operator<(const COid& o) const { return m_digits < o.m_digits; }

private:
    std::vector<uint32_t> m_digits;
};

}  // namespace Zor
