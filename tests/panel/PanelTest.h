// Test base for screens on the real display: a panel rig, a screen manager drawing on it,
// key feeding and golden-panel checks.
//
//   class CMyScreenTest : public PanelTest::CPanelTest {};
//   TEST_F(CMyScreenTest, ...) {
//       Add(new CMyScreen(), "My Screen");
//       Show("My Screen");
//       Press(KEY_DOWN);
//       ExpectPanel("my_screen_second_line");
//   }
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

#include "Golden.h"
#include "PanelRig.h"
#include "ScreenManager/TavScreenManager.h"
#include "TestScreens.h"

class CTavClient;
namespace Zor {
class CZorClient;
}

namespace PanelTest {

inline KeyPress_t Key(int code, int state = KEY_STATE_DOWN)
{
    return KeyPress_t{code, state};
}
// Keys written as letters: L U R D, X for EXIT, E for ENTER; a count before a letter repeats
// it ("E11RUE"); blanks only separate.
std::vector<int> KeyCodes(const std::string& keys);
// The key-state table with these keys down and the others up.
KeyStateTable_t KeyStates(const std::vector<int>& down);
// Polls `done` until it holds or `ms` pass (events and timers run on their own threads).
bool WaitUntil(const std::function<bool()>& done, int ms = 5000);
// Row r of a panel dump (without the bars), blanks at the end dropped.
std::string Row(const std::string& dump, int r);

class CPanelTest : public ::testing::Test {
protected:
    CPanelTest();
    ~CPanelTest() override;

    // A data client on an embedded virtual unit (unit/units/<unit>), made on first use.
    // Call it before adding screens: the manager is made again around the client.
    CTavClient* Client(const std::string& unit = "full.json");

    CTavScreenManager& Manager() { return *m_pManager; }
    CPanelRig& Rig() { return m_rig; }
    void Add(CScreen* pScreen, const std::string& name) { m_pManager->AddScreen(pScreen, name); }
    // A screen of rows, added under its title.
    CTableScreen* AddTable(const std::string& name, const std::string& parent, const std::vector<Row_t>& rows,
                           const std::string& style = "Menu Style Basic")
    {
        CTableScreen* pScreen = new CTableScreen(name, parent, rows, style);
        Add(pScreen, name);
        return pScreen;
    }
    void Show(const std::string& name) { m_pManager->ShowScreenLocked(name); }
    // Key presses as the keypad dispatches them, `times` over.
    void Press(int key, int times = 1) { Press({key}, times); }
    void Press(std::initializer_list<int> keys, int times = 1);
    void PressKeys(const std::string& keys);
    std::string Current() { return m_pManager->GetCurrentName(); }
    std::string Panel() { return m_rig.Dump(); }
    ::testing::AssertionResult PanelMatches(const std::string& golden)
    {
        return MatchesGolden(golden, Panel());
    }

    // Makes the manager again around a client the test owns (null before that client goes).
    void UseClient(CTavClient* pClient);

private:
    CPanelRig m_rig;
    std::unique_ptr<Zor::CZorClient> m_pZor;
    std::unique_ptr<CTavClient> m_pClient;
    std::unique_ptr<CTavScreenManager> m_pManager;
};

}  // namespace PanelTest

#define EXPECT_PANEL(golden) EXPECT_TRUE(PanelMatches(golden))
