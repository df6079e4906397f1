#include "KeyPad/FrameAssembler.h"

#include <cstring>

CFrameAssembler::CFrameAssembler() : m_iIndex(0), m_bInFrame(false)
{
    std::memset(m_frame, 0, sizeof(m_frame));
}

bool CFrameAssembler::Add(Qb::uint8 byte)
{
    if (byte == kStart) {
        // A start byte always begins a new frame, whatever was collected before it.
        m_frame[0] = byte;
        m_bInFrame = true;
        m_iIndex = 0;
        return false;
    }
    if (m_iIndex + 1 >= kSize) {
        // Overlong: the frame is dropped and nothing more is stored until the next start.
        m_bInFrame = false;
        return false;
    }
    // Bytes after a frame end are appended too; the next start byte discards them.
    m_frame[++m_iIndex] = byte;
    if (byte == kEnd && m_frame[0] == kStart && m_bInFrame) {
        m_bInFrame = false;
        return true;
    }
    return false;
}
