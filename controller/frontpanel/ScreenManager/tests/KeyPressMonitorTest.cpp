// The lock combination: the monitor alone with its events fed directly, then LEFT and RIGHT
// held on a real keypad sharing the display's socket.
#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "Client/TavClient.h"
#include "KeyPad/KeyPressMonitor.h"
#include "KeyPad/TavKeyPad.h"
#include "PanelTest.h"
#include "TestScreens.h"

using PanelTest::CTableScreen;

namespace {

const char* const kLockScreen = "Lock/Unlock Front Panel";

class CCountingManager : public CTavScreenManager {
public:
    CCountingManager() : CTavScreenManager(nullptr, nullptr, nullptr) {}
    void ShowLockScreen() override
    {
        ++lockRequests;
        CTavScreenManager::ShowLockScreen();
    }
    int lockRequests = 0;
};

class KeyPressMonitorTest : public ::testing::Test {
protected:
    KeyPressMonitorTest() : m_monitor(&m_manager, &m_timer)
    {
        m_manager.AddScreen(new CTableScreen("Home", "No Screen", {}), "Home");
        m_manager.AddScreen(new CTableScreen(kLockScreen, "Home", {}), kLockScreen);
        m_manager.ShowScreenLocked("Home");
    }

    bool Combo(int id, KeyStateTable_t keys, bool hold)
    {
        return m_monitor.OnEvent(nullptr, id, &keys, &hold);
    }

    Qb::CWakeUpTimer m_timer;
    CCountingManager m_manager;
    CKeyPressMonitor m_monitor;
};

}  // namespace

TEST_F(KeyPressMonitorTest, ArmsOnlyWhileLeftAndRightAreHeld)
{
    KeyPress_t key = {KEY_LEFT, KEY_STATE_DOWN};
    EXPECT_FALSE(m_monitor.OnEvent(nullptr, KEYPAD_EVENT_KEY, &key, nullptr));

    EXPECT_TRUE(Combo(KEYPAD_EVENT_COMBO_DOWN, PanelTest::KeyStates({KEY_LEFT, KEY_RIGHT}), false));
    EXPECT_FALSE(m_monitor.IsArmed()) << "not in the hold state yet";
    Combo(KEYPAD_EVENT_COMBO_DOWN, PanelTest::KeyStates({KEY_LEFT, KEY_RIGHT, KEY_UP}), true);
    EXPECT_TRUE(m_monitor.IsArmed()) << "a third key does not spoil the combination";
    EXPECT_EQ(1, m_timer.Count());
    Combo(KEYPAD_EVENT_COMBO_DOWN, PanelTest::KeyStates({KEY_LEFT, KEY_RIGHT}), true);
    EXPECT_EQ(1, m_timer.Count()) << "a pending wake-up is not armed twice";

    EXPECT_TRUE(Combo(KEYPAD_EVENT_COMBO_UP, PanelTest::KeyStates({KEY_LEFT}), true));
    EXPECT_FALSE(m_monitor.IsArmed());
    EXPECT_EQ(0, m_timer.Count());

    Combo(KEYPAD_EVENT_COMBO_DOWN, PanelTest::KeyStates({KEY_UP, KEY_DOWN}), true);
    EXPECT_FALSE(m_monitor.IsArmed());
    Combo(KEYPAD_EVENT_COMBO_DOWN, PanelTest::KeyStates({KEY_LEFT, KEY_RIGHT}), true);
    Combo(KEYPAD_EVENT_COMBO_DOWN, PanelTest::KeyStates({KEY_LEFT, KEY_RIGHT}), false);
    EXPECT_FALSE(m_monitor.IsArmed()) << "a combination event without the hold flag disarms";
}

