// Keys, change-event redraws, timer work and the lock combination reaching one display at
// once. Run under ThreadSanitizer as well: it must stay silent, nothing may deadlock, no
// two screens may draw at the same time, and a screen that was left never draws.
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <thread>

#include "KeyPad/KeyPressMonitor.h"
#include "PanelTest.h"
#include "Qb/WakeUpTimer.h"
#include "ScreenManager/MenuStyle.h"
#include "ScreenManager/TavScreenManager.h"
#include "TestScreens.h"

using PanelTest::CTableScreen;
using PanelTest::CTextLine;
using PanelTest::Row_t;

namespace {

std::atomic<int> g_drawing(0);
std::atomic<int> g_overlaps(0);
std::atomic<int> g_offViewDraws(0);

// A line that checks, at every draw, that nobody else is drawing and that its screen is on
// view. Slow on request, to widen the windows the test aims at.
class CCheckedLine : public CTextLine {
public:
    explicit CCheckedLine(const std::string& value) : CTextLine(value) {}
    void Draw(int row) override
    {
        if (g_drawing.fetch_add(1) != 0)
            ++g_overlaps;
        if (pScreen != nullptr && !pScreen->IsOnView())
            ++g_offViewDraws;
        if (slowMs > 0)
            std::this_thread::sleep_for(std::chrono::milliseconds(slowMs.load()));
        CTextLine::Draw(row);
        g_drawing.fetch_sub(1);
    }
    CScreen* pScreen = nullptr;
    std::atomic<int> slowMs{0};
};

// A screen with its own row of lines, each checked.
class CCheckedScreen : public CTableScreen {
public:
    CCheckedScreen(const std::string& title, const std::string& parent, const std::string& target)
        : CTableScreen(title, parent, {}), m_pLine(new CCheckedLine(title))
    {
        m_pLine->pScreen = this;
        m_pMenu->AppendLine(m_pLine, "Value:", target);
        m_pMenu->AppendLine(new CTextLine("second"), "Other:");
    }
    CCheckedLine* Line() { return m_pLine; }

private:
    CCheckedLine* m_pLine;
};

// Redraws itself from the wake-up timer every millisecond while on view; Leave removes the
// event, which waits for a running call-back while the manager's lock is held.
class CPollingScreen : public CCheckedScreen, public Qb::IProcessRequests {
public:
    CPollingScreen(Qb::CWakeUpTimer& timer) : CCheckedScreen("Poll", "A", ""), m_rTimer(timer), m_uId(0) {}
    ~CPollingScreen() override { m_rTimer.RemoveEvent(m_uId); }
    void Enter() override
    {
        CCheckedScreen::Enter();
        m_rTimer.AddEvent(this, 1, m_uId, true);
    }
    void Leave() override
    {
        m_rTimer.RemoveEvent(m_uId);
        CCheckedScreen::Leave();
    }
    void ProcessRequest() override
    {
        RunOnViewFromTimer([this] {
            ++runs;
            PushToMenu();
            m_pMenu->Redraw(0);
        });
    }
    std::atomic<int> runs{0};

private:
    Qb::CWakeUpTimer& m_rTimer;
    unsigned m_uId;
};

// Aborts the test binary when the threads do not finish: a deadlock.
class CWatchdog {
public:
    explicit CWatchdog(int seconds)
        : m_thread([this, seconds] {
              auto end = std::chrono::steady_clock::now() + std::chrono::seconds(seconds);
              while (!m_bDone && std::chrono::steady_clock::now() < end)
                  std::this_thread::sleep_for(std::chrono::milliseconds(10));
              if (!m_bDone) {
                  std::fprintf(stderr, "deadlock: the threads did not finish within %d s\n", seconds);
                  std::abort();
              }
          })
    {
    }
    ~CWatchdog()
    {
        m_bDone = true;
        m_thread.join();
    }

private:
    std::atomic<bool> m_bDone{false};
    std::thread m_thread;
};

class ThreadsTest : public ::testing::Test {
protected:
    ThreadsTest()
    {
        g_overlaps = 0;
        g_offViewDraws = 0;
    }

    PanelTest::CPanelRig m_rig;
    Qb::CWakeUpTimer m_timer;
};

}  // namespace

