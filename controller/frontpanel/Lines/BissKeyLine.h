// A descrambling key entered as hexadecimal digits; positions not yet entered show "*".
//
//   CBissKeyLine(int digits = 12)
//   SetValue(text)   the stored key: upper-cased, cut to the digit count and filled up with
//                    "*"; any character that is not a hexadecimal digit becomes "*"
//   GetValue()       the edit key while editing, else the stored key, without trailing "*";
//                    empty when no digit is set
//
// UP steps a digit 0..9, A..F and wraps to 0; DOWN the reverse ("*" goes to 0 on UP and to F
// on DOWN). Cursor movement is the text line's.
#pragma once

#include "Lines/EntryLine.h"

class CBissKeyLine : public CEntryLine {
public:
    explicit CBissKeyLine(int digits = 12);

    bool SetValue(const char* value) override;
    bool SetValue(const std::string& value) override { return SetValue(value.c_str()); }
    std::string GetValue() override;

protected:
    Template_t EditTemplate() override;
    bool Accept(const std::string& edited) override;
    std::string DisplayText() override { return m_strKey; }

private:
    std::string Normalised(const std::string& text) const;

    int m_iPlaceholders;
    std::string m_strKey;
};
