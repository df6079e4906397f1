// Fan-out of events to handlers, in registration order. No lock: registration and
// notification happen on the thread that owns the source.
#pragma once

#include "Client/EventHandler.h"

class CEventSource {
public:
    CEventSource();
    virtual ~CEventSource();

    // Appends the handler (the same handler may be registered more than once).
    virtual bool Register(CEventHandler* pHandler);
    // Removes every registration of the handler; false when it was not registered.
    virtual bool Unregister(CEventHandler* pHandler);

    // Calls every handler in order; a handler registered during delivery is called too.
    bool Notify(int a, void* b, void* c);
    bool HasHandlers() const { return m_iCount > 0; }
    int Count() const { return m_iCount; }

private:
    CEventSource(const CEventSource&) = delete;
    CEventSource& operator=(const CEventSource&) = delete;

    CEventHandler** m_ppHandlers;  // growable array, doubled when full
    int m_iCount;
    int m_iCapacity;
};
