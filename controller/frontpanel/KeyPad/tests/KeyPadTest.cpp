// Framing, key state, hold timing and queueing, driven pass by pass with a test clock.
#include <gtest/gtest.h>

#include "KeyPad/FrameAssembler.h"
#include "KeyPadTestSupport.h"

namespace {

typedef std::vector<Qb::uint8> Bytes;

std::vector<Bytes> Feed(CFrameAssembler& assembler, const Bytes& bytes)
{
    std::vector<Bytes> frames;
    for (Qb::uint8 byte : bytes) {
        if (assembler.Add(byte))
            frames.push_back(Bytes(assembler.Frame(), assembler.Frame() + assembler.Length()));
    }
    return frames;
}

TEST(FrameAssembler, RestartsOnStartByteAndDropsWhatDoesNotFit)
{
    CFrameAssembler assembler;
    EXPECT_TRUE(Feed(assembler, {0x41, 0x7E}).empty());  // no start byte yet
    EXPECT_EQ(std::vector<Bytes>({{0x09, 0x4B, 0x01, 0x01, 0x7E}}),
              Feed(assembler, {0x09, 0x4B, 0x09, 0x4B, 0x01, 0x01, 0x7E, 0x33, 0x7E}));
    Bytes overlong(CFrameAssembler::kSize + 1, 0x20);
    overlong.front() = 0x09;
    EXPECT_EQ(0u, Feed(assembler, overlong).size() + Feed(assembler, {0x7E}).size());
    overlong.pop_back();
    overlong.back() = 0x7E;  // exactly the buffer's size still fits
    EXPECT_EQ(1u, Feed(assembler, overlong).size());
}

class KeyPad : public ::testing::Test {
protected:
    KeyPad() : pad("/nonexistent/panel.socket") { pad.Register(&recorder); }
    void Report(int key, int state) { Frame({0x09, 'K', Qb::uint8(key), Qb::uint8(state), 0x7E}); }
    void Frame(const Bytes& frame) { pad.ProcessData(frame.data(), int(frame.size())); }
    std::string Drain()
    {
        while (pad.QueuedEvents() > 0)
            pad.DispatchNext(0);
        return recorder.Events();
    }

