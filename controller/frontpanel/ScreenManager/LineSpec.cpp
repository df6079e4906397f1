#include "ScreenManager/LineSpec.h"

#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "Lines/BissKeyLine.h"
#include "Lines/GenericDisplayLine.h"
#include "Lines/GenericHexNumLine.h"
#include "Lines/GenericIpLine.h"
#include "Lines/GenericList.h"
#include "Lines/GenericStringLine.h"
#include "Lines/LineNumber.h"
#include "Zor/Param.h"

const char* const kCard = "<card>";
const char* const kEach = ".%";

namespace {

std::string Safe(const char* text)
{
    return text != nullptr ? text : "";
}

// A checked pattern: literal text, one conversion of a number, literal text ("%%" allowed).
struct Pattern_t {
    std::string before;  // up to and including the flags, width and precision
    char conversion;
    std::string after;
};

bool ParsePattern(const std::string& format, Pattern_t* pPattern)
{
    size_t start = std::string::npos;
    for (size_t i = 0; i < format.size(); ++i) {
        if (format[i] != '%')
            continue;
        if (i + 1 < format.size() && format[i + 1] == '%') {
            ++i;
            continue;
        }
        if (start != std::string::npos)
            return false;  // a second conversion
        start = i;
    }
    if (start == std::string::npos)
        return false;
    size_t i = start + 1;
    while (i < format.size() && std::strchr("-+ 0#", format[i]) != nullptr)
        ++i;
    size_t digits = 0;
    while (i < format.size() && std::isdigit(static_cast<unsigned char>(format[i])) && ++digits <= 2)
        ++i;
    if (i < format.size() && format[i] == '.') {
        ++i;
        digits = 0;
        while (i < format.size() && std::isdigit(static_cast<unsigned char>(format[i])) && ++digits <= 2)
            ++i;
    }
    if (i >= format.size() || std::strchr("diuxXfFeEgG", format[i]) == nullptr)
        return false;
    pPattern->before = format.substr(0, i);
    pPattern->conversion = format[i];
    pPattern->after = format.substr(i + 1);
    return true;
}

bool ParseNumber(const std::string& text, double* pValue)
{
    if (text.empty())
        return false;
    char* pEnd = nullptr;
    double value = std::strtod(text.c_str(), &pEnd);
    if (pEnd == text.c_str() || *pEnd != '\0' || value != value)
        return false;
    *pValue = value;
    return true;
}

}  // namespace

bool FormatNumber(const std::string& format, const std::string& text, double scale, std::string* pOut)
{
    Pattern_t pattern;
    double value = 0.0;
    if (!ParsePattern(format, &pattern) || !ParseNumber(text, &value))
        return false;
    value *= scale;
    std::string fmt = pattern.before;
    char buffer[128];
    int n = 0;
    // The pattern is checked above: one conversion, at most two digits of width and
    // precision, so it fits the buffer.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
    if (std::strchr("diuxX", pattern.conversion) != nullptr) {
        if (value > 9.2e18 || value < -9.2e18)
            return false;
        fmt += "ll";
        fmt += pattern.conversion;
        fmt += pattern.after;
        n = std::snprintf(buffer, sizeof(buffer), fmt.c_str(), static_cast<long long>(value));
    } else {
        fmt += pattern.conversion;
        fmt += pattern.after;
        n = std::snprintf(buffer, sizeof(buffer), fmt.c_str(), value);
    }
#pragma GCC diagnostic pop
    if (n < 0 || n >= static_cast<int>(sizeof(buffer)))
        return false;
    *pOut = buffer;
    return true;
}

CLineSpec::CLineSpec(Kind_e kindIn, const char* labelIn, const char* objectIn, const char* instanceIn)
    : kind(kindIn),
      label(Safe(labelIn)),
      object(Safe(objectIn)),
      instance(Safe(instanceIn)),
      scale(1.0),
      readOnly(false),
      charSet(0),
      width(0),
      decimals(0),
      min(0.0),
      max(0.0)
{
}

CLineSpec& CLineSpec::Unit(const char* text)
{
    unit = Safe(text);
    return *this;
}

CLineSpec& CLineSpec::Format(const char* text)
{
    format = Safe(text);
    return *this;
}

CLineSpec& CLineSpec::Scale(double factor)
{
    scale = factor;
    return *this;
}

CLineSpec& CLineSpec::Map(std::initializer_list<std::pair<const char*, const char*>> texts)
{
    for (const auto& text : texts)
        map.emplace_back(Safe(text.first), Safe(text.second));
    return *this;
}

CLineSpec& CLineSpec::Missing(const char* text)
{
    missing = Safe(text);
    return *this;
}

CLineSpec& CLineSpec::Clip(const char* text)
{
    clip = Safe(text);
    return *this;
}

CLineSpec& CLineSpec::ReadOnly()
{
    readOnly = true;
    return *this;
}