TEST_F(ThreadsTest, KeysEventsTimerAndLockCombinationShareTheDisplay)
{
    auto* pManager = new CTavScreenManager(nullptr, &m_rig.Display(), nullptr);
    auto* pA = new CCheckedScreen("A", "No Screen", "B");
    auto* pB = new CCheckedScreen("B", "A", "Poll");
    auto* pPoll = new CPollingScreen(m_timer);
    auto* pLock = new CCheckedScreen("Lock/Unlock Front Panel", "A", "");
    pManager->AddScreen(pA, "A");
    pManager->AddScreen(pB, "B");
    pManager->AddScreen(pPoll, "Poll");
    pManager->AddScreen(pLock, "Lock/Unlock Front Panel");
    pManager->ShowScreenLocked("A");
    CKeyPressMonitor monitor(pManager, &m_timer);
    CScreen* screens[] = {pA, pB, pPoll, pLock};

    std::atomic<bool> stop(false);
    {
        CWatchdog watchdog(120);
        // The key thread: A -> B -> Poll and back, edits on the way.
        std::thread keys([&] {
            const int cycle[] = {KEY_ENTER, KEY_DOWN, KEY_UP,   KEY_ENTER, KEY_DOWN,  KEY_UP,
                                 KEY_DOWN,  KEY_UP,   KEY_EXIT, KEY_EXIT,  KEY_ENTER, KEY_EXIT};
            const int count = sizeof(cycle) / sizeof(cycle[0]);
            for (int i = 0; i < 3000; ++i) {
                KeyPress_t key = {cycle[i % count], KEY_STATE_DOWN};
                pManager->RouteKey(key);
                if (i % 97 == 0)
                    pManager->ShowScreenLocked("A");
                if (i % 41 == 0) {
                    pManager->ShowScreenLocked("Poll");  // and let its timer work run a while
                    std::this_thread::sleep_for(std::chrono::milliseconds(3));
                }
                std::this_thread::sleep_for(std::chrono::microseconds(300));
            }
            stop = true;
        });
        // The delivery thread: change events for every screen, on view or not.
        std::thread events([&] {
            for (unsigned i = 0; !stop; ++i) {
                screens[i % 4]->Refresh(1);
                std::this_thread::sleep_for(std::chrono::microseconds(100));
            }
        });
        // The lock combination held and released, and its wake-up firing.
        std::thread combo([&] {
            for (int i = 0; !stop; ++i) {
                KeyStateTable_t keys = PanelTest::KeyStates(i % 3 != 2 ? std::vector<int>{KEY_LEFT, KEY_RIGHT}
                                                                       : std::vector<int>{});
                bool hold = true;
                monitor.OnEvent(nullptr, i % 3 != 2 ? KEYPAD_EVENT_COMBO_DOWN : KEYPAD_EVENT_COMBO_UP, &keys,
                                &hold);
                if (i % 30 == 1)
                    monitor.ProcessRequest();
                std::this_thread::sleep_for(std::chrono::microseconds(200));
            }
        });
        keys.join();
        events.join();
        combo.join();
    }
    EXPECT_EQ(0, g_overlaps.load()) << "two draws ran at the same time";
    EXPECT_EQ(0, g_offViewDraws.load()) << "a screen drew after it was left";
    EXPECT_GT(pPoll->runs.load(), 0) << "the timer work never ran: the test did not test it ("
                                     << pPoll->Enters() << " entries)";
    EXPECT_GT(pLock->Enters(), 0) << "the lock wake-up never switched screens";
    EXPECT_EQ(0u, m_rig.Errors()) << "the panel received a broken command stream";
    delete pManager;
}

TEST_F(ThreadsTest, DeletingTheManagerWaitsForAnEventRedrawInProgress)
{
    auto* pManager = new CTavScreenManager(nullptr, &m_rig.Display(), nullptr);
    auto* pSlow = new CCheckedScreen("Slow", "No Screen", "");
    pManager->AddScreen(pSlow, "Slow");
    pManager->ShowScreenLocked("Slow");
    pSlow->Line()->slowMs = 100;

    CWatchdog watchdog(60);
    // One event redraw holds the lock while drawing slowly, a second one waits for it.
    std::thread first([&] { pSlow->Refresh(1); });
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    std::thread second([&] { pSlow->Refresh(1); });
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    delete pManager;  // must neither free the screen under them nor deadlock
    first.join();
    second.join();
    EXPECT_EQ(0, g_overlaps.load());
}