TEST_F(KeyPressMonitorTest, FiringShowsTheLockScreenOnce)
{
    Combo(KEYPAD_EVENT_COMBO_DOWN, PanelTest::KeyStates({KEY_LEFT, KEY_RIGHT}), true);
    m_monitor.ProcessRequest();
    EXPECT_EQ(kLockScreen, m_manager.GetCurrentName());
    EXPECT_EQ(1, m_manager.lockRequests);
    EXPECT_FALSE(m_monitor.IsArmed()) << "the firing disarms";

    Combo(KEYPAD_EVENT_COMBO_DOWN, PanelTest::KeyStates({KEY_LEFT, KEY_RIGHT}), true);
    m_monitor.ProcessRequest();
    EXPECT_EQ(1, m_manager.lockRequests) << "the lock screen is already on show";

    m_manager.ShowScreenLocked("Home");
    Combo(KEYPAD_EVENT_COMBO_UP, PanelTest::KeyStates({}), false);
    m_monitor.ProcessRequest();
    EXPECT_EQ("Home", m_manager.GetCurrentName()) << "a late wake-up after the release does nothing";
}

// LEFT and RIGHT (or UP and DOWN) held on the panel, through a real keypad.
class LockCombinationTest : public PanelTest::CPanelTest {
protected:
    LockCombinationTest()
    {
        CTavClient* pClient = Client();
        Add(new CTableScreen("Main Menu", "No Screen", PanelTest::MenuRows({{"Inputs", "Inputs"}})),
            "Main Menu");
        Add(new CTableScreen(kLockScreen, "Main Menu", {}), kLockScreen);
        Show("Main Menu");
        m_pKeyPad.reset(new CTavKeyPad(Rig().Socket(), pClient));
        m_pMonitor.reset(new CKeyPressMonitor(&Manager(), &pClient->GetWakeUpTimer()));
        m_pKeyPad->Register(Manager().GetEventHandler());
        m_pKeyPad->Register(m_pMonitor->GetEventHandler());
        m_pKeyPad->Initialize();
    }
    ~LockCombinationTest() override
    {
        m_pKeyPad.reset();  // threads joined before the handlers' targets go
        m_pMonitor.reset();
    }

    void Both(int first, int second, int state)
    {
        Rig().SendKey(first, state);
        Rig().SendKey(second, state);
    }
    // Milliseconds until the lock screen is on show, or -1 when it is not within limitMs.
    int WaitForLockScreen(int limitMs)
    {
        auto start = std::chrono::steady_clock::now();
        for (;;) {
            int elapsed = static_cast<int>(std::chrono::duration_cast<std::chrono::milliseconds>(
                                               std::chrono::steady_clock::now() - start)
                                               .count());
            if (Current() == kLockScreen)
                return elapsed;
            if (elapsed > limitMs)
                return -1;
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        }
    }

    std::unique_ptr<CTavKeyPad> m_pKeyPad;
    std::unique_ptr<CKeyPressMonitor> m_pMonitor;
};

TEST_F(LockCombinationTest, LeftAndRightHeldOpenTheLockScreenAfterAboutFiveAndAHalfSeconds)
{
    Both(KEY_LEFT, KEY_RIGHT, KEY_STATE_DOWN);
    int elapsed = WaitForLockScreen(12000);
    Both(KEY_LEFT, KEY_RIGHT, KEY_STATE_UP);
    EXPECT_GE(elapsed, 5000) << "the hold must last the whole interval";
    EXPECT_NE(-1, elapsed) << "the lock screen never came";
    EXPECT_PANEL("lock_placeholder_after_combination");
}

TEST_F(LockCombinationTest, ReleasedAfterThreeSecondsOrUpAndDownNeverLock)
{
    Both(KEY_LEFT, KEY_RIGHT, KEY_STATE_DOWN);
    std::this_thread::sleep_for(std::chrono::milliseconds(3000));
    Both(KEY_LEFT, KEY_RIGHT, KEY_STATE_UP);
    EXPECT_EQ(-1, WaitForLockScreen(3500));

    Both(KEY_UP, KEY_DOWN, KEY_STATE_DOWN);
    EXPECT_EQ(-1, WaitForLockScreen(7000));
    Both(KEY_UP, KEY_DOWN, KEY_STATE_UP);
    EXPECT_EQ("Main Menu", Current());
}
