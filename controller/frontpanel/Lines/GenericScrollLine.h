// A row whose text may be longer than the panel is wide (an alarm with its location). While
// the row is selected, RIGHT slides the text left to show more of it and LEFT slides it
// back; leaving the row with UP or DOWN shows its start again. It never edits, and it gets
// every key without ENTER (the menu style hands it all keys).
//
//   CGenericScrollLine(const std::string& text = "")
//   SetValue(text)   the text (made safe for the panel); shown from its start; always true
//   GetValue()       the whole text
//   GetOffset()      the first character shown
#pragma once

#include "Lines/GenericLine.h"

class CGenericScrollLine : public CGenericLine {
public:
    // Characters one LEFT or RIGHT slides the text by.
    enum { SCROLL_STEP = 10 };

    explicit CGenericScrollLine(const std::string& text = std::string());

    bool HandleKey(const KeyPress_t& key) override;
    bool SetValue(const char* value) override;
    bool SetValue(const std::string& value) override { return SetValue(value.c_str()); }
    std::string GetValue() override { return m_strText; }
    void Draw(int row) override;
    void ShowCursor(int) override {}
    void HideCursor(int) override {}

    int GetOffset() const { return m_iOffset; }

private:
    // The largest offset: the one that puts the end of the text at the end of the row.
    int LastOffset() const;

    std::string m_strText;
    int m_iOffset;
    bool m_bSlid;  // moved by a key and not yet sent
};
