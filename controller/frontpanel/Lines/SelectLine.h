// A one-character chooser over a short list of panel glyphs.
#pragma once

#include <vector>

#include "Lines/GenericLine.h"

class CSelectLine : public CGenericLine {
public:
    CSelectLine();

    bool HandleKey(const KeyPress_t& key) override;
    bool SetValue(const char*) override { return true; }
    bool SetValue(const std::string&) override { return true; }
    bool SetIndex(int index) override;
    // "0x" and the glyph code in upper-case hex ("0x85" for index 0).
    std::string GetValue() override;
    void Draw(int row) override;
    void ShowCursor(int) override {}
    void HideCursor(int) override {}
    Qb::int32 GetSelectedIndex() override { return m_iLastConfirmed; }

private:
    std::vector<Qb::uint8> m_glyphs;
    Qb::int32 m_iGlyphCount;
    Qb::int32 m_iConfirmed;
    Qb::int32 m_iPending;
    Qb::int32 m_iLastConfirmed;
};
