#include "ScreenManager/Rows.h"

#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "Lines/AddRowIpLine.h"
#include "Lines/AddRowListLine.h"
#include "Lines/BissKeyLine.h"
#include "Lines/EditRemoveIpLine.h"
#include "Lines/GenericCommandLine.h"
#include "Lines/GenericDateLine.h"
#include "Lines/GenericDisplayLine.h"
#include "Lines/GenericHexNumLine.h"
#include "Lines/GenericIpLine.h"
#include "Lines/GenericList.h"
#include "Lines/GenericLongList.h"
#include "Lines/GenericStringLine.h"
#include "Lines/GenericTimeLine.h"
#include "Lines/LineNumber.h"
#include "Client/TavClient.h"
#include "Zor/Param.h"

const char* const kCard = "<card>";
const char* const kEach = ".%";
const char* const kInstanceNumber = "#";

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

// A list whose last entry stands for every value the others do not name ("User" beside the
// fixed LO offsets, "Unknown" beside the inputs): it is shown for such a value, and
// choosing it writes nothing (the value is set elsewhere, or left as it is).
class CListWithOther : public CGenericList {
public:
    bool SetValue(const char* value) override
    {
        return CGenericList::SetValue(value) || CGenericList::SetValue("");
    }
    bool SetValue(const std::string& value) override { return SetValue(value.c_str()); }
    Qb::uint32 WriteObject(const std::string& value) override
    {
        return value.empty() ? 0 : CGenericList::WriteObject(value);
    }
};

// The address of a row of a table keyed by address, bound to the row's status: the address
// is the instance's last four numbers (".4.1.1.4.10.50.1.10" is 10.50.1.10).
class CEditRowIpLine : public CEditRemoveIpLine {
public:
    CEditRowIpLine()
    {
        SetRemoveHandler([](CEditRemoveIpLine& line) {
            if (line.GetClient() != nullptr)
                line.GetClient()->SendData(line.GetObjectName(), line.GetObjectInstance(), kDestroy);
        });
    }
    void RefreshValue() override
    {
        if (!m_bEditing)
            SetValue(Split().second);
    }
    // A new address is a new row: made first, so a refused one leaves the old row as it was.
    Qb::uint32 WriteObject(const std::string& address) override
    {
        const std::pair<std::string, std::string> old = Split();
        if (m_pClient == nullptr || old.first.empty() || address == old.second)
            return 0;
        if (!m_pClient->SendData(m_strObjectName, old.first + "." + address, kCreateAndGo))
            return 0;
        return m_pClient->SendData(m_strObjectName, m_strObjectInstance, kDestroy) ? 1 : 0;
    }

private:
    static constexpr const char* kCreateAndGo = "4";
    static constexpr const char* kDestroy = "6";

    // The instance before the address, and the address.
    std::pair<std::string, std::string> Split() const
    {
        size_t at = m_strObjectInstance.size();
        for (int dots = 0; dots < 4 && at != std::string::npos && at > 0; ++dots)
            at = m_strObjectInstance.rfind('.', at - 1);
        if (at == std::string::npos || at == 0)
            return {std::string(), std::string()};
        return {m_strObjectInstance.substr(0, at), m_strObjectInstance.substr(at + 1)};
    }
};

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

// --- Values ---

std::string CRowValues::Resolve(const std::string& inst) const
{
    if (inst.empty())
        return m_strInstance;
    if (inst == kCard)
        return m_strCard;
    if (inst == kEach)
        return m_strInstance;
    return inst;
}

const Zor::CParam& CRowValues::Param(const std::string& object, const std::string& inst) const
{
    static const Zor::CParam kNull;
    const std::string key = Resolve(inst);
    if (!m_rValues.IsMap() || !m_rValues.KeyExists(object))
        return kNull;
    const Zor::CParam& instances = m_rValues[object];
    if (!instances.IsMap() || !instances.KeyExists(key))
        return kNull;
    return instances[key];
}

std::string CRowValues::operator()(const std::string& object, const std::string& inst) const
{
    const Zor::CParam& value = Param(object, inst);
    return value.IsNull() ? std::string() : value.ToString("");
}

// --- Rows ---