CLineSpec& CLineSpec::Opens(const char* screen)
{
    target = Safe(screen);
    return *this;
}

CLineSpec& CLineSpec::Choice(const char* text, const char* value)
{
    entries.emplace_back(Safe(text), Safe(value));
    return *this;
}

std::string CLineSpec::Shown(const Zor::CParam& value) const
{
    std::string raw = value.IsNull() ? std::string() : value.ToString("");
    if (raw.empty())
        return missing;
    for (const auto& text : map)
        if (text.first == raw)
            return text.second;
    for (const auto& entry : entries)
        if (entry.second == raw)
            return entry.first;  // a list shown on a status page
    std::string shown = raw;
    if (!format.empty())
        FormatNumber(format, raw, scale, &shown);  // not a number: shown as it is
    if (!clip.empty() && shown.size() >= clip.size())
        shown = clip;
    return shown + unit;
}

bool CLineSpec::IsText(bool editable) const
{
    if (kind == KIND_TARGET || kind == KIND_HEADING)
        return false;
    return kind == KIND_TEXT || !editable;
}

std::string CLineSpec::LabelFor(const std::string& inst) const
{
    size_t hash = label.find('#');
    if (instance != kEach || hash == std::string::npos)
        return label;
    size_t point = inst.rfind('.');
    std::string last = point == std::string::npos ? inst : inst.substr(point + 1);
    return label.substr(0, hash) + last + label.substr(hash + 1);
}

CGenericLine* CLineSpec::MakeLine(bool editable) const
{
    if (kind == KIND_HEADING) {
        CGenericDisplayLine* pLine = new CGenericDisplayLine();
        pLine->SetSelectable(false);
        return pLine;
    }
    if (kind == KIND_TARGET || IsText(editable))
        return new CGenericDisplayLine();
    CGenericLine* pLine = nullptr;
    switch (kind) {
        case KIND_LIST: {
            CGenericList* pList = new CGenericList();
            for (const auto& entry : entries)
                pList->AddEntry(entry.first, entry.second);
            pLine = pList;
            break;
        }
        case KIND_ENTRY:
            pLine = new CGenericStringLine(width, charSet);
            break;
        case KIND_NUMBER:
            pLine = new CLineNumber(width, decimals, min, max);
            break;
        case KIND_HEX:
            pLine = new CGenericHexNumLine(width, static_cast<Qb::uint32>(max));
            break;
        case KIND_ADDRESS:
            pLine = new CGenericIpLine();
            break;
        case KIND_KEY:
            pLine = new CBissKeyLine(width);
            break;
        default:
            pLine = new CGenericDisplayLine();
            break;
    }
    if (!unit.empty())
        pLine->SetSuffix(unit.c_str());
    pLine->SetReadOnly(readOnly);
    return pLine;
}

CLineSpec Text(const char* label, const char* object, const char* instance, const char* format)
{
    CLineSpec spec(CLineSpec::KIND_TEXT, label, object, instance);
    spec.format = Safe(format);
    return spec;
}

CLineSpec List(const char* label, const char* object, const char* instance,
               std::initializer_list<const char*> texts)
{
    CLineSpec spec(CLineSpec::KIND_LIST, label, object, instance);
    for (const char* text : texts)
        spec.entries.emplace_back(Safe(text), Safe(text));
    return spec;
}

CLineSpec Entry(const char* label, const char* object, const char* instance, CharSet set, int maxLength)
{
    CLineSpec spec(CLineSpec::KIND_ENTRY, label, object, instance);
    spec.charSet = static_cast<int>(set);
    spec.width = maxLength;
    return spec;
}

CLineSpec Number(const char* label, const char* object, const char* instance, int width, int decimals,
                 double min, double max)
{
    CLineSpec spec(CLineSpec::KIND_NUMBER, label, object, instance);
    spec.width = width;
    spec.decimals = decimals;
    spec.min = min;
    spec.max = max;
    return spec;
}

CLineSpec Hex(const char* label, const char* object, const char* instance, int digits, Qb::uint32 max)
{
    CLineSpec spec(CLineSpec::KIND_HEX, label, object, instance);
    spec.width = digits;
    spec.max = max;
    return spec;
}

CLineSpec Address(const char* label, const char* object, const char* instance)
{
    return CLineSpec(CLineSpec::KIND_ADDRESS, label, object, instance);
}

CLineSpec Key(const char* label, const char* object, const char* instance, int digits)
{
    CLineSpec spec(CLineSpec::KIND_KEY, label, object, instance);
    spec.width = digits;
    return spec;
}

CLineSpec Target(const char* label, const char* screen)
{
    CLineSpec spec(CLineSpec::KIND_TARGET, label, nullptr, nullptr);
    spec.target = Safe(screen);
    return spec;
}

CLineSpec Heading(const char* label)
{
    return CLineSpec(CLineSpec::KIND_HEADING, label, nullptr, nullptr);
}
