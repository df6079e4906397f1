#include "Qb/Mutex.h"

#include <cassert>

namespace Qb {

CMutex::CMutex(const char* name) : m_strName(name ? name : "")
{
    pthread_mutexattr_t attr;
    pthread_mutexattr_init(&attr);
    // Recursive: screen code re-enters its own locked sections through call-backs.
    pthread_mutexattr_settype(&attr, PTHREAD_MUTEX_RECURSIVE);
    const int rc = pthread_mutex_init(&m_mutex, &attr);
    pthread_mutexattr_destroy(&attr);
    assert(rc == 0);
    (void)rc;
}

CMutex::~CMutex()
{
    pthread_mutex_destroy(&m_mutex);
}

void CMutex::Lock()
{
    const int rc = pthread_mutex_lock(&m_mutex);
    assert(rc == 0);
    (void)rc;
}

void CMutex::Unlock()
{
    const int rc = pthread_mutex_unlock(&m_mutex);
    assert(rc == 0);
    (void)rc;
}

bool CMutex::TryLock()
{
    return pthread_mutex_trylock(&m_mutex) == 0;
}

}  // namespace Qb
