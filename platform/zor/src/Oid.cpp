#include "Zor/Oid.h"

#include <cstdio>

namespace Zor {

namespace {

// Parses "1.1", ".1.1", "0" or ".0" into digits; false on anything else.
bool ParseDigits(const char* text, std::vector<uint32_t>& out)
{
    if (text == nullptr) {
        return false;
    }
    const char* p = text;
    if (*p == '.') {
        ++p;
    }
    if (*p == '\0') {
        return false;
    }
    std::vector<uint32_t> digits;
    while (true) {
        if (*p < '0' || *p > '9') {
            return false;
        }
        uint64_t v = 0;
        while (*p >= '0' && *p <= '9') {
            v = v * 10 + static_cast<uint64_t>(*p - '0');
            if (v > 0xFFFFFFFFull) {
                return false;
            }
            ++p;
        }
        digits.push_back(static_cast<uint32_t>(v));
        if (*p == '\0') {
            break;
        }
        if (*p != '.') {
            return false;
        }
        ++p;
    }
    out.insert(out.end(), digits.begin(), digits.end());
    return true;
}

std::string Join(const std::vector<uint32_t>& digits, size_t n)
{
    std::string text;
    char buf[16];
    for (size_t i = 0; i < n && i < digits.size(); ++i) {
        std::snprintf(buf, sizeof buf, ".%u", static_cast<unsigned>(digits[i]));
        text += buf;
    }
    return text;
}

}  // namespace

COid::COid(const char* text)
{
    Str2Oid(text, true);
}

COid::COid(const std::string& text)
{
    Str2Oid(text.c_str(), true);
}

COid::COid(unsigned count, unsigned d0, unsigned d1, unsigned d2)
{
    const unsigned d[3] = {d0, d1, d2};
    for (unsigned i = 0; i < count && i < 3; ++i) {
        m_digits.push_back(d[i]);
    }
}

COid& COid::operator=(const char* text)
{
    Str2Oid(text, true);
    return *this;
}

bool COid::Str2Oid(const char* text, bool clearFirst)
{
    if (clearFirst) {
        m_digits.clear();
    }
    return ParseDigits(text, m_digits);
}

std::string COid::OidStr() const
{
    return Join(m_digits, m_digits.size());
}

uint32_t COid::GetDigitL(unsigned i) const
{
    return i < m_digits.size() ? m_digits[i] : 0;
}

uint32_t COid::GetDigitR(unsigned i) const
{
    return i < m_digits.size() ? m_digits[m_digits.size() - 1 - i] : 0;
}

std::string COid::OidSubStrL(unsigned n) const
{
    return Join(m_digits, n);
}

COid COid::operator+(const COid& tail) const
{
    COid sum(*this);
    sum.m_digits.insert(sum.m_digits.end(), tail.m_digits.begin(), tail.m_digits.end());
    return sum;
}

COid COid::operator+(int digit) const
{
    COid sum(*this);
    // A negative number names no instance; the oid is returned unchanged.
    if (digit >= 0) {
        sum.m_digits.push_back(static_cast<uint32_t>(digit));
    }
    return sum;
}

}  // namespace Zor
