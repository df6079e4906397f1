// The panel's display: turns the drawing operations into command frames on the panel
// socket. Its construction clears the panel.
#pragma once

#include <string>

#include "Display/Display.h"
#include "Qb/Socket.h"

class CDisplayHw : public CDisplay {
public:
    explicit CDisplayHw(Qb::CStreamSocket& socket);
    ~CDisplayHw() override;

    void ClearScreen() override;
    void DrawScreen(const std::string& text) override;
    void DrawLine(const std::string& text, Qb::int32 row) override;
    void DrawHighlighted(const std::string& text, Qb::int32 column, Qb::int32 row) override;
    void DrawBlanks(Qb::int32 count, Qb::int32 column, Qb::int32 row) override;
    void SetRightIndicators(Qb::int32 flags) override;
    void SetLeftIndicators(Qb::int32 flags) override;

    // Sends the whole panel again as this display last drew it, highlights included: for
    // a panel that has just connected and shows nothing.
    void Repaint();

    // Each byte 0x09, 0x7D or 0x7E becomes 0x7D and the byte XOR 0x20.
    static std::string EscapeText(const std::string& text);

private:
    // The panel as the commands sent so far leave it (whether or not they arrived).
    struct Shadow_t {
        char cells[DISPLAY_ROWS][DISPLAY_COLUMNS];
        bool lit[DISPLAY_ROWS][DISPLAY_COLUMNS];
        Qb::int32 row;
        Qb::int32 column;
    };

    void SendClear();
    void Shade(const std::string& text);

    void Send(const std::string& bytes);
    void SendPosition(Qb::int32 row, Qb::int32 column);
    void SendText(const std::string& text);
    void SendHighlight(bool on);

    Qb::CStreamSocket& m_rSocket;
    bool m_bHighlight;
    Shadow_t m_shadow;
};
