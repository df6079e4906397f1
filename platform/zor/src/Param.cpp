#include "Zor/Param.h"

#include <cerrno>
#include <cinttypes>
#include <climits>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>

namespace Zor {

namespace {

const CParam& NullParam()
{
    static const CParam kNull;
    return kNull;
}

// Whole-text signed decimal integer: optional sign, digits, nothing else.
bool ParseInt64(const std::string& text, int64_t& out)
{
    if (text.empty()) {
        return false;
    }
    size_t i = (text[0] == '-' || text[0] == '+') ? 1 : 0;
    if (i == text.size()) {
        return false;
    }
    for (size_t k = i; k < text.size(); ++k) {
        if (text[k] < '0' || text[k] > '9') {
            return false;
        }
    }
    errno = 0;
    char* end = nullptr;
    long long v = std::strtoll(text.c_str(), &end, 10);
    if (errno == ERANGE || end != text.c_str() + text.size()) {
        return false;
    }
    out = static_cast<int64_t>(v);
    return true;
}

// Whole-text decimal number (no hex, no inf/nan, no blanks).
bool ParseDouble(const std::string& text, double& out)
{
    if (text.empty()) {
        return false;
    }
    bool digit = false;
    for (char c : text) {
        if (c >= '0' && c <= '9') {
            digit = true;
        } else if (c != '+' && c != '-' && c != '.' && c != 'e' && c != 'E') {
            return false;
        }
    }
    if (!digit) {
        return false;
    }
    errno = 0;
    char* end = nullptr;
    double v = std::strtod(text.c_str(), &end);
    if (errno == ERANGE || end != text.c_str() + text.size() || !std::isfinite(v)) {
        return false;
    }
    out = v;
    return true;
}

std::string DoubleText(double v)
{
    char buf[40];
    std::snprintf(buf, sizeof buf, "%.15g", v);
    if (std::strtod(buf, nullptr) != v) {
        std::snprintf(buf, sizeof buf, "%.17g", v);
    }
    return buf;
}

}  // namespace

CParam::CParam() : m_eType(PT_NULL), m_iValue(0), m_dValue(0.0), m_bValue(false) {}

CParam::CParam(ParamType_e type) : m_eType(type), m_iValue(0), m_dValue(0.0), m_bValue(false) {}

CParam::CParam(const CParam& other) = default;

CParam& CParam::operator=(const CParam& other)
{
    if (this != &other) {
        // Copy first: other may live inside this value (a list element or map entry).
        CParam copy(other);
        m_eType = copy.m_eType;
        m_strValue.swap(copy.m_strValue);
        m_iValue = copy.m_iValue;
        m_dValue = copy.m_dValue;
        m_bValue = copy.m_bValue;
        m_list.swap(copy.m_list);
        m_map.swap(copy.m_map);
    }
    return *this;
}

CParam::CParam(CParam&& other) noexcept
    : m_eType(other.m_eType),
      m_strValue(std::move(other.m_strValue)),
      m_iValue(other.m_iValue),
      m_dValue(other.m_dValue),
      m_bValue(other.m_bValue),
      m_list(std::move(other.m_list)),
      m_map(std::move(other.m_map))
{
    other.Reset(PT_NULL);
}

CParam& CParam::operator=(CParam&& other) noexcept
{
    if (this != &other) {
        // Take other out first: it may live inside this value (a list element or map entry).
        CParam taken(std::move(other));
        m_eType = taken.m_eType;
        m_strValue.swap(taken.m_strValue);
        m_iValue = taken.m_iValue;
        m_dValue = taken.m_dValue;
        m_bValue = taken.m_bValue;
        m_list.swap(taken.m_list);
        m_map.swap(taken.m_map);
    }
    return *this;
}

CParam::~CParam() = default;

CParam CParam::String(const std::string& s)
{
    CParam p(PT_STRING);
    p.m_strValue = s;
    return p;
}

CParam CParam::Int(int64_t v)
{
    CParam p(PT_INT);
    p.m_iValue = v;
    return p;
}

CParam CParam::Bool(bool v)
{
    CParam p(PT_BOOL);
    p.m_bValue = v;
    return p;
}

CParam CParam::Double(double v)
{
    CParam p(PT_DOUBLE);
    p.m_dValue = v;
    return p;
}

void CParam::Reset(ParamType_e type)
{
    m_eType = type;
    m_strValue.clear();
    m_iValue = 0;
    m_dValue = 0.0;
    m_bValue = false;
    m_list.clear();
    m_map.clear();
}

void CParam::Initialize()
{
    Reset(PT_NULL);
}

void CParam::Clear(ParamType_e type)
{
    Reset(type);
}

void CParam::Assign(const CParam& other)
{
    *this = other;
}

void CParam::Assign(const char* s)
{
    *this = String(s ? s : "");
}

void CParam::Assign(int v)
{
    *this = Int(v);
}

void CParam::Assign(const std::string& s)
{
    *this = String(s);
}

void CParam::AddParam(const CParam& item)
{
    if (m_eType == PT_NULL) {
        Reset(PT_LIST);
    }
    if (m_eType == PT_LIST) {
        m_list.push_back(item);
    }
}

const CParam& CParam::operator[](int i) const
{
    if (m_eType != PT_LIST || i < 0 || static_cast<size_t>(i) >= m_list.size()) {
        return NullParam();
    }
    return m_list[static_cast<size_t>(i)];
}

CParam& CParam::operator[](int i)
{
    if (m_eType != PT_LIST) {
        // Indexing a scalar or map for writing turns it into a list, as a null would.
        Reset(PT_LIST);
    }
    if (i < 0) {
        // No element can be named by a negative index; hand out a scratch value.
        thread_local CParam scratch;
        scratch.Initialize();
        return scratch;
    }
    if (static_cast<size_t>(i) >= m_list.size()) {
        m_list.resize(static_cast<size_t>(i) + 1);
    }
    return m_list[static_cast<size_t>(i)];
}

const CParam& CParam::operator[](const std::string& key) const
{
    if (m_eType == PT_MAP) {
        for (const auto& entry : m_map) {
            if (entry.first == key) {
                return entry.second;
            }
        }
    }
    return NullParam();
}

CParam& CParam::operator[](const std::string& key)
{
    if (m_eType != PT_MAP) {
        Reset(PT_MAP);
    }
    for (auto& entry : m_map) {
        if (entry.first == key) {
            return entry.second;
        }
    }
    m_map.emplace_back(key, CParam());
    return m_map.back().second;
}

bool CParam::KeyExists(const std::string& key) const
{
    if (m_eType != PT_MAP) {
        return false;
    }
    for (const auto& entry : m_map) {
        if (entry.first == key) {
            return true;
        }
    }
    return false;
}

std::string CParam::GetKey(int i) const
{
    if (m_eType != PT_MAP || i < 0 || static_cast<size_t>(i) >= m_map.size()) {
        return "";
    }
    return m_map[static_cast<size_t>(i)].first;
}

int CParam::Length() const
{
    if (m_eType == PT_LIST) {
        return static_cast<int>(m_list.size());
    }
    if (m_eType == PT_MAP) {
        return static_cast<int>(m_map.size());
    }
    return 0;
}

std::string CParam::ToString(const std::string& def) const
{
    switch (m_eType) {
        case PT_STRING:
            return m_strValue;
        case PT_INT: {
            char buf[24];
            std::snprintf(buf, sizeof buf, "%" PRId64, m_iValue);
            return buf;
        }
        case PT_BOOL:
            return m_bValue ? "true" : "false";
        case PT_DOUBLE:
            return DoubleText(m_dValue);
        default:
            return def;
    }
}

int64_t CParam::ToInt64(int64_t def) const
{
    switch (m_eType) {
        case PT_INT:
            return m_iValue;
        case PT_BOOL:
            return m_bValue ? 1 : 0;
        case PT_DOUBLE:
            // Doubles convert by truncation toward zero while they fit.
            return (m_dValue > -9.2e18 && m_dValue < 9.2e18) ? static_cast<int64_t>(m_dValue) : def;
        case PT_STRING: {
            if (m_strValue == "true" || m_strValue == "false") {
                return m_strValue == "true" ? 1 : 0;
            }
            int64_t v = 0;
            return ParseInt64(m_strValue, v) ? v : def;
        }
        default:
            return def;
    }
}

namespace {
// True (and the value) when p converts to an integer: a value that converts comes back the
// same whatever the default, so two opposite defaults tell the two cases apart.
bool IntegerOf(const CParam& p, int64_t& out)
{
    int64_t a = p.ToInt64(INT64_MIN);
    if (a == INT64_MIN && p.ToInt64(INT64_MAX) == INT64_MAX) {
        return false;
    }
    out = a;
    return true;
}
}  // namespace

int32_t CParam::ToInt32(int32_t def) const
{
    int64_t v = 0;
    if (!IntegerOf(*this, v) || v < INT32_MIN || v > INT32_MAX) {
        return def;
    }
    return static_cast<int32_t>(v);
}

uint32_t CParam::ToUInt32(uint32_t def) const
{
    int64_t v = 0;
    if (!IntegerOf(*this, v) || v < 0 || v > static_cast<int64_t>(UINT32_MAX)) {
        return def;
    }
    return static_cast<uint32_t>(v);
}

double CParam::ToDouble(double def) const
{
    switch (m_eType) {
        case PT_DOUBLE:
            return m_dValue;
        case PT_INT:
            return static_cast<double>(m_iValue);
        case PT_BOOL:
            return m_bValue ? 1.0 : 0.0;
        case PT_STRING: {
            if (m_strValue == "true" || m_strValue == "false") {
                return m_strValue == "true" ? 1.0 : 0.0;
            }
            double v = 0.0;
            return ParseDouble(m_strValue, v) ? v : def;
        }
        default:
            return def;
    }
}

bool CParam::ToBool(bool def) const
{
    switch (m_eType) {
        case PT_BOOL:
            return m_bValue;
        case PT_INT:
            return m_iValue != 0;
        case PT_DOUBLE:
            return m_dValue != 0.0;
        case PT_STRING: {
            if (m_strValue == "true" || m_strValue == "false") {
                return m_strValue == "true";
            }
            double v = 0.0;
            return ParseDouble(m_strValue, v) ? v != 0.0 : def;
        }
        default:
            return def;
    }
}

char CParam::ToChar(char def) const
{
    std::string text = ToString("");
    return text.empty() ? def : text[0];
}

bool CParam::operator==(const CParam& o) const
{
    if (m_eType != o.m_eType) {
        return false;
    }
    switch (m_eType) {
        case PT_NULL:
            return true;
        case PT_STRING:
            return m_strValue == o.m_strValue;
        case PT_INT:
            return m_iValue == o.m_iValue;
        case PT_BOOL:
            return m_bValue == o.m_bValue;
        case PT_DOUBLE:
            return m_dValue == o.m_dValue;
        case PT_LIST:
            return m_list == o.m_list;
        case PT_MAP:
            return m_map == o.m_map;
    }
    return false;
}

}  // namespace Zor
