#include "Display/Display.h"

#include <cstring>

using Qb::int32;

CDisplay::CDisplay()
    : m_mutex("DisplayMutex"),
      m_bLeftIndicator8(false),
      m_bLeftIndicator16(false),
      m_pAdjustment(new CTextAdjustment(DISPLAY_COLUMNS)),
      m_iFieldWidth(DISPLAY_COLUMNS),
      m_pWindow(nullptr)
{
    CreateWindow(0, DISPLAY_COLUMNS, DISPLAY_ROWS);
    m_pWindow = m_windows.front();
    m_pWindow->SetPosition(0, 0);
}

CDisplay::~CDisplay()
{
    for (CDisplayWindow* window : m_windows) {
        delete window;
    }
    delete m_pAdjustment;
}

void CDisplay::SetCursor(int32 row, int32 column)
{
    Qb::CMutexLocker lock(m_mutex);
    if (m_pWindow != nullptr) {
        m_pWindow->SetPosition(row, column);
    }
}

bool CDisplay::CreateWindow(int32 id, int32 columns, int32 rows)
{
    Qb::CMutexLocker lock(m_mutex);
    m_windows.push_back(new CDisplayWindow(id, columns, rows));
    return true;
}

bool CDisplay::SelectWindow(int32 id)
{
    Qb::CMutexLocker lock(m_mutex);
    m_pWindow = nullptr;
    for (CDisplayWindow* window : m_windows) {
        if (window->GetId() == id) {
            m_pWindow = window;
            RedrawWindow();
            return true;
        }
    }
    return false;
}

void CDisplay::RedrawWindow()
{
    Qb::CMutexLocker lock(m_mutex);
    if (m_pWindow != nullptr && m_pWindow->Length() > 0) {
        const char* contents = m_pWindow->GetBuffer();
        // The panel still shows the last image: an unchanged window is not sent again.
        if (m_strLastScreen.empty() || m_strLastScreen != contents) {
            m_strLastScreen = contents;
            if (!m_strLastScreen.empty()) {
                DrawScreen(m_strLastScreen);
            }
        }
    }
    DrawPendingHighlights(true, 0);
}

void CDisplay::UpdateCursorLine()
{
    Qb::CMutexLocker lock(m_mutex);
    if (m_pWindow != nullptr) {
        UpdateLine(m_pWindow->GetCursorRow());
    }
}

void CDisplay::UpdateLine(int32 row)
{
    Qb::CMutexLocker lock(m_mutex);
    if (m_pWindow == nullptr) {
        return;
    }
    const char* line = m_pWindow->GetLine(row);
    const size_t limit = static_cast<size_t>(
        m_pWindow->GetColumns() < DISPLAY_COLUMNS ? m_pWindow->GetColumns() : DISPLAY_COLUMNS);
    m_strLineBuffer.assign(line, strnlen(line, limit));
    DrawLine(m_strLineBuffer, row);
    DrawPendingHighlights(false, row);
    // The panel no longer shows the last image sent whole (this row, and its highlights,
    // changed on it): the next RedrawWindow must send the window even if it equals that
    // image, or the panel would keep an edit row after the edit ended.
    ForgetLastScreen();
}

void CDisplay::ForgetLastScreen()
{
    Qb::CMutexLocker lock(m_mutex);
    m_strLastScreen.clear();
}

void CDisplay::Clear()
{
    Qb::CMutexLocker lock(m_mutex);
    if (m_pWindow != nullptr) {
        m_pWindow->Clear();
    }
    m_highlights.clear();
}

void CDisplay::ClearScreen() {}

void CDisplay::ClearLine(int32 row)
{
    Qb::CMutexLocker lock(m_mutex);
    if (m_pWindow != nullptr) {
        m_pWindow->SetPosition(row, 0);
        m_pWindow->ClearLine();
    }
}

void CDisplay::WriteAligned(std::string& text, int32 row, int32 alignment, int32 offset)
{
    Qb::CMutexLocker lock(m_mutex);
    switch (alignment) {
        case ALIGN_CENTRE:
            // Row 0 reaches the panel from column 3, so a centred title moves 3 columns
            // left here to be centred on the panel.
            m_pAdjustment->Centre(text, row == 0 ? offset - 3 : offset);
            break;
        case ALIGN_RIGHT:
            m_pAdjustment->AlignRight(text, offset);
            break;
        default:
            m_pAdjustment->AlignLeft(text, offset);
            break;
    }
    if (m_pWindow != nullptr) {
        m_pWindow->SetPosition(row, 0);
        m_pWindow->WriteLine(text.c_str());
    }
}

