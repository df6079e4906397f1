// Off-screen character grid that the display draws into before anything reaches the panel.
#pragma once

#include "Qb/Types.h"
#include "Qb/Uncopyable.h"

class CDisplayWindow : private Qb::CUncopyable {
public:
    CDisplayWindow(Qb::int32 id, Qb::int32 columns, Qb::int32 rows);
    virtual ~CDisplayWindow();

    void SetPosition(Qb::int32 row, Qb::int32 column);
    void Clear();
    void ClearLine();
    void PutChar(char character);
    void WriteLine(const char* text);
    void Write(const char* text);

    const char* GetBuffer() const { return m_pBuffer; }
    const char* GetLine(Qb::int32 row) const;
    Qb::int32 Length() const;

    Qb::int32 GetId() const { return m_iId; }
    Qb::int32 GetRows() const { return m_iRows; }
    Qb::int32 GetColumns() const { return m_iColumns; }
    Qb::int32 GetCursorRow() const { return m_iRow; }
    Qb::int32 GetCursorColumn() const { return m_iColumn; }

private:
    char* m_pBuffer;  // columns x rows cells and a terminating zero
    Qb::int32 m_iId;
    Qb::int32 m_iRow;
    Qb::int32 m_iColumn;
    Qb::int32 m_iColumns;
    Qb::int32 m_iRows;
    [[maybe_unused]] Qb::int32 m_iReserved;  // kept zero, as the window layout has it
    [[maybe_unused]] char m_cReserved;
};
