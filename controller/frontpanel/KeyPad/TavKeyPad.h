// The keypad link: reads key reports from the panel socket, keeps the state of every key,
// detects held keys and their repeats, and dispatches key events from a watcher thread to
// the handlers registered with it (the screen manager first, then the key press monitor).
#pragma once

#include <atomic>
#include <functional>

#include "Client/EventSource.h"
#include "KeyPad/KeyPress.h"
#include "Qb/MsgQ.h"
#include "Qb/Mutex.h"
#include "Qb/Socket.h"
#include "Qb/Thread.h"
#include "Qb/Types.h"
#include "Qb/Uncopyable.h"

class CTavClient;

namespace log4cpp {
class Category;
}

class CTavKeyPad : private Qb::CUncopyable {
public:
    enum {
        kQueueDepth = 6,
        kHoldMs = 500,         // a key down for longer than this is held
        kReadTimeoutMs = 125,  // one read pass while the panel is silent: the repeat period
        kWaitTimeoutMs = 50,   // one watcher pass while no event is queued
        kThreadPriority = 2
    };

    // The socket is shared with the display, which writes; the keypad only reads. pDb must
    // not be null: the watcher thread attaches to the data engine through it.
    CTavKeyPad(Qb::CStreamSocket& socket, CTavClient* pDb);
    // Clears the running flag and joins the read thread, then the watcher thread.
    virtual ~CTavKeyPad();

    // Adds a handler of key events; handlers are called in registration order.
    virtual bool Register(CEventHandler* pHandler);
    // False when no handler at all is registered; otherwise removes every registration of
    // pHandler and returns true, even if pHandler was not among them.
    virtual bool Unregister(CEventHandler* pHandler);

    // Called on the read thread when the socket reaches a new panel (after the first
    // connection): the new panel shows nothing yet. Set before Initialize.
    void SetReconnectHandler(std::function<void()> handler) { m_onReconnect = std::move(handler); }

    // Sets the running flag and starts the watcher thread, then the read thread. A thread
    // that cannot start is logged and clears the running flag.
    void Initialize();
    // Clears the running flag: both threads end within one pass (read 125 ms, watcher 50 ms).
    void Stop() { m_bRunning = false; }
    bool IsRunning() const { return m_bRunning; }

    // True stops key input (the queue is emptied and every key reset to Up) until false.
    void SetSuspended(bool suspended);
    bool IsSuspended();

    // Interprets one assembled frame (starting with 0x09).
    void ProcessData(const Qb::uint8* frame, int length);
    // Records one key report and queues its event (see the source for the rules).
    void SetKeyState(Qb::int32 key, Qb::int32 state);

    static const char* KeyName(Qb::int32 key);
    static const char* StateName(Qb::int32 state);

protected:
    // Monotonic milliseconds; tests replace the clock.
    virtual Qb::uint32 NowMs();
    // Starts one of the two threads; tests make it fail.
    virtual bool StartThread(Qb::CThread& thread);

    void ReadThreadRun();
    void KeyPadWatcherRun();

    // The pieces of one read pass and of one watcher pass, so tests can drive them.
    void ResetIfSuspended();
    void CheckHold();
    void DispatchNext(Qb::int32 waitMs);

    // Clears running and joins both threads. A derived class that overrides NowMs calls it
    // from its own destructor, before its part of the object is gone.
    void StopAndJoin();

    // Copies of the state, taken under the state mutex.
    KeyStateTable_t KeyStates();
    // The same into an existing table, whose nodes the assignment reuses: the fuzzer checks
    // the table after every chunk, and allocating a copy each time was most of its run time.
    void KeyStates(KeyStateTable_t& into);
    Qb::int32 CurrentKey();
    bool IsHolding();
    Qb::int32 QueuedEvents() { return m_pQueue->Size(); }

private:
    void ResetKeys();
    // Copies the table and the hold flag for the handlers; returns the number of keys down.
    int TakeSnapshot();

    CEventSource m_eventSource;
    std::function<void()> m_onReconnect;
    bool m_bCombo;  // a combination-down event was sent, its combination-up not yet (watcher)
    std::atomic<bool> m_bRunning;
    log4cpp::Category& m_log;

    // m_pMutex ("KeyPressGuiMutex") guards the suspended flag, the table, the current key and
    // state, the press time and the hold flag. Taken before the queue's own mutex.
    Qb::CMutex* m_pMutex;
    bool m_bSuspended;
    KeyStateTable_t m_keyStates;
    Qb::int32 m_iCurrentKey;
    Qb::int32 m_iCurrentState;
    Qb::uint32 m_uPressTime;  // when the current key became current, or the hold began
    bool m_bHold;

    Qb::CMsgQ<KeyPress_t>* m_pQueue;
    CTavClient* m_pDb;
    Qb::CStreamSocket& m_rSocket;

    // What the handlers see: copies owned by the watcher thread, so a handler never reads
    // the table while the read thread writes it.
    KeyStateTable_t m_snapshotStates;
    bool m_bSnapshotHold;

    Qb::CThread* m_pWatcherThread;
    Qb::CThread* m_pReadThread;
};
