#include "ScreenManager/TavScreenManager.h"

#include "Client/TavClient.h"
#include "ScreenManager/MenuStyle.h"
#include "ScreenManager/Screen.h"

CTavScreenManager::CTavScreenManager(CTavKeyPad* pKeyPad, CDisplay* pDisplay, CTavClient* pClient)
    : m_pDisplay(pDisplay), m_pKeyPad(pKeyPad), m_pClient(pClient)
{
}

CTavScreenManager::~CTavScreenManager() {}

void CTavScreenManager::AddScreen(CScreen* pScreen, const std::string& name)
{
    if (pScreen == nullptr)
        return;
    CScreenManager::AddScreen(pScreen, name);
    pScreen->SetDisplay(m_pDisplay);
    pScreen->SetCollaborator(m_pKeyPad);
    pScreen->SetClient(m_pClient);
}

void CTavScreenManager::ShowLockScreen()
{
    m_bLockRequested = true;
    m_bNavigated = true;
    Qb::CMutexLocker lock(*m_pLock);
    if (!HasScreens())
        return;
    if (m_pClient != nullptr)
        m_pClient->AttachThread();
    ChangeScreen("Lock/Unlock Front Panel");
    if (m_pClient != nullptr)
        m_pClient->DetachThread();
}

void CTavScreenManager::ChangeScreen(const std::string& name)
{
    Qb::CMutexLocker lock(*m_pLock);  // already held on every path; recursive
    CScreen* pScreen = FindScreen(name);
    if (pScreen == nullptr || pScreen->GetName() == "No Screen")
        return;
    if (m_pCurrent != nullptr) {
        // Off view first: a timer run waiting for the lock gives up, so Leave may remove
        // its timer event without deadlock.
        m_pCurrent->SetOnView(false);
        m_pCurrent->Leave();
    }
    m_pCurrent = pScreen;
    pScreen->SetOnView(true);
    pScreen->GetMenu()->GetCursor().Reset();
    pScreen->Enter();
}
