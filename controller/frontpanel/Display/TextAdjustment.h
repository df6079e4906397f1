// Aligns texts within a row and word-wraps long texts into rows. Plain in-memory helper.
#pragma once

#include <string>
#include <vector>

#include "Qb/Types.h"

// Alignment codes of CDisplay::WriteAligned and CDisplay::WriteWrapped; any other value
// aligns left.
enum {
    ALIGN_CENTRE = 1,
    ALIGN_RIGHT = 2,
};

class CTextAdjustment {
public:
    explicit CTextAdjustment(Qb::int32 width) : m_iWidth(width) {}
    virtual ~CTextAdjustment() {}

    // Each alignment changes the text in place and pads it to a full row.
    Qb::int32 Centre(std::string& text, Qb::int32 offset);
    Qb::int32 AlignRight(std::string& text, Qb::int32 offset);
    Qb::int32 AlignLeft(std::string& text, Qb::int32 offset);

    std::vector<std::string> Split(const std::string& text, char separator);
    // Appends the wrapped lines to `lines` and returns how many were appended.
    Qb::int32 Wrap(const std::string& text, std::vector<std::string>& lines, Qb::int32 maximum,
                   char separator);

    Qb::int32 GetWidth() const { return m_iWidth; }

private:
    Qb::int32 Gap(const std::string& text) const;

    Qb::int32 m_iWidth;
};
