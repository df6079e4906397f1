// The drawing surface of every screen and line: text is drawn into the current window and
// sent to the panel by a concrete display (CDisplayHw). An unchanged window is not sent
// twice; highlighted texts wait in a queue until their row is sent.
#pragma once

#include <string>
#include <vector>

#include "Display/DisplayWindow.h"
#include "Display/TextAdjustment.h"
#include "Qb/Mutex.h"
#include "Qb/Types.h"
#include "Qb/Uncopyable.h"

class CDisplay : private Qb::CUncopyable {
public:
    enum { DISPLAY_ROWS = 5, DISPLAY_COLUMNS = 30 };

    CDisplay();
    virtual ~CDisplay();

    virtual void SetCursor(Qb::int32 row, Qb::int32 column);
    virtual bool CreateWindow(Qb::int32 id, Qb::int32 columns, Qb::int32 rows);
    virtual bool SelectWindow(Qb::int32 id);
    virtual void RedrawWindow();
    virtual void UpdateCursorLine();
    virtual void UpdateLine(Qb::int32 row);
    virtual void Clear();
    virtual void ClearScreen();
    virtual void ClearLine(Qb::int32 row);
    virtual void WriteAligned(std::string& text, Qb::int32 row, Qb::int32 alignment, Qb::int32 offset);
    virtual void WriteAligned(const char* text, Qb::int32 row, Qb::int32 alignment, Qb::int32 offset);
    virtual void PutChar(const char* character, Qb::int32 row, Qb::int32 column);
    virtual void WriteAt(const std::string& text, Qb::int32 row, Qb::int32 column);
    virtual Qb::int32 WriteWrapped(const std::string& text, Qb::int32 firstRow, Qb::int32 alignment,
                                   Qb::int32 offset, char separator);
    virtual void DrawScreen(const std::string& text) = 0;
    virtual void DrawLine(const std::string& text, Qb::int32 row) = 0;
    virtual void DrawHighlighted(const std::string& text, Qb::int32 column, Qb::int32 row) = 0;
    virtual void DrawBlanks(Qb::int32 count, Qb::int32 column, Qb::int32 row) = 0;
    virtual bool QueueHighlight(const std::string& text, Qb::int32 row, Qb::int32 column);
    virtual void QueueHighlightChar(char character, Qb::int32 row, Qb::int32 column);
    virtual void SetRightIndicators(Qb::int32 flags) = 0;
    virtual void SetLeftIndicators(Qb::int32 flags) = 0;

    // Makes a text safe for the panel's character set (see the source for the exact rules).
    static void ReplaceUnsupportedChars(std::string& text);

    Qb::int32 GetRows() const { return DISPLAY_ROWS; }
    Qb::int32 GetColumns() const { return DISPLAY_COLUMNS; }

    // Left indicators that SetRightIndicators draws again each time (lock 8, disabled 16).
    void SetLeftIndicator8(bool wanted);
    void SetLeftIndicator16(bool wanted);
    bool GetLeftIndicator8() const { return m_bLeftIndicator8; }
    bool GetLeftIndicator16() const { return m_bLeftIndicator16; }

    void SetFieldCount(Qb::int32 count);
    Qb::int32 GetFieldWidth() const { return m_iFieldWidth; }

    // The window drawn into, or null after SelectWindow found no match.
    const CDisplayWindow* GetCurrentWindow() const { return m_pWindow; }

protected:
    struct Highlight_t {
        std::string text;
        Qb::int32 row;
        Qb::int32 column;
    };

    // Serialises the display's operations, so that two threads drawing at once never
    // interleave command frames on the panel socket. Recursive, and always the innermost
    // lock: nothing is called outside the display while it is held.
    Qb::CMutex m_mutex;

    bool m_bLeftIndicator8;
    bool m_bLeftIndicator16;

protected:
    // The panel no longer shows the last window image sent (a row was sent on its own, or
    // the panel was cleared): the next RedrawWindow sends the window whatever it holds.
    void ForgetLastScreen();

private:
    void DrawPendingHighlights(bool allRows, Qb::int32 row);

    std::vector<Highlight_t> m_highlights;
    std::vector<CDisplayWindow*> m_windows;
    CTextAdjustment* m_pAdjustment;
    Qb::int32 m_iFieldWidth;
    CDisplayWindow* m_pWindow;
    std::string m_strLastScreen;
    std::string m_strLineBuffer;
};
