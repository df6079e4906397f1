#include "Client/EventSource.h"

#include <cstring>

CEventSource::CEventSource() : m_ppHandlers(nullptr), m_iCount(0), m_iCapacity(0) {}

CEventSource::~CEventSource()
{
    delete[] m_ppHandlers;
}

bool CEventSource::Register(CEventHandler* pHandler)
{
    if (m_iCount == m_iCapacity) {
        int capacity = m_iCapacity == 0 ? 4 : m_iCapacity * 2;
        CEventHandler** grown = new CEventHandler*[capacity];
        if (m_iCount > 0)
            std::memcpy(grown, m_ppHandlers, sizeof(CEventHandler*) * m_iCount);
        delete[] m_ppHandlers;
        m_ppHandlers = grown;
        m_iCapacity = capacity;
    }
    m_ppHandlers[m_iCount++] = pHandler;
    return true;
}

bool CEventSource::Unregister(CEventHandler* pHandler)
{
    int kept = 0;
    for (int i = 0; i < m_iCount; ++i) {
        if (m_ppHandlers[i] != pHandler)
            m_ppHandlers[kept++] = m_ppHandlers[i];
    }
    bool removed = kept != m_iCount;
    m_iCount = kept;
    return removed;
}

bool CEventSource::Notify(int a, void* b, void* c)
{
    // The count is re-read after every call on purpose: a handler may register another.
    for (int i = 0; i < m_iCount; ++i)
        m_ppHandlers[i]->HandleEvent(a, b, c);
    return true;
}
