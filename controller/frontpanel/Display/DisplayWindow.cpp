#include "Display/DisplayWindow.h"

#include <cstring>

using Qb::int32;

CDisplayWindow::CDisplayWindow(int32 id, int32 columns, int32 rows)
    : m_pBuffer(nullptr),
      m_iId(id),
      m_iRow(0),
      m_iColumn(0),
      m_iColumns(columns > 0 ? columns : 0),
      m_iRows(rows > 0 ? rows : 0),
      m_iReserved(0),
      m_cReserved(0)
{
    const size_t size = static_cast<size_t>(m_iColumns) * static_cast<size_t>(m_iRows) + 1;
    m_pBuffer = new char[size];
    // Zero-filled, so a window nobody has drawn into reads as empty and is never sent.
    std::memset(m_pBuffer, 0, size);
}

CDisplayWindow::~CDisplayWindow()
{
    delete[] m_pBuffer;
}

void CDisplayWindow::SetPosition(int32 row, int32 column)
{
    // Row and column are checked independently: a bad row keeps the old row but still
    // takes a good column. Negative values are ignored as well.
    if (row >= 0 && row < m_iRows) {
        m_iRow = row;
    }
    if (column >= 0 && column < m_iColumns) {
        m_iColumn = column;
    }
}

void CDisplayWindow::Clear()
{
    std::memset(m_pBuffer, ' ', static_cast<size_t>(m_iColumns) * static_cast<size_t>(m_iRows));
}

void CDisplayWindow::ClearLine()
{
    if (m_iRows > 0) {
        std::memset(m_pBuffer + m_iRow * m_iColumns, ' ', static_cast<size_t>(m_iColumns));
    }
}

void CDisplayWindow::PutChar(char character)
{
    if (m_iRows > 0 && m_iColumn < m_iColumns) {
        m_pBuffer[m_iRow * m_iColumns + m_iColumn] = character;
    }
}

void CDisplayWindow::WriteLine(const char* text)
{
    if (text == nullptr || m_iRows == 0) {
        return;
    }
    // On purpose a bounded copy of exactly one row: a shorter text leaves zero bytes in the
    // rest of the row, which cut the window's text short. Callers pad to the full width.
    std::strncpy(m_pBuffer + m_iRow * m_iColumns, text, static_cast<size_t>(m_iColumns));
}

void CDisplayWindow::Write(const char* text)
{
    if (text == nullptr) {
        return;
    }
    const int32 cells = m_iColumns * m_iRows;
    const int32 position = m_iRow * m_iColumns + m_iColumn;
    // Kept as it always was: a cursor on the very last cell writes nothing.
    if (position >= cells - 1) {
        return;
    }
    size_t count = std::strlen(text);
    const size_t room = static_cast<size_t>(cells - position);
    if (count > room) {
        count = room;
    }
    std::memcpy(m_pBuffer + position, text, count);
}

const char* CDisplayWindow::GetLine(int32 row) const
{
    if (row < 0 || row >= m_iRows) {
        row = 0;
    }
    return m_pBuffer + row * m_iColumns;
}

int32 CDisplayWindow::Length() const
{
    return static_cast<int32>(std::strlen(m_pBuffer));
}