CRow::CRow(Kind_e kindIn, const char* labelIn, const char* objectIn, const char* instanceIn)
    : kind(kindIn),
      label(Safe(labelIn)),
      object(Safe(objectIn)),
      instance(Safe(instanceIn)),
      fromCardOnly(false),
      scale(1.0),
      readOnly(false),
      selectable(true),
      twoRows(false),
      present(true),
      charSet(0),
      width(0),
      decimals(0),
      min(0.0),
      max(0.0)
{
}

CRow& CRow::Unit(const char* text)
{
    unit = Safe(text);
    return *this;
}

CRow& CRow::Format(const char* text)
{
    format = Safe(text);
    return *this;
}

CRow& CRow::Scale(double factor)
{
    scale = factor;
    return *this;
}

CRow& CRow::Map(std::initializer_list<std::pair<const char*, const char*>> texts)
{
    for (const auto& text : texts)
        map.emplace_back(Safe(text.first), Safe(text.second));
    return *this;
}

CRow& CRow::Missing(const char* text)
{
    missing = Safe(text);
    return *this;
}

CRow& CRow::Clip(const char* text)
{
    clip = Safe(text);
    return *this;
}

CRow& CRow::ReadOnly()
{
    readOnly = true;
    return *this;
}

CRow& CRow::Unselectable()
{
    selectable = false;
    return *this;
}

CRow& CRow::TwoRows()
{
    twoRows = true;
    return *this;
}

CRow& CRow::Opens(const char* screen)
{
    target = Safe(screen);
    return *this;
}

CRow& CRow::Choice(const char* text, const char* controllerText)
{
    entries.emplace_back(Safe(text), Safe(controllerText));
    return *this;
}

CRow& CRow::When(bool on)
{
    present = present && on;
    return *this;
}

CRow& CRow::From(const char* objectIn, const char* key, bool cardOnly)
{
    fromObject = Safe(objectIn);
    fromKey = Safe(key);
    fromCardOnly = cardOnly;
    return *this;
}

CRow& CRow::FromWhere(const char* objectIn, const char* valueIn)
{
    Cond_t cond;
    cond.object = Safe(objectIn);
    cond.values.push_back(Safe(valueIn));
    fromWhere.push_back(cond);
    return *this;
}

CRow& CRow::Unknown(const char* text)
{
    unknown = Safe(text);
    return *this;
}

namespace {

CRow::Cond_t Cond(const char* object, const char* instance, std::initializer_list<const char*> values,
                  const char* text)
{
    CRow::Cond_t cond;
    cond.object = Safe(object);
    cond.instance = Safe(instance);
    for (const char* value : values)
        cond.values.push_back(Safe(value));
    cond.text = Safe(text);
    return cond;
}

bool Holds(const CRow::Cond_t& cond, const CRowValues& values)
{
    const std::string value = values(cond.object, cond.instance);
    for (const std::string& wanted : cond.values)
        if (wanted == value)
            return true;
    return false;
}

}  // namespace

CRow& CRow::LabelBy(const char* objectIn, const char* inst,
                    std::initializer_list<std::pair<const char*, const char*>> texts)
{
    for (const auto& text : texts)
        labels.push_back(Cond(objectIn, inst, {text.first}, text.second));
    return *this;
}

CRow& CRow::ShownWhen(const char* objectIn, const char* inst, std::initializer_list<const char*> values)
{
    shownWhen.push_back(Cond(objectIn, inst, values, "shown"));
    return *this;
}

CRow& CRow::HiddenWhen(const char* objectIn, const char* inst, std::initializer_list<const char*> values)
{
    shownWhen.push_back(Cond(objectIn, inst, values, ""));  // an empty text: the opposite
    return *this;
}

CRow& CRow::Instead(const char* objectIn, const char* inst, const char* valueIn, const char* text)
{
    instead.push_back(Cond(objectIn, inst, {valueIn}, text));
    return *this;
}

CRow& CRow::SuffixWhen(const char* objectIn, const char* inst, const char* valueIn, const char* text)
{
    suffixWhen.push_back(Cond(objectIn, inst, {valueIn}, text));
    return *this;
}