    CLogCapture log;
    CTestKeyPad pad;
    CRecorder recorder;
};

TEST_F(KeyPad, HoldBeginsAfterMoreThan500MsAndLastsUntilNoKeyIsDown)
{
    testing::internal::CaptureStdout();
    Report(KEY_LEFT, KEY_STATE_DOWN);
    pad.m_now = 1500;
    pad.CheckHold();
    EXPECT_FALSE(pad.IsHolding());
    pad.m_now = 1501;
    pad.CheckHold();  // the hold begins; repeats come with the following passes
    pad.m_now = 9000;
    pad.CheckHold();
    Report(KEY_DOWN, KEY_STATE_DOWN);  // not queued during the hold
    Report(KEY_LEFT, KEY_STATE_UP);    // DOWN takes over, the hold goes on
    pad.m_now = 9100;
    pad.CheckHold();
    Report(KEY_DOWN, KEY_STATE_UP);  // ends the hold, so this release is queued
    EXPECT_FALSE(pad.IsHolding());
    EXPECT_EQ(4, pad.QueuedEvents());
    // The hold line has no line end of its own.
    EXPECT_EQ(
        "Key: LEFT, State: Down, Tick: 1000\n"
        "HOLD STATE: time: 1501 button: LEFTKey: DOWN, State: Down, Tick: 9000\n"
        "Key: LEFT, State: Up, Tick: 9000\n"
        "HOLD STATE: time: 9000 button: DOWNKey: DOWN, State: Up, Tick: 9100\n",
        testing::internal::GetCapturedStdout());
    EXPECT_EQ("KEY LEFT Down,KEY LEFT Down,KEY DOWN Down,", Drain());
}

TEST_F(KeyPad, FullQueueDropsTheNewestSilentlyAndSuspendEmptiesIt)
{
    for (int key = KEY_LEFT; key <= KEY_DOWN; ++key) {
        pad.SetKeyState(key, KEY_STATE_DOWN);
        pad.SetKeyState(key, KEY_STATE_UP);
    }
    EXPECT_EQ("KEY LEFT Down,KEY UP Down,KEY RIGHT Down,", Drain());
    EXPECT_EQ("", log.Text());

    Report(KEY_UP, KEY_STATE_DOWN);
    pad.m_now = 2000;
    pad.CheckHold();
    pad.SetSuspended(true);
    EXPECT_EQ(0, pad.QueuedEvents());
    EXPECT_FALSE(pad.IsHolding());
    EXPECT_EQ(KEY_NONE, pad.CurrentKey());
    testing::internal::CaptureStdout();
    Report(KEY_ENTER, KEY_STATE_DOWN);  // printed, not recorded
    EXPECT_EQ("Key: ENTER, State: Down, Tick: 2000\n", testing::internal::GetCapturedStdout());
    EXPECT_EQ(KeyStateTable_t({{0, 2}, {1, 2}, {2, 2}, {3, 2}, {4, 2}, {5, 2}, {6, 2}}), pad.KeyStates());
    pad.SetSuspended(false);
    Report(KEY_EXIT, KEY_STATE_DOWN);
    EXPECT_EQ("KEY LEFT Down,KEY UP Down,KEY RIGHT Down,KEY EXIT Down,", Drain());
}

TEST_F(KeyPad, ForeignShortAndUnknownReportsChangeNothing)
{
    testing::internal::CaptureStdout();
    Frame({0x09, 'J', 0x01, 0x7E});
    Frame({0x09, 'K', 0x7E});
    Report(9, KEY_STATE_DOWN);
    EXPECT_EQ("Key: Key: Undefined, State: Down, Tick: 1000\n", testing::internal::GetCapturedStdout());
    EXPECT_EQ(
        "P10CTavKeyPad::ProcessData Received Unhandled Payload Identifier:J\n"
        "P10CTavKeyPad::ProcessData Ignored short key report of 3 bytes\n",
        log.Text());
    EXPECT_EQ(KeyStateTable_t({{0, 2}, {1, 2}, {2, 2}, {3, 2}, {4, 2}, {5, 2}, {6, 2}}), pad.KeyStates());
    EXPECT_EQ(0, pad.QueuedEvents());
}

TEST_F(KeyPad, UnregisterIsFalseOnlyWithoutAnyHandler)
{
    CRecorder other;
    EXPECT_TRUE(pad.Unregister(&other));
    pad.Register(&recorder);
    EXPECT_TRUE(pad.Unregister(&recorder));  // both registrations go
    EXPECT_FALSE(pad.Unregister(&recorder));
}

// Either thread failing to start is logged and leaves the keypad not running; the other
// thread is started all the same.
TEST_F(KeyPad, FailedThreadStartIsLoggedAndClearsRunning)
{
    for (int failing : {0, 1}) {
        CTestKeyPad keypad("/nonexistent/panel.socket");
        keypad.m_iFailStart = failing;
        keypad.Initialize();
        EXPECT_FALSE(keypad.IsRunning()) << failing;
        EXPECT_EQ(2, keypad.m_iStarts);
        keypad.StopAndJoin();
    }
    EXPECT_NE(std::string::npos, log.Text().find("P10CTavKeyPad::Initialize("));
    EXPECT_NE(std::string::npos, log.Text().find(") KeyPadWatcher failed rc=0\n"));
    EXPECT_NE(std::string::npos, log.Text().find(") ReadThread failed rc=0\n"));
}

TEST(KeyPadDeathTest, NullDataClientIsAnAssertion)
{
    Qb::CStreamSocket socket(Qb::CLocalSocketAddress("/nonexistent/panel.socket"));
    EXPECT_DEATH(
        { CTavKeyPad pad(socket, nullptr); },
        "controller/frontpanel/KeyPad/TavKeyPad:[0-9]+: CTavKeyPad::CTavKeyPad\\(Qb::CStreamSocket&, "
        "CTavClient\\*\\): Assertion `m_pDb != __null' failed");
}

}  // namespace
