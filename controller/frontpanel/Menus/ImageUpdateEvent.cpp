#include "Menus/ImageUpdateEvent.h"

#include <unistd.h>

#include "Client/TavClient.h"
#include "Menus/MenuImageUpdate.h"
#include "Qb/Mutex.h"

CImageUpdateEvent::CImageUpdateEvent(CScreenManager* pManager)
    : m_strName("CImageUpdateEvent"),
      m_pManager(pManager),
      m_pScreen(new CMenuImageUpdate()),
      m_pDisplay(nullptr),
      m_pKeyPad(nullptr),
      m_pClient(nullptr),
      m_bStopped(false),
      m_iBusy(0)
{
    m_pScreen->SetManager(pManager);
}

CImageUpdateEvent::~CImageUpdateEvent()
{
    Stop();  // takes no lock: the manager may be gone already
    delete m_pScreen;
}

void CImageUpdateEvent::Setup(CDisplay* pDisplay, CTavKeyPad* pKeyPad, CTavClient* pClient)
{
    m_pDisplay = pDisplay;
    m_pKeyPad = pKeyPad;
    m_pClient = pClient;
    m_pScreen->SetDisplay(pDisplay);
    m_pScreen->SetCollaborator(pKeyPad);
    m_pScreen->SetClient(pClient);
}

void CImageUpdateEvent::Stop()
{
    m_bStopped = true;
    while (m_iBusy.load() != 0)
        usleep(1000);
}

void CImageUpdateEvent::ManagedEvent(const std::string& name, const Zor::COid&, const Zor::CParam& value)
{
    m_iBusy.fetch_add(1);
    if (!m_bStopped && name == "updateStart" && value.ToString("") != "0" &&
        m_pScreen->ManagerLock() != nullptr) {
        // The panel belongs to the update until it is over: keys, the lock jump and event
        // redraws wait for the manager's lock and act on the screen given back.
        Qb::CMutexLocker lock(*m_pScreen->ManagerLock());
        if (m_pClient != nullptr)
            m_pClient->AttachThread();
        m_pScreen->Begin();
        m_pScreen->Run();
        m_pScreen->End();
        if (m_pClient != nullptr)
            m_pClient->DetachThread();
    }
    m_iBusy.fetch_sub(1);
}
