// Typed value of every read and write: null, scalar, list or insertion-ordered map.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace Zor {

enum ParamType_e {
    PT_LIST = 0,  // request lists are built with type 0
    PT_MAP = 1,
    PT_STRING = 2,
    PT_INT = 3,
    PT_BOOL = 4,
    PT_DOUBLE = 5,
    PT_NULL = 6,
};

class CParam {
public:
    CParam();                           // null
    explicit CParam(ParamType_e type);  // empty value of that type
    CParam(const CParam& other);
    CParam& operator=(const CParam& other);
    // Moves leave the source null; results are handed on without copying whole maps.
    CParam(CParam&& other) noexcept;
    CParam& operator=(CParam&& other) noexcept;
    ~CParam();

    static CParam String(const std::string& s);
    static CParam Int(int64_t v);
    static CParam Bool(bool v);
    static CParam Double(double v);

    // Back to null.
    void Initialize();
    // Empties the value and gives it the type.
    void Clear(ParamType_e type);

    void Assign(const CParam& other);
    void Assign(const char* s);         // string (null pointer: empty string)
    void Assign(int v);                 // integer
    void Assign(const std::string& s);  // string

    // Appends to a list; a null value becomes a list first. Ignored for other types.
    void AddParam(const CParam& item);

    // List element i. Const: a null value when i is out of range or this is no list.
    // Non-const: a null value becomes a list, and the list grows with nulls up to i.
    const CParam& operator[](int i) const;
    CParam& operator[](int i);
    // Map entry. Const: a null value when missing or this is no map. Non-const: a null value
    // becomes a map, and a missing key is appended with a null value.
    const CParam& operator[](const std::string& key) const;
    CParam& operator[](const std::string& key);
    const CParam& operator[](const char* key) const { return (*this)[std::string(key ? key : "")]; }
    CParam& operator[](const char* key) { return (*this)[std::string(key ? key : "")]; }

    bool KeyExists(const std::string& key) const;
    // The i-th key of a map in insertion order; "" when out of range.
    std::string GetKey(int i) const;
    // Elements of a list or entries of a map; 0 for scalars and null.
    int Length() const;

    ParamType_e Type() const { return m_eType; }
    bool IsNull() const { return m_eType == PT_NULL; }
    bool IsList() const { return m_eType == PT_LIST; }
    bool IsMap() const { return m_eType == PT_MAP; }

    // Conversions return def when the value is missing or does not convert: strings convert
    // to numbers only when the whole text is a number; "true"/"false" convert to booleans
    // and to 1/0; numbers convert to text in decimal, booleans to "true"/"false".
    std::string ToString(const std::string& def) const;
    int32_t ToInt32(int32_t def) const;
    uint32_t ToUInt32(uint32_t def) const;
    int64_t ToInt64(int64_t def) const;
    double ToDouble(double def) const;
    bool ToBool(bool def) const;
    // The first character of the text form; def when that text is empty.
    char ToChar(char def) const;

    bool operator==(const CParam& o) const;
    bool operator!=(const CParam& o) const { return !(*this == o); }

private:
    typedef std::vector<std::pair<std::string, CParam>> Map;
    void Reset(ParamType_e type);

    ParamType_e m_eType;
    std::string m_strValue;
    int64_t m_iValue;
    double m_dValue;
    bool m_bValue;
    std::vector<CParam> m_list;
    Map m_map;
};

}  // namespace Zor
