// Test helper: a display that only keeps its window, to see what was drawn into it.
#pragma once

#include <string>

#include "Display/Display.h"

class CWindowOnlyDisplay : public CDisplay {
public:
    CWindowOnlyDisplay() { Clear(); }
    void DrawScreen(const std::string&) override {}
    void DrawLine(const std::string&, Qb::int32) override {}
    void DrawHighlighted(const std::string&, Qb::int32, Qb::int32) override {}
    void DrawBlanks(Qb::int32, Qb::int32, Qb::int32) override {}
    void SetRightIndicators(Qb::int32) override {}
    void SetLeftIndicators(Qb::int32) override {}
    char At(int row, int column) const { return GetCurrentWindow()->GetLine(row)[column]; }
    std::string Row(int row) const { return std::string(GetCurrentWindow()->GetLine(row), 30); }
};
