// The panel as the daemon sees it: decodes the display command stream into a 5 x 30 screen
// with per-cell highlight, and builds the key report frames the panel sends back.
// Plain and single-threaded; the emulator and the tests own one each.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace Panelsim {

enum { PANEL_ROWS = 5, PANEL_COLUMNS = 30 };

// Key codes and states of the key report frame (0x09 'K' key state 0x7E).
enum {
    PANEL_KEY_LEFT = 1,
    PANEL_KEY_UP = 2,
    PANEL_KEY_RIGHT = 3,
    PANEL_KEY_DOWN = 4,
    PANEL_KEY_EXIT = 5,
    PANEL_KEY_ENTER = 6
};
enum { KEY_STATE_DOWN = 1, KEY_STATE_UP = 2 };

std::string KeyFrame(int key, int state);
// "LEFT" ... "ENTER" (any case) to the key code; 0 for anything else.
int KeyByName(const std::string& name);
const char* KeyName(int key);

// The printable character that stands for a panel character code in text dumps.
char StandIn(unsigned char code);
// A terminal symbol (UTF-8) for the panel's own glyph codes; null for ordinary characters.
const char* GlyphSymbol(unsigned char code);

class CPanelModel {
public:
    CPanelModel();

    // Decodes any chunk of the stream; frames may be split anywhere between chunks.
    void Feed(const void* data, size_t length);
    void Feed(const std::string& bytes) { Feed(bytes.data(), bytes.size()); }
    // The daemon went away: an unfinished frame is reported as cut short.
    void Disconnected();

    unsigned char Code(int row, int column) const;
    bool IsHighlighted(int row, int column) const;
    // The row's 30 cells as stand-in characters.
    std::string RowText(int row) const;
    // One line per row between '|' bars; a marker line with '^' follows a row that has
    // highlighted cells. Ends with a newline.
    std::string Dump() const;

    int GetRow() const { return m_iRow; }
    int GetColumn() const { return m_iColumn; }
    bool GetHighlightMode() const { return m_bHighlight; }

    uint32_t Frames() const { return m_uFrames; }
    uint32_t Clears() const { return m_uClears; }
    uint32_t Errors() const { return m_uErrors; }
    const std::string& LastError() const { return m_strLastError; }
    // Error texts reported since the last call (for showing them as they happen).
    std::vector<std::string> TakeNewErrors();

private:
    enum State_e {
        STATE_IDLE,       // between frames
        STATE_SKIP,       // after an error: dropping bytes until the next frame start
        STATE_COMMAND,    // frame start seen, command byte next
        STATE_CLEAR_END,  // clear command, end byte next
        STATE_VALUE,      // row or column value next
        STATE_VALUE_ESC,  // escaped row or column value next
        STATE_HIGHLIGHT,  // highlight mode byte next
        STATE_TEXT,       // text bytes up to the end byte
        STATE_TEXT_ESC,   // escaped text byte next
    };

    void Byte(unsigned char byte);
    void StartFrame();
    void Error(const std::string& text);
    void Clear();
    void ApplyValue(unsigned char value);
    void ApplyText();

    unsigned char m_codes[PANEL_ROWS][PANEL_COLUMNS];
    bool m_highlights[PANEL_ROWS][PANEL_COLUMNS];
    int m_iRow;
    int m_iColumn;
    bool m_bHighlight;

    State_e m_eState;
    unsigned char m_cCommand;
    std::string m_strText;

    uint32_t m_uFrames;
    uint32_t m_uClears;
    uint32_t m_uErrors;
    std::string m_strLastError;
    std::vector<std::string> m_newErrors;
};

}  // namespace Panelsim
