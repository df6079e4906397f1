// Selection or edit cursor over a list: a glyph drawn next to the selected item, with
// wrap-around and scrolling over lists longer than the rows of the area.
#pragma once

#include "Qb/Types.h"

class CDisplay;

class CCursor {
public:
    // Modes 2 and 3 draw nothing; mode 3 also turns the movements into scrolling.
    enum { MODE_NO_DRAW = 2, MODE_SCROLL = 3 };

    CCursor();
    virtual ~CCursor() {}

    void SetDisplay(CDisplay* display) { m_pDisplay = display; }
    CDisplay* GetDisplay() const { return m_pDisplay; }

    void SetMode(Qb::int32 mode) { m_iMode = mode; }
    Qb::int32 GetMode() const { return m_iMode; }
    void SetGlyph(char glyph) { m_cGlyph = glyph; }
    char GetGlyph() const { return m_cGlyph; }
    void SetRow(Qb::int32 row) { m_iRow = row; }
    void SetColumn(Qb::int32 column) { m_iColumn = column; }
    Qb::int32 GetColumn() const { return m_iColumn; }
    // Draws at `column` and never erases the row it leaves.
    void SetFixedColumn(bool fixed, Qb::int32 column);
    void SetRowRange(Qb::int32 first, Qb::int32 last);
    void SetItemCount(Qb::int32 count);
    void SetIndex(Qb::int32 index);

    Qb::int32 GetItemCount() const { return m_iLastIndex + 1; }
    Qb::int32 GetIndex() const { return m_iIndex; }
    Qb::int32 GetRow() const { return m_iRow; }
    Qb::int32 GetTop() const { return m_iTop; }
    Qb::int32 GetFirstRow() const { return m_iFirstRow; }
    Qb::int32 GetLastRow() const { return m_iLastRow; }
    Qb::int32 GetVisibleCount() const;

    void Draw();
    void Erase();
    // Both return true when the top item changed, that is when the list must be redrawn.
    bool MoveUp();
    bool MoveDown();
    void Reset();

private:
    bool Drawing() const { return m_iMode != MODE_NO_DRAW && m_iMode != MODE_SCROLL; }

    CDisplay* m_pDisplay;
    Qb::int32 m_iIndex;
    Qb::int32 m_iLastIndex;
    Qb::int32 m_iTop;
    Qb::int32 m_iRow;
    Qb::int32 m_iFirstRow;
    Qb::int32 m_iLastRow;
    Qb::int32 m_iColumn;
    Qb::int32 m_iPreviousRow;
    char m_cGlyph;
    Qb::int32 m_iMode;
    bool m_bFixedColumn;
    Qb::int32 m_iAlternativeColumn;
};
