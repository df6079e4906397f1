#include "KeyPad/TavKeyPad.h"

#include <cstring>
#include <log4cpp/Category.hh>

#include "Client/TavClient.h"
#include "KeyPad/Assert.h"
#include "KeyPad/FrameAssembler.h"
#include "Qb/Print.h"

namespace {

// The class label of the log lines is the mangled type name, on purpose: log filters and
// the people reading the logs know the keypad by it.
const char* const kClassLabel = "P10CTavKeyPad";
const char* const kLogCategory = "tav.frontpanel.input";
const int kReadBufferSize = 256;

}  // namespace

CTavKeyPad::CTavKeyPad(Qb::CStreamSocket& socket, CTavClient* pDb)
    : m_bCombo(false),
      m_bRunning(false),
      m_log(log4cpp::Category::getInstance(kLogCategory)),
      m_pMutex(new Qb::CMutex("KeyPressGuiMutex")),
      m_bSuspended(false),
      m_iCurrentKey(KEY_NONE),
      m_iCurrentState(KEY_STATE_UP),
      m_uPressTime(0),
      m_bHold(false),
      m_pQueue(new Qb::CMsgQ<KeyPress_t>(kQueueDepth, "CMsgQ")),
      m_pDb(pDb),
      m_rSocket(socket),
      m_bSnapshotHold(false),
      m_pWatcherThread(nullptr),
      m_pReadThread(nullptr)
{
    FP_ASSERT(m_pDb != NULL);
    for (Qb::int32 key = KEY_NONE; key < KEY_COUNT; ++key)
        m_keyStates[key] = KEY_STATE_UP;
    m_snapshotStates = m_keyStates;
}

CTavKeyPad::~CTavKeyPad()
{
    StopAndJoin();
    delete m_pQueue;
    delete m_pMutex;
}

void CTavKeyPad::StopAndJoin()
{
    m_bRunning = false;
    if (m_pReadThread != nullptr && m_pReadThread->Handle() != 0)
        m_pReadThread->Join();
    if (m_pWatcherThread != nullptr && m_pWatcherThread->Handle() != 0)
        m_pWatcherThread->Join();
    delete m_pReadThread;
    m_pReadThread = nullptr;
    delete m_pWatcherThread;
    m_pWatcherThread = nullptr;
}

bool CTavKeyPad::Register(CEventHandler* pHandler)
{
    return m_eventSource.Register(pHandler);
}

bool CTavKeyPad::Unregister(CEventHandler* pHandler)
{
    if (!m_eventSource.HasHandlers())
        return false;
    // True even when pHandler was not registered: callers only learn whether any handler is.
    m_eventSource.Unregister(pHandler);
    return true;
}

void CTavKeyPad::Initialize()
{
    if (m_pWatcherThread != nullptr || m_pReadThread != nullptr)
        return;  // already started
    m_bRunning = true;

    // The watcher goes first, and the read thread starts even when the watcher could not.
    m_pWatcherThread = new Qb::CThread("KeyPadWatcher", kThreadPriority, [this] { KeyPadWatcherRun(); });
    if (!StartThread(*m_pWatcherThread)) {
        // The rc is the handle, 0 here, deliberately not an error code.
        m_log.error("%s::%s(%i) KeyPadWatcher failed rc=%d", kClassLabel, "Initialize", __LINE__,
                    static_cast<int>(m_pWatcherThread->Handle()));
        m_bRunning = false;
    }
    m_pReadThread = new Qb::CThread("KeyPadRead", kThreadPriority, [this] { ReadThreadRun(); });
    if (!StartThread(*m_pReadThread)) {
        m_log.error("%s::%s(%i) ReadThread failed rc=%d", kClassLabel, "Initialize", __LINE__,
                    static_cast<int>(m_pReadThread->Handle()));
        m_bRunning = false;
    }
}

bool CTavKeyPad::StartThread(Qb::CThread& thread)
{
    return thread.Start();
}

Qb::uint32 CTavKeyPad::NowMs()
{
    return Qb::TickMs();
}

void CTavKeyPad::SetSuspended(bool suspended)
{
    Qb::CMutexLocker lock(*m_pMutex);
    m_bSuspended = suspended;
    if (suspended) {
        m_pQueue->Clear();
        ResetKeys();
    }
}

