// Cuts the panel's byte stream into frames: 0x09, identifier, payload, 0x7E.
#pragma once

#include "Qb/Types.h"

class CFrameAssembler {
public:
    enum { kSize = 256, kStart = 0x09, kEnd = 0x7E };

    CFrameAssembler();

    // Takes the next received byte; true when it completed a frame, which Frame() and
    // Length() then describe until the next call. Received bytes are not unescaped.
    bool Add(Qb::uint8 byte);

    const Qb::uint8* Frame() const { return m_frame; }
    int Length() const { return m_iIndex + 1; }

private:
    Qb::uint8 m_frame[kSize];
    int m_iIndex;     // index of the last stored byte; kept from one read to the next
    bool m_bInFrame;  // a start byte was seen and its frame is not complete yet
};
