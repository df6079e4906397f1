// A row that only shows a text: a message ("No Active Errors") or, when bound, an object's
// value. It never edits.
//
//   CGenericDisplayLine(const std::string& text = "")
//   SetValue(text)   the text shown (made safe for the panel); always true
//   GetValue()       the text
#pragma once

#include "Lines/GenericLine.h"

class CGenericDisplayLine : public CGenericLine {
public:
    explicit CGenericDisplayLine(const std::string& text = std::string());

    bool HandleKey(const KeyPress_t&) override { return false; }
    bool SetValue(const char* value) override;
    bool SetValue(const std::string& value) override { return SetValue(value.c_str()); }
    std::string GetValue() override { return m_strText; }
    void ShowCursor(int) override {}
    void HideCursor(int) override {}

private:
    std::string m_strText;
};
