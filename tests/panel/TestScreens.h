// Small building blocks for screen tests: a plain text value line and a screen built from
// a table of rows.
#pragma once

#include <string>
#include <vector>

#include "Lines/GenericLine.h"
#include "ScreenManager/Screen.h"

namespace PanelTest {

// A line showing a text value; bound lines read it from the controller at every redraw.
// ENTER toggles edit mode (unless read-only), LEFT/RIGHT append '<'/'>' while editing.
class CTextLine : public CGenericLine {
public:
    explicit CTextLine(const std::string& value = std::string());

    bool HandleKey(const KeyPress_t& key) override;
    bool SetValue(const char* value) override;
    std::string GetValue() override { return m_strValue; }
    void Draw(int row) override
    {
        ++m_iDraws;
        DrawLayout(row, m_strValue, m_bEditing);
    }

    int Draws() const { return m_iDraws; }

private:
    std::string m_strValue;
    int m_iDraws;
};

struct Row_t {
    std::string label;
    std::string target;  // screen opened by ENTER, empty for none
    bool selectable;
    CGenericLine* pLine;  // null: a CTextLine with no value
};

// A screen whose title, parent and rows are given at construction.
class CTableScreen : public CScreen {
public:
    CTableScreen(const std::string& title, const std::string& parent, const std::vector<Row_t>& rows,
                 const std::string& style = "Menu Style Basic");

    void Enter() override;
    void Leave() override;
    int Enters() const { return m_iEnters; }
    int Leaves() const { return m_iLeaves; }

private:
    int m_iEnters;
    int m_iLeaves;
};

// Rows that only open screens: {label, target}.
std::vector<Row_t> MenuRows(const std::vector<std::pair<std::string, std::string>>& entries);

}  // namespace PanelTest
