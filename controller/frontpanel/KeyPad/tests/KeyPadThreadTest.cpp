// The keypad's own threads on a real socket. Waits are event-driven with generous limits, and
// only bounds that hold on a loaded machine are checked.
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <regex>

#include "KeyPadTestSupport.h"
#include "Qb/Thread.h"

namespace {

class KeyPadThreads : public ::testing::Test {
protected:
    KeyPadThreads() : pad(panel.Path(), false) {}
    void SetUp() override
    {
        ASSERT_TRUE(panel.Accept());
        pad.Register(&recorder);
        pad.SetReconnectHandler([this] { ++reconnects; });
        testing::internal::CaptureStdout();
        pad.Initialize();
    }
    void TearDown() override
    {
        if (!m_bFinished)
            Finish();
    }
    // Lets the watcher take every queued event, stops both threads, returns what was printed.
    std::string Finish()
    {
        for (int i = 0; i < 100 && pad.QueuedEvents() > 0; ++i)
            Qb::CThread::Sleep(50);
        pad.StopAndJoin();
        m_bFinished = true;
        return testing::internal::GetCapturedStdout();
    }

    CLogCapture log;
    CPanelEnd panel;
    CTestKeyPad pad;
    CRecorder recorder;
    std::atomic<int> reconnects{0};
    bool m_bFinished = false;
};

// A key released before the hold threshold gives one event; held longer, it repeats at most
// once per silent pass, each repeat announced first without a line end. The press arrives
// after a foreign frame, restarted by a second start byte, all in one chunk.
class KeyPadPress : public KeyPadThreads, public ::testing::WithParamInterface<bool> {};

TEST_P(KeyPadPress, RepeatsOncePerSilentPassOnlyWhenHeld)
{
    const bool held = GetParam();
    const Qb::uint32 start = Qb::TickMs();
    panel.Send({0x09, 'J', 0x7E, 0x09, 'K', 0x09, 'K', KEY_RIGHT, KEY_STATE_DOWN, 0x7E});
    if (held)
        ASSERT_TRUE(recorder.WaitFor(4));  // the press and three repeats
    else
        Qb::CThread::Sleep(300);
    panel.Key(KEY_RIGHT, KEY_STATE_UP);
    const int heldMs = int(Qb::TickMs() - start);
    Qb::CThread::Sleep(held ? 0 : 400);  // room for a wrong repeat or release event
    const std::string out = Finish();

    const std::string events = recorder.Events();
    EXPECT_TRUE(std::regex_match(
        events, std::regex(held ? "KEY RIGHT Down,(KEY RIGHT Down\\+,){3}(KEY RIGHT Down\\+?,)*"
                                : "KEY RIGHT Down,")))
        << events;
    EXPECT_TRUE(std::regex_match(out, std::regex("Key: RIGHT, State: Down, Tick: [0-9]+\n"
                                                 "(HOLD STATE: time: [0-9]+ button: RIGHT)*"
                                                 "Key: RIGHT, State: Up, Tick: [0-9]+\n")))
        << out;
    const int repeats = int(std::count(events.begin(), events.end(), ',')) - 1;
    std::regex announcement("HOLD STATE");
    EXPECT_EQ(repeats, std::distance(std::sregex_iterator(out.begin(), out.end(), announcement),
                                     std::sregex_iterator()));
    EXPECT_LE(repeats, (heldMs - CTavKeyPad::kHoldMs) / CTavKeyPad::kReadTimeoutMs + 2) << heldMs << " ms";
    EXPECT_NE(std::string::npos, log.Text().find("ProcessData Received Unhandled Payload Identifier:J\n"));
}

INSTANTIATE_TEST_SUITE_P(ShortOrHeld, KeyPadPress, ::testing::Bool());

TEST_F(KeyPadThreads, CombinationDownUntilOneKeyIsLeft)
{
    panel.Key(KEY_LEFT, KEY_STATE_DOWN);
    ASSERT_TRUE(recorder.WaitFor(1));
    panel.Key(KEY_RIGHT, KEY_STATE_DOWN);
    ASSERT_TRUE(recorder.WaitFor(7));  // then two repeats of LEFT, each with its combination
    panel.Key(KEY_RIGHT, KEY_STATE_UP);
    ASSERT_TRUE(recorder.WaitFor(0, "COMBO_UP 1+,"));
    panel.Key(KEY_LEFT, KEY_STATE_UP);
    Finish();
    // Releasing RIGHT queued nothing; the next repeat of LEFT ended the combination.
    std::string events = recorder.Events();
    EXPECT_TRUE(std::regex_match(events, std::regex("KEY LEFT Down,KEY RIGHT Down\\+?,COMBO_DOWN 13\\+?,"
                                                    "(KEY LEFT Down\\+,COMBO_DOWN 13\\+,){2,}"
                                                    "KEY LEFT Down\\+,COMBO_UP 1\\+,(KEY LEFT Down\\+?,)*")))
        << events;
}

// A panel that goes away cannot report its releases: the keys held on it are released when
// a new one connects, so no combination or hold outlives it, and the owner hears of it.
TEST_F(KeyPadThreads, ANewPanelEndsTheOldOnesKeysAndIsAnnounced)
{
    panel.Key(KEY_LEFT, KEY_STATE_DOWN);
    panel.Key(KEY_RIGHT, KEY_STATE_DOWN);
    ASSERT_TRUE(recorder.WaitFor(0, "COMBO_DOWN 13,"));
    EXPECT_EQ(0, reconnects.load());
    panel.Drop();
    ASSERT_TRUE(panel.Accept());
    for (int i = 0; i < 100 && reconnects.load() == 0; ++i)
        Qb::CThread::Sleep(20);
    EXPECT_EQ(1, reconnects.load());
    Finish();
    EXPECT_TRUE(
        std::regex_search(recorder.Events(), std::regex("COMBO_UP [0-9]*\\+?,(KEY [A-Z]+ Down\\+?,)*$")))
        << recorder.Events();
    EXPECT_EQ(KeyStateTable_t({{0, 2}, {1, 2}, {2, 2}, {3, 2}, {4, 2}, {5, 2}, {6, 2}}), pad.KeyStates());
}

TEST_F(KeyPadThreads, DestructorJoinsBothThreadsWithinAPass)
{
    Finish();
    std::unique_ptr<CTavKeyPad> keypad(new CTavKeyPad(pad.m_socket, &pad.m_db));
    keypad->Initialize();
    Qb::CThread::Sleep(100);
    keypad->Stop();
    Qb::uint32 stopped = Qb::TickMs();
    keypad.reset();
    EXPECT_LT(Qb::TickMs() - stopped, 200u);
    std::string text = std::regex_replace(log.Text(), std::regex("\\([0-9]+\\)"), "(#)");
    for (const char* line : {"P10CTavKeyPad::KeyPadWatcherRun(#) Starting thread\n",
                             "P10CTavKeyPad::KeyPadWatcherRun(#) Closing thread\n",
                             "P10CTavKeyPad::ReadThreadRun(#) Starting thread\n",
                             "P10CTavKeyPad::ReadThreadRun(#) Closing thread\n"})
        EXPECT_NE(std::string::npos, text.find(line)) << text;
}

}  // namespace
