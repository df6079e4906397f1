// The tree the screen creator builds for each shipped unit: every line that names a screen
// names one that was added, so no entry anywhere leads nowhere.
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <set>
#include <vector>

#include "Lines/LineContainer.h"
#include "PanelTest.h"
#include "ScreenManager/MenuStyle.h"
#include "ScreenManager/Screen.h"
#include "ScreenManager/TavScreenCreator.h"

namespace {

class ScreenTreeTest : public PanelTest::CPanelTest, public ::testing::WithParamInterface<const char*> {};

TEST_P(ScreenTreeTest, EveryTargetOfEveryReachableScreenExists)
{
    CTavScreenCreator creator;
    creator.CreateScreens(&Manager(), Client(GetParam()));
    std::set<std::string> seen{"Home", "Home Main"};
    std::vector<std::string> queue{"Home", "Home Main"};  // home opens the menu by key
    // FP_TREE_DUMP=file appends every screen reached, as drawn, to the file.
    const char* dump = std::getenv("FP_TREE_DUMP");
    std::ofstream out(dump != nullptr ? dump : "/dev/null", std::ios::app);
    for (size_t next = 0; next < queue.size(); ++next) {
        const std::string name = queue[next];
        Show(name);
        ASSERT_EQ(Current(), name);
        out << name << "\n" << Panel() << "\n";
        EXPECT_EQ(Rig().Errors(), 0u) << "\"" << name << "\" is drawn with protocol errors";
        CLineContainer& lines = Manager().GetCurrentScreen()->GetMenu()->GetLines();
        for (int i = 0; i < lines.GetCount(); ++i) {
            const std::string target = lines.GetTarget(i);
            if (target == "No Screen" || target.empty() || seen.count(target) != 0)
                continue;
            seen.insert(target);
            Show(target);
            EXPECT_EQ(Current(), target) << "\"" << name << "\" line " << i << " leads nowhere";
            if (Current() == target)
                queue.push_back(target);
            Show(name);
        }
    }
    std::cout << GetParam() << ": " << queue.size() << " screens reached\n";
}

INSTANTIATE_TEST_SUITE_P(Units, ScreenTreeTest, ::testing::Values("full.json", "minimal.json"));

}  // namespace
