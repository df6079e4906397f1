// A text value typed with the keys: names, passwords, host names, addresses of servers.
//
//   CGenericStringLine(int maxLength = 0, int charSet = 0)
//   SetMaxLength(n)    character positions of the value (also the edit cursor's length)
//   SetCharSet(set)    what UP and DOWN step through:
//                      0, 1 (and any other value) letters and digits; 2 letters, digits,
//                      "-", "_"; 3 letters, digits, "-", ".", "_"; 4 printable characters
//                      from space to "~"; 5 "a".."z", "0".."9", "_"; 6 "a".."z", "A".."Z", "_"
//   SetExtra(v)        a further setting kept for the screens; not used by the keys
//   SetValue(text)     the committed value; it is shown made safe for the panel and cut
//                      to the maximum length, but kept whole
//   GetValue()         the edit copy while editing, else the committed value (whole, as
//                      long as the user confirmed it unchanged); trailing blanks of the
//                      edit copy are never part of it
//
// While editing, the copy is padded with blanks to the maximum length; the field shows the
// row's width less the label and scrolls when the value is wider.
#pragma once

#include "Lines/EntryLine.h"

class CGenericStringLine : public CEntryLine {
public:
    explicit CGenericStringLine(int maxLength = 0, int charSet = 0);

    void SetMaxLength(int maxLength);
    int GetMaxLength() const { return m_iMaxLength; }
    void SetCharSet(int charSet) { m_iCharSet = charSet; }
    int GetCharSet() const { return m_iCharSet; }
    void SetExtra(int value) { m_iExtra = value; }
    int GetExtra() const { return m_iExtra; }

    bool SetValue(const char* value) override;
    bool SetValue(const std::string& value) override { return SetValue(value.c_str()); }
    std::string GetValue() override;

protected:
    Template_t EditTemplate() override;
    std::string DisplayText() override { return m_strShown; }
    bool Accept(const std::string& edited) override;

private:
    static std::string WithoutFill(const std::string& text);

    int m_iMaxLength;
    int m_iCharSet;
    std::string m_strHeld;   // as set, whole
    std::string m_strShown;  // as drawn and edited: made safe, cut to the maximum length
    int m_iExtra;
};
