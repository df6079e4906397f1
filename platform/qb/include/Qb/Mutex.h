// Named recursive mutex and its scoped locker.
#pragma once

#include <pthread.h>

#include <string>

#include "Qb/Uncopyable.h"

namespace Qb {

class CMutex : private CUncopyable {
public:
    // The name is kept for diagnostics only.
    explicit CMutex(const char* name);
    ~CMutex();

    void Lock();
    void Unlock();
    bool TryLock();
    const std::string& Name() const { return m_strName; }

private:
    std::string m_strName;
    pthread_mutex_t m_mutex;
};

// Holds a CMutex for the lifetime of the scope.
class CMutexLocker : private CUncopyable {
public:
    explicit CMutexLocker(CMutex& mutex) : m_rMutex(mutex) { m_rMutex.Lock(); }
    ~CMutexLocker() { m_rMutex.Unlock(); }

private:
    CMutex& m_rMutex;
};

}  // namespace Qb
