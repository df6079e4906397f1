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
    // An unknown handler leaves the array untouched: no write at all, so a lookup that
    // finds nothing never races with a delivery reading the array.
    int first = 0;
    while (first < m_iCount && m_ppHandlers[first] != pHandler)
        ++first;
    if (first == m_iCount)
        return false;
    int kept = first;
    for (int i = first + 1; i < m_iCount; ++i) {
        if (m_ppHandlers[i] != pHandler)
            m_ppHandlers[kept++] = m_ppHandlers[i];
    }
    m_iCount = kept;
    return true;
}

bool CEventSource::Notify(int a, void* b, void* c)
{
    // The count is re-read after every call on purpose: a handler may register another.
    for (int i = 0; i < m_iCount; ++i)
        m_ppHandlers[i]->HandleEvent(a, b, c);
    return true;
}