CRow& CRow::Compute(std::initializer_list<const char*> objects, TextFn text)
{
    for (const char* name : objects)
        computeReads.push_back(Safe(name));
    compute = std::move(text);
    return *this;
}

CRow& CRow::Empty(const char* text)
{
    missing = Safe(text);
    return *this;
}

CRow& CRow::Check(AddressCheck rule, const char* line1, const char* line2)
{
    check = std::move(rule);
    checkLine1 = Safe(line1);
    checkLine2 = Safe(line2);
    return *this;
}

std::string CRow::Shown(const Zor::CParam& valueIn) const
{
    return Shown(valueIn, entries);
}

std::string CRow::Shown(const Zor::CParam& valueIn,
                        const std::vector<std::pair<std::string, std::string>>& among) const
{
    std::string raw = valueIn.IsNull() ? std::string() : valueIn.ToString("");
    if (raw.empty())
        return missing;
    for (const auto& text : map)
        if (text.first == raw)
            return text.second;
    for (const auto& entry : among)
        if (entry.second == raw)
            return entry.first;  // a list shown on a status page
    if (!unknown.empty())
        return unknown;  // a list value that no entry has
    std::string shown = raw;
    if (!format.empty())
        FormatNumber(format, raw, scale, &shown);  // not a number: shown as it is
    if (!clip.empty() && shown.size() >= clip.size())
        shown = clip;
    return shown + unit;
}

std::string CRow::ShownFor(const CRowValues& values) const
{
    for (const Cond_t& cond : instead)
        if (Holds(cond, values))
            return cond.text;
    std::string shown;
    if (compute) {
        shown = compute(values);
        if (shown.empty())
            shown = missing;
    } else if (!fromObject.empty()) {
        shown = Shown(values.Param(object, instance), EntriesFrom(values, values.Resolve(kCard)));
    } else {
        shown = Shown(values.Param(object, instance));
    }
    return shown + SuffixFor(values);
}

std::string CRow::SuffixFor(const CRowValues& values) const
{
    std::string suffix;
    for (const Cond_t& cond : suffixWhen)
        if (Holds(cond, values))
            suffix += cond.text;
    return suffix;
}

bool CRow::IsShown(const CRowValues& values) const
{
    for (const Cond_t& cond : shownWhen)
        if (Holds(cond, values) != !cond.text.empty())
            return false;
    return true;
}

std::vector<std::pair<std::string, std::string>> CRow::EntriesFrom(const CRowValues& values,
                                                                   const std::string& card) const
{
    std::vector<std::pair<std::string, std::string>> found = entries;
    if (fromObject.empty() || !values.All().IsMap() || !values.All().KeyExists(fromObject))
        return found;
    const Zor::CParam& texts = values.All()[fromObject];
    for (int i = 0; texts.IsMap() && i < texts.Length(); ++i) {
        const std::string inst = texts.GetKey(i);
        if (fromCardOnly && inst.compare(0, card.size() + 1, card + ".") != 0)
            continue;
        bool wanted = true;
        for (const Cond_t& cond : fromWhere)
            wanted = wanted && values(cond.object, inst) == cond.values.front();
        if (!wanted)
            continue;
        std::string text = texts[inst].ToString("");
        std::string written = text;
        for (const auto& renamed : map)
            if (renamed.first == text)
                text = renamed.second;
        if (fromKey == kInstanceNumber) {
            written = inst.substr(inst.rfind('.') + 1);
        } else if (!fromKey.empty()) {
            const Zor::CParam& key = values.Param(fromKey, inst);
            if (key.IsNull())
                continue;  // an entry the controller cannot be told
            written = key.ToString("");
        }
        found.emplace_back(text, written);
    }
    return found;
}

bool CRow::IsText(bool editable) const
{
    switch (kind) {
        case KIND_TARGET:
        case KIND_HEADING:
        case KIND_COMMAND:
        case KIND_ADD_ADDRESS:
        case KIND_ADD_ROW:
        case KIND_RECORD:
        case KIND_END_RECORD:
            return false;
        default:
            return kind == KIND_TEXT || !editable;
    }
}

