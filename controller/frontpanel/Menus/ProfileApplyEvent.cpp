#include "Menus/ProfileApplyEvent.h"

#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <log4cpp/Category.hh>

#include "Client/TavClient.h"
#include "Menus/MenuProfileApply.h"
#include "Qb/Mutex.h"

CProfileApplyEvent::CProfileApplyEvent(CScreenManager* pManager)
    : m_strName("<CNotSet>"),  // deliberately the default name, unlike the update sink
      m_pManager(pManager),
      m_pScreen(new CMenuProfileApply()),
      m_pDisplay(nullptr),
      m_pKeyPad(nullptr),
      m_pClient(nullptr),
      m_bStopped(false),
      m_iBusy(0)
{
    m_pScreen->SetManager(pManager);
}

CProfileApplyEvent::~CProfileApplyEvent()
{
    // The manager may be gone already: end the poll without its lock.
    m_bStopped = true;
    while (m_iBusy.load() != 0)
        usleep(1000);
    m_pScreen->Stop();
    delete m_pScreen;
}

void CProfileApplyEvent::Setup(CDisplay* pDisplay, CTavKeyPad* pKeyPad, CTavClient* pClient,
                               Qb::CWakeUpTimer* pTimer)
{
    m_pDisplay = pDisplay;
    m_pKeyPad = pKeyPad;
    m_pClient = pClient;
    m_pScreen->SetDisplay(pDisplay);
    m_pScreen->SetCollaborator(pKeyPad);
    m_pScreen->SetClient(pClient);
    m_pScreen->SetWakeUpTimer(pTimer);
}

void CProfileApplyEvent::Stop()
{
    if (m_bStopped.exchange(true))
        return;
    while (m_iBusy.load() != 0)
        usleep(1000);
    if (m_pScreen->ManagerLock() != nullptr) {
        Qb::CMutexLocker lock(*m_pScreen->ManagerLock());
        m_pScreen->Stop();
    }
    m_pScreen->Stop();
    m_pScreen->SetManager(nullptr);
}

bool CProfileApplyEvent::ParseState(const std::string& text, Qb::int32* pState)
{
    if (text == "true") {
        *pState = 1;
        return true;
    }
    if (text == "false") {
        *pState = 0;
        return true;
    }
    if (text.empty())
        return false;
    char* end = nullptr;
    errno = 0;
    long value = strtol(text.c_str(), &end, 10);
    if (errno != 0 || *end != '\0' || value < INT32_MIN || value > INT32_MAX)
        return false;
    *pState = static_cast<Qb::int32>(value);
    return true;
}

void CProfileApplyEvent::ManagedEvent(const std::string& name, const Zor::COid&, const Zor::CParam& value)
{
    m_iBusy.fetch_add(1);
    Qb::int32 state = 0;
    if (m_bStopped || name != "profileApplyProfileState" || m_pScreen->ManagerLock() == nullptr) {
        // not ours
    } else if (!ParseState(value.ToString(""), &state)) {
        log4cpp::Category::getInstance("tav.frontpanel")
            .error("CProfileApplyEvent: ignored state \"%s\"", value.ToString("").c_str());
    } else if (state == 0 || state == 1 || state == 4) {
        Qb::CMutexLocker lock(*m_pScreen->ManagerLock());
        if (m_pClient != nullptr)
            m_pClient->AttachThread();
        if (!m_pScreen->IsTakenOver())
            m_pScreen->Begin();
        if (state == 0) {
            m_pScreen->Start(state);
        } else {
            m_pScreen->Stop();
            m_pScreen->ShowOutcome(state);
            m_pScreen->End();
        }
        if (m_pClient != nullptr)
            m_pClient->DetachThread();
    }
    // Other states (2, 3, ...) are the poll's.
    m_iBusy.fetch_sub(1);
}
