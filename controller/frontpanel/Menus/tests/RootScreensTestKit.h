// Helpers shared by the tests of the root screens and the panel lock: the screen tree built
// on the panel fixture, unit variants, and reading rows and entries back.
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <fstream>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "Lines/GenericLine.h"
#include "PanelTest.h"
#include "ScreenManager/MenuStyle.h"
#include "ScreenManager/Screen.h"

namespace RootScreens {

// The unit files, found from this source file's place in the tree.
inline std::string UnitPath(const std::string& unit)
{
    std::string here = __FILE__;
    return here.substr(0, here.rfind("/controller/")) + "/unit/units/" + unit;
}

// A copy of a unit file with texts replaced, written to a private folder; the name to give
// CPanelTest::Client (which reads units from the unit folder, so the path climbs out of it).
class CUnitVariant {
public:
    CUnitVariant(const std::string& unit, const std::vector<std::pair<std::string, std::string>>& edits)
    {
        std::ifstream in(UnitPath(unit));
        std::stringstream text;
        text << in.rdbuf();
        std::string json = text.str();
        for (const auto& edit : edits) {
            size_t at = json.find(edit.first);
            EXPECT_NE(at, std::string::npos) << "not in " << unit << ": " << edit.first;
            if (at != std::string::npos)
                json.replace(at, edit.first.size(), edit.second);
        }
        char dir[] = "/tmp/fp-unit-XXXXXX";
        m_strDir = mkdtemp(dir) != nullptr ? dir : "/tmp";
        m_strPath = m_strDir + "/" + unit;
        std::ofstream(m_strPath) << json;
    }
    ~CUnitVariant()
    {
        unlink(m_strPath.c_str());
        rmdir(m_strDir.c_str());
    }
    CUnitVariant(const CUnitVariant&) = delete;
    CUnitVariant& operator=(const CUnitVariant&) = delete;

    std::string Name() const
    {
        std::string up;
        for (int i = 0; i < 24; ++i)
            up += "../";  // more than any unit folder is deep: ".." stops at "/"
        return up + m_strPath.substr(1);
    }

private:
    std::string m_strDir;
    std::string m_strPath;
};

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
