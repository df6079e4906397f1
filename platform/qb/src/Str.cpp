#include "Qb/Str.h"

#include <strings.h>

#include <cerrno>
#include <cmath>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <limits>

namespace Qb {
namespace Str {

namespace {

const char* const kBlanks = " \t\r\n\v\f";

// The trimmed text when it is one whole signed decimal integer, else false.
bool ParseSigned(const std::string& text, long long& out)
{
    const std::string t = Trim(text);
    if (t.empty())
        return false;
    char* end = nullptr;
    errno = 0;
    const long long v = std::strtoll(t.c_str(), &end, 10);
    if (errno != 0 || end != t.c_str() + t.size())
        return false;
    out = v;
    return true;
}

bool ParseUnsigned(const std::string& text, unsigned long long& out)
{
    const std::string t = Trim(text);
    // strtoull accepts "-1" and wraps it; a sign here is bad input.
    if (t.empty() || t[0] == '-')
        return false;
    char* end = nullptr;
    errno = 0;
    const unsigned long long v = std::strtoull(t.c_str(), &end, 10);
    if (errno != 0 || end != t.c_str() + t.size())
        return false;
    out = v;
    return true;
}

}  // namespace

std::string Format(const char* fmt, ...)
{
    va_list args;
    va_start(args, fmt);
    va_list copy;
    va_copy(copy, args);
    char small[256];
    const int n = vsnprintf(small, sizeof small, fmt, args);
    va_end(args);
    std::string result;
    if (n < 0) {
        result.clear();
    } else if (static_cast<size_t>(n) < sizeof small) {
        result.assign(small, static_cast<size_t>(n));
    } else {
        result.resize(static_cast<size_t>(n) + 1);
        vsnprintf(&result[0], result.size(), fmt, copy);
        result.resize(static_cast<size_t>(n));
    }
    va_end(copy);
    return result;
}

int32 ToInt32(const std::string& text, int32 def)
{
    long long v = 0;
    if (!ParseSigned(text, v) || v < std::numeric_limits<int32>::min() ||
        v > std::numeric_limits<int32>::max())
        return def;
    return static_cast<int32>(v);
}

uint32 ToUInt32(const std::string& text, uint32 def)
{
    unsigned long long v = 0;
    if (!ParseUnsigned(text, v) || v > std::numeric_limits<uint32>::max())
        return def;
    return static_cast<uint32>(v);
}

int64 ToInt64(const std::string& text, int64 def)
{
    long long v = 0;
    if (!ParseSigned(text, v))
        return def;
    return static_cast<int64>(v);
}

double ToDouble(const std::string& text, double def)
{
    const std::string t = Trim(text);
    if (t.empty())
        return def;
    char* end = nullptr;
    errno = 0;
    const double v = std::strtod(t.c_str(), &end);
    // Out of range, "nan" and "inf" are not numbers a screen can show.
    if (errno != 0 || end != t.c_str() + t.size() || !std::isfinite(v))
        return def;
    return v;
}

bool ToBool(const std::string& text, bool def)
{
    const std::string t = Trim(text);
    if (strcasecmp(t.c_str(), "true") == 0)
        return true;
    if (strcasecmp(t.c_str(), "false") == 0)
        return false;
    long long v = 0;
    if (!ParseSigned(t, v))
        return def;
    return v != 0;
}

std::string Trim(const std::string& text)
{
    const size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string::npos)
        return std::string();
    const size_t last = text.find_last_not_of(kBlanks);
    return text.substr(first, last - first + 1);
}

std::vector<std::string> Split(const std::string& text, char sep)
{
    std::vector<std::string> fields;
    if (text.empty())
        return fields;
    size_t start = 0;
    for (;;) {
        const size_t pos = text.find(sep, start);
        if (pos == std::string::npos) {
            fields.push_back(text.substr(start));
            return fields;
        }
        fields.push_back(text.substr(start, pos - start));
        start = pos + 1;
    }
}

}  // namespace Str
}  // namespace Qb
