#include "panelsim/PanelModel.h"

#include <cctype>
#include <cstdio>
#include <cstring>

namespace Panelsim {

namespace {

const unsigned char kFrameStart = 0x09;
const unsigned char kFrameEnd = 0x7E;
const unsigned char kEscape = 0x7D;
const unsigned char kLineFeed = 0x0A;

const char* const kKeyNames[] = {"NONE", "LEFT", "UP", "RIGHT", "DOWN", "EXIT", "ENTER"};

struct Glyph_t {
    unsigned char code;
    char standIn;
    const char* symbol;
};

// The panel's own characters: key hints, status indicators and the two select glyphs.
const Glyph_t kGlyphs[] = {
    {0x7F, '$', "\u2195"},  // UP/DOWN hint
    {0x80, '~', "\u2194"},  // LEFT/RIGHT hint
    {0x81, '@', "\u21b5"},  // ENTER hint
    {0x82, '#', "\u25a0"},  // panel locked
    {0x84, '*', "\u25cf"},  // select glyph (second choice)
    {0x85, '+', "\u25cb"},  // select glyph (first choice)
    {0x8A, '!', "\u2298"},  // panel disabled
};

std::string Hex(unsigned char byte)
{
    char text[8];
    std::snprintf(text, sizeof text, "0x%02X", byte);
    return text;
}

std::string CommandName(unsigned char command)
{
    if (std::isprint(command)) {
        return std::string("'") + static_cast<char>(command) + "'";
    }
    return Hex(command);
}

}  // namespace

std::string KeyFrame(int key, int state)
{
    return std::string{static_cast<char>(kFrameStart), 'K', static_cast<char>(key), static_cast<char>(state),
                       static_cast<char>(kFrameEnd)};
}

int KeyByName(const std::string& name)
{
    std::string upper;
    for (char c : name) {
        upper += static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    }
    for (int key = PANEL_KEY_LEFT; key <= PANEL_KEY_ENTER; ++key) {
        if (upper == kKeyNames[key]) {
            return key;
        }
    }
    return 0;
}

const char* KeyName(int key)
{
    return key >= 0 && key <= PANEL_KEY_ENTER ? kKeyNames[key] : "?";
}

char StandIn(unsigned char code)
{
    for (const Glyph_t& glyph : kGlyphs) {
        if (glyph.code == code) {
            return glyph.standIn;
        }
    }
    return code >= 0x20 && code < 0x7F ? static_cast<char>(code) : '?';
}

const char* GlyphSymbol(unsigned char code)
{
    for (const Glyph_t& glyph : kGlyphs) {
        if (glyph.code == code) {
            return glyph.symbol;
        }
    }
    return nullptr;
}

CPanelModel::CPanelModel()
    : m_iRow(0),
      m_iColumn(0),
      m_bHighlight(false),
      m_eState(STATE_IDLE),
      m_cCommand(0),
      m_uFrames(0),
      m_uClears(0),
      m_uErrors(0)
{
    Clear();
}

void CPanelModel::Clear()
{
    std::memset(m_codes, ' ', sizeof m_codes);
    std::memset(m_highlights, 0, sizeof m_highlights);
    m_iRow = 0;
    m_iColumn = 0;
}

void CPanelModel::Feed(const void* data, size_t length)
{
    const unsigned char* bytes = static_cast<const unsigned char*>(data);
    for (size_t i = 0; i < length; ++i) {
        Byte(bytes[i]);
    }
}

void CPanelModel::Disconnected()
{
    if (m_eState != STATE_IDLE && m_eState != STATE_SKIP) {
        Error("frame " + CommandName(m_cCommand) + " cut short by the end of the connection");
    }
    m_eState = STATE_IDLE;
}

void CPanelModel::Error(const std::string& text)
{
    ++m_uErrors;
    m_strLastError = text;
    m_newErrors.push_back(text);
    m_eState = STATE_SKIP;
}

std::vector<std::string> CPanelModel::TakeNewErrors()
{
    std::vector<std::string> errors;
    errors.swap(m_newErrors);
    return errors;
}

void CPanelModel::StartFrame()
{
    m_eState = STATE_COMMAND;
    m_cCommand = 0;
    m_strText.clear();
}

void CPanelModel::Byte(unsigned char byte)
{
    if (byte == kFrameStart) {
        // A frame start is never part of a frame (it is always escaped in texts), so it
        // ends whatever came before.
        if (m_eState != STATE_IDLE && m_eState != STATE_SKIP) {
            Error(m_eState == STATE_COMMAND
                      ? std::string("frame cut short before its command byte")
                      : "frame " + CommandName(m_cCommand) + " cut short by a new frame");
        }
        StartFrame();
        return;
    }
    switch (m_eState) {
        case STATE_IDLE:
            Error("byte " + Hex(byte) + " outside a frame");
            break;
        case STATE_SKIP:
            break;
        case STATE_COMMAND:
            m_cCommand = byte;
            switch (byte) {
                case '0':
                    m_eState = STATE_CLEAR_END;
                    break;
                case 'Y':
                case 'X':
                    m_eState = STATE_VALUE;
                    break;
                case 'R':
                    m_eState = STATE_HIGHLIGHT;
                    break;
                case 'T':
                    m_eState = STATE_TEXT;
                    break;
                default:
                    Error("unknown command byte " + Hex(byte));
                    break;
            }
            break;
        case STATE_CLEAR_END:
            if (byte != kFrameEnd) {
                Error("clear command ended by " + Hex(byte) + " instead of 0x7E");
                break;
            }
            Clear();
            ++m_uClears;
            ++m_uFrames;
            m_eState = STATE_IDLE;
            break;
        case STATE_VALUE:
            if (byte == kEscape) {
                m_eState = STATE_VALUE_ESC;
            } else {
                ApplyValue(byte);
            }
            break;
        case STATE_VALUE_ESC:
            ApplyValue(byte ^ 0x20);
            break;
        case STATE_HIGHLIGHT:
            if (byte != 1 && byte != 2) {
                Error("highlight mode " + Hex(byte) + " is neither 0x01 nor 0x02");
                m_eState = STATE_IDLE;
                break;
            }
            m_bHighlight = byte == 1;
            ++m_uFrames;
            m_eState = STATE_IDLE;
            break;
        case STATE_TEXT:
            if (byte == kEscape) {
                m_eState = STATE_TEXT_ESC;
            } else if (byte == kFrameEnd) {
                ApplyText();
            } else {
                m_strText += static_cast<char>(byte);
            }
            break;
        case STATE_TEXT_ESC:
            m_strText += static_cast<char>(byte ^ 0x20);
            m_eState = STATE_TEXT;
            break;
    }
}

void CPanelModel::ApplyValue(unsigned char value)
{
    const bool isRow = m_cCommand == 'Y';
    const int limit = isRow ? PANEL_ROWS : PANEL_COLUMNS;
    if (value >= limit) {
        Error(std::string(isRow ? "row " : "column ") + std::to_string(value) + " is outside the panel");
        m_eState = STATE_IDLE;  // the frame itself is complete
        return;
    }
    (isRow ? m_iRow : m_iColumn) = value;
    ++m_uFrames;
    m_eState = STATE_IDLE;
}

void CPanelModel::ApplyText()
{
    m_eState = STATE_IDLE;
    ++m_uFrames;
    std::string text;
    text.swap(m_strText);
    // The blanks command ends its spaces with a line feed; it takes no cell.
    if (!text.empty() && static_cast<unsigned char>(text.back()) == kLineFeed) {
        text.pop_back();
    }
    for (size_t i = 0; i < text.size(); ++i) {
        if (m_iColumn >= PANEL_COLUMNS) {
            Error("text past the end of row " + std::to_string(m_iRow) + ": " +
                  std::to_string(text.size() - i) + " characters dropped");
            m_eState = STATE_IDLE;
            return;
        }
        m_codes[m_iRow][m_iColumn] = static_cast<unsigned char>(text[i]);
        m_highlights[m_iRow][m_iColumn] = m_bHighlight;
        ++m_iColumn;
    }
}

unsigned char CPanelModel::Code(int row, int column) const
{
    if (row < 0 || row >= PANEL_ROWS || column < 0 || column >= PANEL_COLUMNS) {
        return ' ';
    }
    return m_codes[row][column];
}

bool CPanelModel::IsHighlighted(int row, int column) const
{
    if (row < 0 || row >= PANEL_ROWS || column < 0 || column >= PANEL_COLUMNS) {
        return false;
    }
    return m_highlights[row][column];
}

std::string CPanelModel::RowText(int row) const
{
    std::string text;
    for (int column = 0; column < PANEL_COLUMNS; ++column) {
        text += StandIn(Code(row, column));
    }
    return text;
}

std::string CPanelModel::Dump() const
{
    std::string dump;
    for (int row = 0; row < PANEL_ROWS; ++row) {
        dump += '|' + RowText(row) + "|\n";
        std::string markers;
        for (int column = 0; column < PANEL_COLUMNS; ++column) {
            markers += m_highlights[row][column] ? '^' : ' ';
        }
        const size_t last = markers.find_last_not_of(' ');
        if (last != std::string::npos) {
            dump += ' ' + markers.substr(0, last + 1) + '\n';
        }
    }
    return dump;
}

}  // namespace Panelsim
