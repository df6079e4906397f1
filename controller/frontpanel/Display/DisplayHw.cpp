#include "Display/DisplayHw.h"

#include <cstring>

using Qb::int32;

namespace {

const char kFrameStart = '\x09';
const char kFrameEnd = '\x7E';
const char kEscape = '\x7D';

// Characters of the panel's own set used for the key hints and status indicators.
const char kHintLeftRight = '\x80';
const char kHintUpDown = '\x7F';
const char kHintEnter = '\x81';
const char kIndicatorLock = '\x82';
const char kIndicatorDisabled = '\x8A';

const size_t kTitleColumn = 3;
const size_t kTitleLength = 24;

void AppendValue(std::string& bytes, int32 value)
{
    // The one position value that would read as a frame start goes escaped; every other
    // value, 0 included, is a single raw byte.
    if (value == 9) {
        bytes += kEscape;
        bytes += static_cast<char>(0x09 ^ 0x20);
    } else {
        bytes += static_cast<char>(value);
    }
}

}  // namespace

CDisplayHw::CDisplayHw(Qb::CStreamSocket& socket) : m_rSocket(socket), m_bHighlight(false), m_shadow()
{
    ClearScreen();
}

CDisplayHw::~CDisplayHw() {}

void CDisplayHw::ClearScreen()
{
    Qb::CMutexLocker lock(m_mutex);
    SendClear();
    // The panel is blank now: the next window image must be sent even if it is the last one.
    ForgetLastScreen();
}

void CDisplayHw::Repaint()
{
    Qb::CMutexLocker lock(m_mutex);
    const Shadow_t shown = m_shadow;
    const bool highlight = m_bHighlight;
    SendClear();
    for (int32 row = 0; row < DISPLAY_ROWS; ++row) {
        SendPosition(row, 0);
        for (int32 column = 0; column < DISPLAY_COLUMNS;) {
            const bool lit = shown.lit[row][column];
            int32 end = column;
            while (end < DISPLAY_COLUMNS && shown.lit[row][end] == lit)
                ++end;
            if (lit != m_bHighlight)
                SendHighlight(lit);
            SendText(std::string(&shown.cells[row][column], static_cast<size_t>(end - column)));
            column = end;
        }
    }
    // Every drawing operation places the cursor first: only the highlight mode is restored.
    if (m_bHighlight != highlight)
        SendHighlight(highlight);
}

void CDisplayHw::DrawScreen(const std::string& text)
{
    Qb::CMutexLocker lock(m_mutex);
    size_t lines = text.size() / DISPLAY_COLUMNS;
    if (lines > DISPLAY_ROWS) {
        lines = DISPLAY_ROWS;
    }
    for (size_t i = 0; i < lines; ++i) {
        DrawLine(text.substr(i * DISPLAY_COLUMNS), static_cast<int32>(i));
    }
}

void CDisplayHw::DrawLine(const std::string& text, int32 row)
{
    Qb::CMutexLocker lock(m_mutex);
    if (m_bHighlight) {
        SendHighlight(false);
    }
    if (row == 0) {
        // The title row shows 24 characters from column 3; columns 0 and 27 to 29 belong
        // to the indicators.
        SendPosition(0, static_cast<int32>(kTitleColumn));
        SendText(text.substr(0, kTitleLength));
    } else {
        SendPosition(row, 0);
        SendText(text.substr(0, DISPLAY_COLUMNS));
    }
}

void CDisplayHw::DrawHighlighted(const std::string& text, int32 column, int32 row)
{
    Qb::CMutexLocker lock(m_mutex);
    SendPosition(row, column);
    if (!m_bHighlight) {
        SendHighlight(true);
    }
    SendText(text);
    SendHighlight(false);
}

void CDisplayHw::DrawBlanks(int32 count, int32 column, int32 row)
{
    Qb::CMutexLocker lock(m_mutex);
    SendPosition(row, column);
    if (m_bHighlight) {
        SendHighlight(false);
    }
    std::string bytes{kFrameStart, 'T'};
    if (count > 0) {
        bytes.append(static_cast<size_t>(count), ' ');
        Shade(std::string(static_cast<size_t>(count), ' '));
    }
    // The panel expects a line feed before the end byte of this command.
    bytes += '\n';
    bytes += kFrameEnd;
    Send(bytes);
}

void CDisplayHw::SetRightIndicators(int32 flags)
{
    Qb::CMutexLocker lock(m_mutex);
    if (m_bLeftIndicator8) {
        SetLeftIndicators(8);
    }
    if (m_bLeftIndicator16) {
        SetLeftIndicators(16);
    }
    std::string text(3, ' ');
    if (flags & 1) {
        text[0] = kHintLeftRight;
    }
    if (flags & 2) {
        text[1] = kHintUpDown;
    }
    if (flags & 4) {
        text[2] = kHintEnter;
    }
    SendPosition(0, 27);
    SendText(text);
}

void CDisplayHw::SetLeftIndicators(int32 flags)
{
    Qb::CMutexLocker lock(m_mutex);
    std::string text(1, ' ');
    if (flags & 16) {
        text[0] = kIndicatorDisabled;
    } else if (flags & 8) {
        text[0] = kIndicatorLock;
    }
    SendPosition(0, 0);
    SendText(text);
}

std::string CDisplayHw::EscapeText(const std::string& text)
{
    std::string escaped;
    escaped.reserve(text.size() + 4);
    for (char byte : text) {
        if (byte == kFrameStart || byte == kEscape || byte == kFrameEnd) {
            escaped += kEscape;
            escaped += static_cast<char>(byte ^ 0x20);
        } else {
            escaped += byte;
        }
    }
    return escaped;
}

void CDisplayHw::Send(const std::string& bytes)
{
    // Write failures are not checked: the socket reconnects by itself and the next screen
    // redraws the panel.
    m_rSocket.Write(bytes.data(), static_cast<int>(bytes.size()));
}

void CDisplayHw::SendClear()
{
    Send(std::string{kFrameStart, '0', kFrameEnd});
    std::memset(m_shadow.cells, ' ', sizeof m_shadow.cells);
    std::memset(m_shadow.lit, 0, sizeof m_shadow.lit);
    m_shadow.row = 0;
    m_shadow.column = 0;
}

void CDisplayHw::Shade(const std::string& text)
{
    if (m_shadow.row < 0 || m_shadow.row >= DISPLAY_ROWS)
        return;
    for (char c : text) {
        if (m_shadow.column < 0 || m_shadow.column >= DISPLAY_COLUMNS)
            return;
        m_shadow.cells[m_shadow.row][m_shadow.column] = c;
        m_shadow.lit[m_shadow.row][m_shadow.column] = m_bHighlight;
        ++m_shadow.column;
    }
}

void CDisplayHw::SendPosition(int32 row, int32 column)
{
    m_shadow.row = row;
    m_shadow.column = column;
    // Row first, then column; each its own command, written together.
    std::string bytes{kFrameStart, 'Y'};
    AppendValue(bytes, row);
    bytes += kFrameStart;
    bytes += 'X';
    AppendValue(bytes, column);
    Send(bytes);
}

void CDisplayHw::SendText(const std::string& text)
{
    Shade(text);
    std::string bytes{kFrameStart, 'T'};
    bytes += EscapeText(text);
    bytes += kFrameEnd;
    Send(bytes);
}

void CDisplayHw::SendHighlight(bool on)
{
    m_bHighlight = on;
    Send(std::string{kFrameStart, 'R', on ? '\x01' : '\x02'});
}