bool CTavKeyPad::IsSuspended()
{
    Qb::CMutexLocker lock(*m_pMutex);
    return m_bSuspended;
}

void CTavKeyPad::ResetKeys()
{
    m_iCurrentState = KEY_STATE_UP;
    m_bHold = false;
    m_iCurrentKey = KEY_NONE;
    m_uPressTime = 0;
    for (Qb::int32 key = KEY_NONE; key < KEY_COUNT; ++key)
        m_keyStates[key] = KEY_STATE_UP;
}

void CTavKeyPad::ReadThreadRun()
{
    m_log.debug("%s::%s(%i) Starting thread", kClassLabel, "ReadThreadRun", __LINE__);
    Qb::uint8 buffer[kReadBufferSize];
    std::memset(buffer, 0, sizeof(buffer));
    CFrameAssembler assembler;  // its frame index and state carry over from read to read
    Qb::uint32 connects = m_rSocket.Connects();

    while (m_bRunning) {
        ResetIfSuspended();
        // Errors and time-outs alike mean no bytes this pass; the socket reconnects itself.
        int count = m_rSocket.Read(buffer, kReadBufferSize, kReadTimeoutMs);
        if (m_rSocket.Connects() != connects) {
            // A new panel: the keys held on the old one are released as if reported (so a
            // hold or a combination ends for the handlers too), half a frame from it is
            // dropped, and it must be shown the current screen.
            connects = m_rSocket.Connects();
            assembler = CFrameAssembler();
            for (const auto& key : KeyStates())
                if (key.second == KEY_STATE_DOWN)
                    SetKeyState(key.first, KEY_STATE_UP);
            if (m_onReconnect)
                m_onReconnect();
        }
        for (int i = 0; i < count; ++i) {
            if (assembler.Add(buffer[i]))
                ProcessData(assembler.Frame(), assembler.Length());
        }
        CheckHold();
    }
    m_log.debug("%s::%s(%i) Closing thread", kClassLabel, "ReadThreadRun", __LINE__);
}

void CTavKeyPad::ResetIfSuspended()
{
    Qb::CMutexLocker lock(*m_pMutex);
    if (m_bSuspended)
        ResetKeys();
}

void CTavKeyPad::CheckHold()
{
    // Under the state mutex: SetSuspended writes the same fields from screen threads, and a
    // repeat must never be queued after a suspend has emptied the queue.
    Qb::CMutexLocker lock(*m_pMutex);
    if (m_keyStates[m_iCurrentKey] != KEY_STATE_DOWN)
        return;
    if (m_bHold) {
        // No newline, on purpose: repeats run on into the next printed line.
        Qb::MyPrintf("HOLD STATE: time: %d button: %s", static_cast<int>(m_uPressTime),
                     KeyName(m_iCurrentKey));
        KeyPress_t repeat = {m_iCurrentKey, m_iCurrentState};
        m_pQueue->Post(repeat);  // a full queue drops the repeat
        return;
    }
    Qb::uint32 now = NowMs();
    if (now - m_uPressTime <= kHoldMs)
        return;
    m_bHold = true;
    m_uPressTime = now;
}

void CTavKeyPad::ProcessData(const Qb::uint8* frame, int length)
{
    if (length < 2 || frame[0] != CFrameAssembler::kStart)
        return;
    char id = static_cast<char>(frame[1]);
    if (id != 'K') {
        m_log.error("%s::%s Received Unhandled Payload Identifier:%c", kClassLabel, "ProcessData", id);
        return;
    }
    if (length < 5) {
        // Start, 'K', key, state, end: anything shorter carries no key or state.
        m_log.error("%s::%s Ignored short key report of %d bytes", kClassLabel, "ProcessData", length);
        return;
    }
    Qb::int32 key = frame[2];
    Qb::int32 state = frame[3];
    Qb::MyPrintf("Key: %s, State: %s, Tick: %i\n", KeyName(key), StateName(state), static_cast<int>(NowMs()));
    Qb::CMutexLocker lock(*m_pMutex);
    if (!m_bSuspended)
        SetKeyState(key, state);
}

