// An empty spacer row (also the second row of a two-row list line).
#pragma once

#include "Lines/GenericLine.h"

class CGenericDummyLine : public CGenericLine {
public:
    CGenericDummyLine();

    bool HandleKey(const KeyPress_t&) override { return true; }
    bool SetValue(const char*) override { return true; }
    bool SetValue(const std::string&) override { return true; }
    bool SetIndex(int) override { return true; }
    std::string GetValue() override { return std::string(); }
    void Draw(int) override {}
    void ShowCursor(int) override {}
    void HideCursor(int) override {}
};
