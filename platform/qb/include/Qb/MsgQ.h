// Bounded message queue: a named mutex, a semaphore, a maximum depth and a deque.
#pragma once

#include <deque>

#include "Qb/Mutex.h"
#include "Qb/Semaphore.h"
#include "Qb/Types.h"
#include "Qb/Uncopyable.h"

namespace Qb {

template <typename T>
class CMsgQ : private CUncopyable {
public:
    // maxDepth <= 0 means unbounded.
    explicit CMsgQ(int32 maxDepth = 0, const char* mutexName = "CMsgQ")
        : m_pMutex(new CMutex(mutexName)), m_pSem(new CSemaphore(0)), m_iMaxDepth(maxDepth)
    {
    }

    // The semaphore goes first, then the mutex.
    virtual ~CMsgQ()
    {
        delete m_pSem;
        delete m_pMutex;
    }

    // Appends an item and signals the semaphore; a post to a full queue is dropped (false).
    bool Post(const T& item)
    {
        m_pMutex->Lock();
        if (m_iMaxDepth > 0 && static_cast<int32>(m_queue.size()) >= m_iMaxDepth) {
            m_pMutex->Unlock();
            return false;
        }
        m_queue.push_back(item);
        m_pMutex->Unlock();
        m_pSem->Post();
        return true;
    }

    // Waits on the semaphore; true when a post was signalled within timeoutMs.
    bool Wait(int32 timeoutMs) { return m_pSem->Wait(timeoutMs); }

    // Takes the oldest item without waiting; false when the queue is empty.
    bool TryTake(T& out)
    {
        CMutexLocker lock(*m_pMutex);
        if (m_queue.empty())
            return false;
        out = m_queue.front();
        m_queue.pop_front();
        return true;
    }

    // Wait, then take.
    bool Take(T& out, int32 timeoutMs) { return Wait(timeoutMs) && TryTake(out); }

    // Drops every queued item (the semaphore's count catches up through empty takes).
    void Clear()
    {
        CMutexLocker lock(*m_pMutex);
        m_queue.clear();
    }

    int32 Size()
    {
        CMutexLocker lock(*m_pMutex);
        return static_cast<int32>(m_queue.size());
    }

    int32 MaxDepth() const { return m_iMaxDepth; }
    CMutex& Mutex() { return *m_pMutex; }

private:
    CMutex* m_pMutex;
    CSemaphore* m_pSem;
    int32 m_iMaxDepth;
    std::deque<T> m_queue;
};

}  // namespace Qb