bool CRow::IsBound(bool editable) const
{
    if (object.empty() || IsText(editable))
        return false;
    return kind != KIND_TARGET && kind != KIND_HEADING && kind != KIND_RECORD && kind != KIND_END_RECORD;
}

std::string CRow::LabelFor(const CRowValues& values) const
{
    for (const Cond_t& cond : labels)
        if (Holds(cond, values))
            return cond.text;
    size_t hash = label.find('#');
    if (instance != kEach || hash == std::string::npos)
        return label;
    const std::string& inst = values.Instance();
    size_t point = inst.rfind('.');
    std::string last = point == std::string::npos ? inst : inst.substr(point + 1);
    return label.substr(0, hash) + last + label.substr(hash + 1);
}

std::vector<std::pair<std::string, std::string>> CRow::Reads() const
{
    std::vector<std::pair<std::string, std::string>> reads;
    if (!object.empty() && kind != KIND_COMMAND && kind != KIND_ADD_ADDRESS && kind != KIND_ADD_ROW)
        reads.emplace_back(object, instance);
    for (const std::string& name : computeReads) {
        size_t point = name.find('.');  // "name.1": read at that instance, not the row's
        if (point == std::string::npos)
            reads.emplace_back(name, instance);
        else
            reads.emplace_back(name.substr(0, point), name.substr(point));
    }
    if (!fromObject.empty()) {
        reads.emplace_back(fromObject, kEach);
        if (!fromKey.empty() && fromKey != kInstanceNumber)
            reads.emplace_back(fromKey, kEach);
        for (const Cond_t& cond : fromWhere)
            reads.emplace_back(cond.object, kEach);
    }
    for (const auto* conds : {&labels, &shownWhen, &instead, &suffixWhen})
        for (const Cond_t& cond : *conds)
            reads.emplace_back(cond.object, cond.instance);
    return reads;
}

