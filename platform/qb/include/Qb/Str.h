// printf-style formatting into std::string and number parsing with a default.
#pragma once

#include <string>
#include <vector>

#include "Qb/Types.h"

namespace Qb {
namespace Str {

std::string Format(const char* fmt, ...) __attribute__((format(printf, 1, 2)));

// Whole-text conversions: surrounding blanks are allowed, anything else makes the default.
int32 ToInt32(const std::string& text, int32 def);
uint32 ToUInt32(const std::string& text, uint32 def);
int64 ToInt64(const std::string& text, int64 def);
// Decimal only; "nan", "inf" and out-of-range values give the default.
double ToDouble(const std::string& text, double def);
// "true"/"false" (any case) and whole integers (non-zero is true).
bool ToBool(const std::string& text, bool def);

// Without leading and trailing blanks (space, tab, CR, LF, VT, FF).
std::string Trim(const std::string& text);
// Every field, empty ones included ("a,,b," gives 4); an empty text gives none.
std::vector<std::string> Split(const std::string& text, char sep);

}  // namespace Str
}  // namespace Qb
