// Values arrive as JSON on the controller link and as text from the daemon's writes: any
// JSON becomes a value that converts back to the same JSON, and no conversion of any value
// throws or disagrees with another about what the value is.
#include <cmath>
#include <cstdint>
#include <string>

#include "FuzzSupport.h"
#include "Targets.h"
#include "Zor/Param.h"
#include "ZorJson/ParamJson.h"

namespace {

using Zor::CParam;

bool AllFinite(const CParam& p)
{
    if (p.Type() == Zor::PT_DOUBLE) {
        return std::isfinite(p.ToDouble(0.0));
    }
    for (int i = 0; i < p.Length(); ++i) {
        if (!AllFinite(p.IsMap() ? p[p.GetKey(i)] : p[i])) {
            return false;
        }
    }
    return true;
}

// A value converts, or it does not: the default only comes back in the second case.
void CheckConversions(const CParam& p)
{
    const std::string text = p.ToString("\x01");
    const bool scalar = p.Type() == Zor::PT_STRING || p.Type() == Zor::PT_INT || p.Type() == Zor::PT_BOOL ||
                        p.Type() == Zor::PT_DOUBLE;
    FUZZ_CHECK(scalar == (text != "\x01" || p.ToString("\x02") != "\x02"),
               "ToString of type " + std::to_string(p.Type()));
    FUZZ_CHECK(p.ToChar('\x01') == (scalar && !text.empty() ? text[0] : '\x01'), text);

    const int64_t a = p.ToInt64(INT64_MIN);
    const int64_t b = p.ToInt64(INT64_MAX);
    const bool isInt = !(a == INT64_MIN && b == INT64_MAX);
    FUZZ_CHECK(!isInt || a == b, text);
    if (isInt) {
        const bool fits32 = a >= INT32_MIN && a <= INT32_MAX;
        FUZZ_CHECK(p.ToInt32(7) == (fits32 ? static_cast<int32_t>(a) : 7), text);
        const bool fitsU32 = a >= 0 && a <= static_cast<int64_t>(UINT32_MAX);
        FUZZ_CHECK(p.ToUInt32(7u) == (fitsU32 ? static_cast<uint32_t>(a) : 7u), text);
    } else {
        FUZZ_CHECK(p.ToInt32(7) == 7 && p.ToUInt32(7u) == 7u, text);
    }

    const double nan = std::nan("");
    const double d = p.ToDouble(nan);
    if (p.Type() == Zor::PT_STRING && isInt) {
        // A whole-text integer is also a number, and the same one.
        FUZZ_CHECK(d == static_cast<double>(a), text);
    }
    if (!std::isnan(d)) {
        FUZZ_CHECK(p.ToBool(false) == (d != 0.0) && p.ToBool(true) == (d != 0.0), text);
    }
    if (p.Type() == Zor::PT_DOUBLE && std::isfinite(d) && std::fpclassify(d) != FP_SUBNORMAL) {
        // A double written as text (the daemon writes every value so) reads back the same.
        FUZZ_CHECK(CParam::String(text).ToDouble(nan) == d, text);
    }
    if (p.Type() == Zor::PT_INT) {
        FUZZ_CHECK(CParam::String(text).ToInt64(0) == a && CParam::String(text).ToInt64(1) == a, text);
    }

    for (int i = 0; i < p.Length(); ++i) {
        if (p.IsMap()) {
            const std::string key = p.GetKey(i);
            FUZZ_CHECK(p.KeyExists(key), key);
            CheckConversions(p[key]);
        } else {
            CheckConversions(p[i]);
        }
    }
}

}  // namespace

namespace Fuzz {

int ZorParam(const uint8_t* data, size_t size)
{
    const std::string input(reinterpret_cast<const char*>(data), size);

    // The raw bytes as a text value, as a write from the daemon carries them.
    CheckConversions(CParam::String(input));

    const Zor::Json json = Zor::Json::parse(input, nullptr, false);
    if (json.is_discarded()) {
        return 0;
    }
    const CParam value = Zor::ParamFromJson(json);
    CheckConversions(value);

    // JSON has no infinities: a number beyond the double range cannot come back as itself.
    if (AllFinite(value)) {
        const CParam again = Zor::ParamFromJson(Zor::ParamToJson(value));
        FUZZ_CHECK(again == value, input);
    }

    // Copies and assignment, also of a value into a part of itself.
    CParam copy(value);
    FUZZ_CHECK(copy == value, "");
    if (copy.Length() > 0) {
        copy = copy.IsMap() ? copy[copy.GetKey(0)] : copy[0];
        FUZZ_CHECK(copy == (value.IsMap() ? value[value.GetKey(0)] : value[0]), "");
    }
    return 0;
}

}  // namespace Fuzz
