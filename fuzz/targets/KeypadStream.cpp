// The panel's byte stream as the keypad's read thread sees it: chunks of any size through
// the frame assembler, every frame into ProcessData, with the clock, the hold check, the
// dispatch and a screen's suspension interleaved as the input's own sequence decides.
#include <algorithm>
#include <memory>
#include <vector>

#include "Client/TavClient.h"
#include "FuzzSupport.h"
#include "KeyPad/FrameAssembler.h"
#include "KeyPad/TavKeyPad.h"
#include "Qb/Socket.h"
#include "Targets.h"

namespace {

// A keypad without threads: the test drives one read pass at a time with its own clock.
class CFuzzKeyPad : public CTavKeyPad {
public:
    CFuzzKeyPad(Qb::CStreamSocket& socket, CTavClient* pDb) : CTavKeyPad(socket, pDb), m_uNow(1000) {}
    ~CFuzzKeyPad() override { StopAndJoin(); }

    using CTavKeyPad::CheckHold;
    using CTavKeyPad::CurrentKey;
    using CTavKeyPad::DispatchNext;
    using CTavKeyPad::IsHolding;
    using CTavKeyPad::KeyStates;
    using CTavKeyPad::QueuedEvents;
    using CTavKeyPad::ResetIfSuspended;

    Qb::uint32 m_uNow;

protected:
    Qb::uint32 NowMs() override { return m_uNow; }
};

// Shared by all inputs: neither is used by the code under test beyond being there (the
// socket is never read, the data client only attached to by the watcher thread).
struct Environment_t {
    Environment_t() : socket(Qb::CLocalSocketAddress("/nonexistent/fuzz-panel.socket")), db(nullptr) {}
    Qb::CStreamSocket socket;
    CTavClient db;
};

Environment_t& Env()
{
    static Environment_t* env = new Environment_t();  // never destroyed: no exit-time order
    return *env;
}

void CheckFrame(const Qb::uint8* frame, int length)
{
    FUZZ_CHECK(length >= 2 && length <= CFrameAssembler::kSize, "length " + std::to_string(length));
    FUZZ_CHECK(frame[0] == CFrameAssembler::kStart, "");
    FUZZ_CHECK(frame[length - 1] == CFrameAssembler::kEnd, "");
    for (int i = 1; i < length; ++i) {
        FUZZ_CHECK(frame[i] != CFrameAssembler::kStart, "start byte inside a frame at " + std::to_string(i));
    }
}

void CheckKeyState(CFuzzKeyPad& pad, bool suspended)
{
    static KeyStateTable_t states;  // kept, so that its nodes are reused
    pad.KeyStates(states);
    FUZZ_CHECK(states.size() == KEY_COUNT, "table of " + std::to_string(states.size()) + " keys");
    FUZZ_CHECK(states.begin()->first == KEY_NONE && states.rbegin()->first == KEY_COUNT - 1, "");
    const Qb::int32 current = pad.CurrentKey();
    FUZZ_CHECK(current >= KEY_NONE && current < KEY_COUNT, "current key " + std::to_string(current));
    FUZZ_CHECK(pad.QueuedEvents() <= CTavKeyPad::kQueueDepth, "");
    if (suspended) {
        for (const auto& entry : states) {
            FUZZ_CHECK(entry.second == KEY_STATE_UP, "a key is down while suspended");
        }
        FUZZ_CHECK(!pad.IsHolding() && pad.QueuedEvents() == 0, "");
    }
}

}  // namespace

namespace Fuzz {

int KeypadStream(const uint8_t* data, size_t size)
{
    Environment_t& env = Env();
    CFuzzKeyPad pad(env.socket, &env.db);
    CFrameAssembler assembler;
    CChunker chunks(data, size);
    bool suspended = false;

    const uint8_t* chunk = nullptr;
    size_t length = 0;
    while (chunks.Next(chunk, length)) {
        const uint32_t choice = chunks.Random();
        if (choice % 16 == 0) {
            suspended = !suspended;  // a screen starts or ends a long operation
            pad.SetSuspended(suspended);
        }
        pad.m_uNow += (choice >> 8) % 700;  // up to 700 ms between reads crosses the hold time
        pad.ResetIfSuspended();
        for (size_t i = 0; i < length; ++i) {
            if (!assembler.Add(chunk[i])) {
                continue;
            }
            CheckFrame(assembler.Frame(), assembler.Length());
            // An exact-size copy, so a read past the frame's length is caught.
            std::vector<Qb::uint8> frame(assembler.Frame(), assembler.Frame() + assembler.Length());
            pad.ProcessData(frame.data(), static_cast<int>(frame.size()));
        }
        pad.CheckHold();
        CheckKeyState(pad, suspended);
        if ((choice >> 20) % 4 == 0) {
            while (pad.QueuedEvents() > 0) {
                pad.DispatchNext(0);
            }
        }
    }

    // The same bytes as one frame, as if the assembler had handed them over whole.
    if (chunks.StreamSize() > 0) {
        std::unique_ptr<Qb::uint8[]> whole(new Qb::uint8[chunks.StreamSize()]);
        std::copy(chunks.Stream(), chunks.Stream() + chunks.StreamSize(), whole.get());
        pad.ProcessData(whole.get(), static_cast<int>(chunks.StreamSize()));
        CheckKeyState(pad, suspended);
    }
    return 0;
}

}  // namespace Fuzz