void CTavKeyPad::SetKeyState(Qb::int32 key, Qb::int32 state)
{
    Qb::CMutexLocker lock(*m_pMutex);
    if (key < KEY_NONE || key >= KEY_COUNT)
        return;  // only the seven known keys have a state; the report was printed already
    m_keyStates[key] = state;

    if (m_keyStates[m_iCurrentKey] == KEY_STATE_UP) {
        // The current key went up (or there was none): the lowest key still down takes over.
        m_iCurrentState = KEY_STATE_UP;
        m_iCurrentKey = KEY_NONE;
        bool anyDown = false;
        for (Qb::int32 k = KEY_NONE; k < KEY_COUNT; ++k) {
            if (m_keyStates[k] == KEY_STATE_DOWN) {
                m_iCurrentKey = k;
                m_iCurrentState = KEY_STATE_DOWN;
                anyDown = true;
                break;
            }
        }
        // A hold lasts until no key at all is down.
        if (!anyDown)
            m_bHold = false;
        m_uPressTime = NowMs();
    }

    // During a hold neither presses nor releases are queued.
    if ((state == KEY_STATE_DOWN || state == KEY_STATE_UP) && key != KEY_NONE && !m_bHold) {
        KeyPress_t press = {key, state};
        m_pQueue->Post(press);  // a full queue drops the event silently
    }
}

void CTavKeyPad::KeyPadWatcherRun()
{
    m_log.debug("%s::%s(%i) Starting thread", kClassLabel, "KeyPadWatcherRun", __LINE__);
    // Handlers run here and may use the data engine.
    m_pDb->AttachThread();
    while (m_bRunning)
        DispatchNext(kWaitTimeoutMs);
    m_pDb->DetachThread();
    m_log.debug("%s::%s(%i) Closing thread", kClassLabel, "KeyPadWatcherRun", __LINE__);
}

void CTavKeyPad::DispatchNext(Qb::int32 waitMs)
{
    if (!m_pQueue->Wait(waitMs))
        return;
    KeyPress_t press;
    if (!m_pQueue->TryTake(press))
        return;  // emptied by SetSuspended after the post was signalled

    if (press.state == KEY_STATE_DOWN) {
        TakeSnapshot();
        m_eventSource.Notify(KEYPAD_EVENT_KEY, &press, &m_bSnapshotHold);
        if (TakeSnapshot() > 1) {
            m_eventSource.Notify(KEYPAD_EVENT_COMBO_DOWN, &m_snapshotStates, &m_bSnapshotHold);
            m_bCombo = true;
            return;
        }
    } else if (TakeSnapshot() > 1) {
        return;
    }
    // One key or none is down: a combination that was announced has ended.
    if (m_bCombo) {
        m_eventSource.Notify(KEYPAD_EVENT_COMBO_UP, &m_snapshotStates, &m_bSnapshotHold);
        m_bCombo = false;
    }
}

int CTavKeyPad::TakeSnapshot()
{
    Qb::CMutexLocker lock(*m_pMutex);
    m_snapshotStates = m_keyStates;
    m_bSnapshotHold = m_bHold;
    int down = 0;
    for (KeyStateTable_t::const_iterator it = m_snapshotStates.begin(); it != m_snapshotStates.end(); ++it) {
        if (it->second == KEY_STATE_DOWN)
            ++down;
    }
    return down;
}

KeyStateTable_t CTavKeyPad::KeyStates()
{
    Qb::CMutexLocker lock(*m_pMutex);
    return m_keyStates;
}

void CTavKeyPad::KeyStates(KeyStateTable_t& into)
{
    Qb::CMutexLocker lock(*m_pMutex);
    into = m_keyStates;
}

Qb::int32 CTavKeyPad::CurrentKey()
{
    Qb::CMutexLocker lock(*m_pMutex);
    return m_iCurrentKey;
}

bool CTavKeyPad::IsHolding()
{
    Qb::CMutexLocker lock(*m_pMutex);
    return m_bHold;
}

const char* CTavKeyPad::KeyName(Qb::int32 key)
{
    static const char* const kNames[KEY_COUNT] = {"NONE", "LEFT", "UP", "RIGHT", "DOWN", "EXIT", "ENTER"};
    if (key < KEY_NONE || key >= KEY_COUNT)
        return "Key: Undefined";
    return kNames[key];
}

const char* CTavKeyPad::StateName(Qb::int32 state)
{
    if (state == KEY_STATE_DOWN)
        return "Down";
    if (state == KEY_STATE_UP)
        return "Up";
    return "State: Undefined";
}
