// Helpers shared by the tests of the root screens and the panel lock: reading rows and
// line labels back.
#pragma once

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "Lines/GenericLine.h"
#include "PanelTest.h"
#include "ScreenManager/MenuStyle.h"
#include "ScreenManager/Screen.h"

namespace RootScreens {

// Row r of a panel dump (without the bars), blanks at the end dropped.
inline std::string Row(const std::string& dump, int r)
{
    std::istringstream in(dump);
    std::string line;
    int row = -1;
    while (std::getline(in, line)) {
        if (line.empty() || line[0] != '|')
            continue;  // highlight marks
        if (++row == r) {
            std::string cells = line.substr(1, line.size() >= 2 ? line.size() - 2 : 0);
            return cells.erase(cells.find_last_not_of(' ') + 1);
        }
    }
    return std::string();
}

// The labels of the shown lines of a screen.
inline std::vector<std::string> Labels(CScreen* pScreen)
{
    std::vector<std::string> labels;
    CLineContainer& lines = pScreen->GetMenu()->GetLines();
    for (int i = 0; i < lines.GetCount(); ++i)
        labels.push_back(lines.GetLine(i)->GetLabel());
    return labels;
}

}  // namespace RootScreens