CGenericLine* CRow::MakeLine(bool editable) const
{
    if (kind == KIND_HEADING || kind == KIND_RECORD || kind == KIND_END_RECORD) {
        CGenericDisplayLine* pLine = new CGenericDisplayLine();
        pLine->SetSelectable(false);
        return pLine;
    }
    if (kind == KIND_COMMAND) {
        CGenericLine* pLine = new CGenericCommandLine(value);
        pLine->SetReadOnly(readOnly);
        return pLine;
    }
    if (kind == KIND_TARGET || IsText(editable)) {
        CGenericLine* pText = new CGenericDisplayLine();
        pText->SetSelectable(selectable);
        return pText;
    }
    CGenericLine* pLine = nullptr;
    switch (kind) {
        case KIND_LIST: {
            CGenericList* pList = twoRows            ? new CGenericLongList()
                                  : unknown.empty() ? new CGenericList()
                                                    : new CListWithOther();
            for (const auto& entry : entries)
                pList->AddEntry(entry.first, entry.second);
            if (!unknown.empty())
                pList->AddEntry(unknown, "");
            pLine = pList;
            break;
        }
        case KIND_ENTRY:
            pLine = new CGenericStringLine(width, charSet);
            break;
        case KIND_NUMBER:
            pLine = new CLineNumber(width, decimals, min, max);
            break;
        case KIND_HEX: {
            CGenericHexNumLine* pHex = new CGenericHexNumLine(width, static_cast<Qb::uint32>(max));
            pHex->SetDecimalTransfer(decimals != 0);
            pLine = pHex;
            break;
        }
        case KIND_ADDRESS:
            pLine = new CGenericIpLine();
            break;
        case KIND_ADD_ADDRESS: {
            CAddRowIpLine* pAdd = new CAddRowIpLine();
            if (check)
                pAdd->SetAcceptor([this](const Qb::CIpAddress& address) { return check(address.ToString()); });
            pLine = pAdd;
            break;
        }
        case KIND_ADD_ROW: {
            CAddRowListLine* pAdd = new CAddRowListLine(value);
            for (const auto& entry : entries)
                pAdd->AddEntry(entry.first, entry.second);
            pLine = pAdd;
            break;
        }
        case KIND_EDIT_ADDRESS: {
            CEditRowIpLine* pEdit = new CEditRowIpLine();
            if (check)
                pEdit->SetAcceptor([this](const Qb::CIpAddress& address) { return check(address.ToString()); });
            pLine = pEdit;
            break;
        }
        case KIND_KEY:
            pLine = new CBissKeyLine(width);
            break;
        case KIND_DATE:
            pLine = new CGenericDateLine();
            break;
        case KIND_TIME:
            pLine = new CGenericTimeLine();
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

CRow Text(const char* label, const char* object, const char* instance, const char* format)
{
    CRow row(CRow::KIND_TEXT, label, object, instance);
    row.format = Safe(format);
    return row;
}

CRow List(const char* label, const char* object, const char* instance, std::initializer_list<const char*> texts)
{
    CRow row(CRow::KIND_LIST, label, object, instance);
    for (const char* text : texts)
        row.entries.emplace_back(Safe(text), Safe(text));
    return row;
}

CRow OnOff(const char* label, const char* object, const char* instance)
{
    return List(label, object, instance, {"Enabled", "Disabled"});
}

CRow Entry(const char* label, const char* object, const char* instance, CharSet set, int maxLength)
{
    CRow row(CRow::KIND_ENTRY, label, object, instance);
    row.charSet = static_cast<int>(set);
    row.width = maxLength;
    return row;
}

CRow Number(const char* label, const char* object, const char* instance, int width, int decimals, double min,
            double max)
{
    CRow row(CRow::KIND_NUMBER, label, object, instance);
    row.width = width;
    row.decimals = decimals;
    row.min = min;
    row.max = max;
    return row;
}

CRow Hex(const char* label, const char* object, const char* instance, int digits, Qb::uint32 max)
{
    CRow row(CRow::KIND_HEX, label, object, instance);
    row.width = digits;
    row.max = max;
    return row;
}

CRow Pid(const char* label, const char* object, const char* instance)
{
    CRow row = Hex(label, object, instance, 4, 0x1FFF);
    row.decimals = 1;  // hex rows: the controller keeps the number in decimal
    return row;
}

CRow Address(const char* label, const char* object, const char* instance)
{
    return CRow(CRow::KIND_ADDRESS, label, object, instance);
}

CRow Key(const char* label, const char* object, const char* instance, int digits)
{
    CRow row(CRow::KIND_KEY, label, object, instance);
    row.width = digits;
    return row;
}

CRow Date(const char* label, const char* object, const char* instance)
{
    return CRow(CRow::KIND_DATE, label, object, instance);
}

CRow Time(const char* label, const char* object, const char* instance)
{
    return CRow(CRow::KIND_TIME, label, object, instance);
}

CRow Target(const char* label, const char* screen)
{
    CRow row(CRow::KIND_TARGET, label, nullptr, nullptr);
    row.target = Safe(screen);
    return row;
}

CRow Heading(const char* label)
{
    return CRow(CRow::KIND_HEADING, label, nullptr, nullptr);
}

CRow Show(const char* label, const char* instance, std::initializer_list<const char*> objects, CRow::TextFn text)
{
    CRow row(CRow::KIND_TEXT, label, nullptr, instance);
    row.Compute(objects, std::move(text));
    return row;
}

CRow Command(const char* label, const char* object, const char* instance, const char* value)
{
    CRow row(CRow::KIND_COMMAND, label, object, instance);
    row.value = Safe(value);
    return row;
}

CRow EditAddress(const char* label, const char* rowStatus)
{
    return CRow(CRow::KIND_EDIT_ADDRESS, label, rowStatus, kEach);
}

CRow Record(const char* object, const char* within)
{
    return CRow(CRow::KIND_RECORD, nullptr, object, within);
}

CRow EndRecord()
{
    return CRow(CRow::KIND_END_RECORD, nullptr, nullptr, nullptr);
}

CRow AddAddress(const char* label, const char* rowStatus, const char* within)
{
    return CRow(CRow::KIND_ADD_ADDRESS, label, rowStatus, within);
}

CRow AddRow(const char* label, const char* rowStatus, const char* column, const char* within)
{
    CRow row(CRow::KIND_ADD_ROW, label, rowStatus, within);
    row.value = Safe(column);
    return row;
}