void CDisplay::WriteAligned(const char* text, int32 row, int32 alignment, int32 offset)
{
    Qb::CMutexLocker lock(m_mutex);
    std::string copy(text != nullptr ? text : "");
    // Deliberately without the row-0 correction of the other overload: a centred title
    // passed as a character string sits 3 columns further right on the panel.
    switch (alignment) {
        case ALIGN_CENTRE:
            m_pAdjustment->Centre(copy, offset);
            break;
        case ALIGN_RIGHT:
            m_pAdjustment->AlignRight(copy, offset);
            break;
        default:
            m_pAdjustment->AlignLeft(copy, offset);
            break;
    }
    if (m_pWindow != nullptr) {
        m_pWindow->SetPosition(row, 0);
        m_pWindow->WriteLine(copy.c_str());
    }
}

void CDisplay::PutChar(const char* character, int32 row, int32 column)
{
    Qb::CMutexLocker lock(m_mutex);
    if (m_pWindow != nullptr && character != nullptr) {
        m_pWindow->SetPosition(row, column);
        m_pWindow->PutChar(*character);
    }
}

void CDisplay::WriteAt(const std::string& text, int32 row, int32 column)
{
    Qb::CMutexLocker lock(m_mutex);
    if (text.empty() || m_pWindow == nullptr) {
        return;
    }
    m_pWindow->SetPosition(row, column);
    m_pWindow->Write(text.c_str());
}

int32 CDisplay::WriteWrapped(const std::string& text, int32 firstRow, int32 alignment, int32 offset,
                             char separator)
{
    Qb::CMutexLocker lock(m_mutex);
    std::vector<std::string> lines;
    m_pAdjustment->Wrap(text, lines, DISPLAY_COLUMNS - offset, separator);
    if (firstRow > DISPLAY_ROWS - 1) {
        return static_cast<int32>(lines.size());
    }
    int32 row = firstRow;
    for (std::string& line : lines) {
        // Rows past the window are not skipped here: the window keeps its cursor row then.
        WriteAligned(line, row, alignment, offset);
        ++row;
    }
    return static_cast<int32>(lines.size());
}

bool CDisplay::QueueHighlight(const std::string& text, int32 row, int32 column)
{
    Qb::CMutexLocker lock(m_mutex);
    if (!text.empty() && m_pWindow != nullptr) {
        m_highlights.push_back(Highlight_t{text, row, column});
    }
    return true;
}

void CDisplay::QueueHighlightChar(char character, int32 row, int32 column)
{
    Qb::CMutexLocker lock(m_mutex);
    if (m_pWindow != nullptr) {
        m_highlights.push_back(Highlight_t{std::string(1, character), row, column});
    }
}

void CDisplay::DrawPendingHighlights(bool allRows, int32 row)
{
    // Taken out before drawing, so a concrete display may queue again while it draws.
    std::vector<Highlight_t> pending;
    std::vector<Highlight_t> kept;
    for (Highlight_t& highlight : m_highlights) {
        (allRows || highlight.row == row ? pending : kept).push_back(highlight);
    }
    m_highlights.swap(kept);
    for (const Highlight_t& highlight : pending) {
        DrawHighlighted(highlight.text, highlight.column, highlight.row);
    }
}

void CDisplay::SetLeftIndicator8(bool wanted)
{
    Qb::CMutexLocker lock(m_mutex);
    m_bLeftIndicator8 = wanted;
}

void CDisplay::SetLeftIndicator16(bool wanted)
{
    Qb::CMutexLocker lock(m_mutex);
    m_bLeftIndicator16 = wanted;
}

void CDisplay::SetFieldCount(int32 count)
{
    Qb::CMutexLocker lock(m_mutex);
    if (count > 0) {
        m_iFieldWidth = DISPLAY_COLUMNS / count;
    }
}

void CDisplay::ReplaceUnsupportedChars(std::string& text)
{
    // The rules are narrow on purpose and must stay so: only a DEL, two-byte characters and
    // three-byte characters whose second byte is 0xA0-0xBF become "-"; everything else,
    // four-byte characters and broken sequences included, passes untouched.
    auto inRange = [&text](size_t i, unsigned char low, unsigned char high) {
        if (i >= text.size()) {
            return false;
        }
        const unsigned char byte = static_cast<unsigned char>(text[i]);
        return byte >= low && byte <= high;
    };
    for (size_t i = 0; i < text.size(); ++i) {
        const unsigned char byte = static_cast<unsigned char>(text[i]);
        if (byte == 0x7F) {
            text[i] = '-';
            break;  // scanning ends at the first DEL, on purpose
        }
        if (byte >= 0xC2 && byte <= 0xDF && inRange(i + 1, 0x80, 0xBF)) {
            text[i] = '-';
            text.erase(i + 1, 1);
        } else if (byte >= 0xE0 && byte <= 0xEF && inRange(i + 1, 0xA0, 0xBF) && inRange(i + 2, 0x80, 0xBF)) {
            text[i] = '-';
            text.erase(i + 1, 2);
        }
    }
}
