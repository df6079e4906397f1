#include "ScreenManager/ScreenManager.h"

#include <log4cpp/Category.hh>

#include "ScreenManager/Screen.h"

CScreenManager::CScreenManager()
    : m_pCurrent(nullptr),
      m_pLock(new Qb::CMutex("ScreenManMutex")),
      m_handler(this),
      m_bNavigated(false),
      m_bLockRequested(false)
{
}

CScreenManager::~CScreenManager()
{
    // Leave the screen on view under the lock, so that it ends its subscriptions and no
    // later event or timer run draws; then wait for runs already inside a screen before
    // deleting it.
    {
        Qb::CMutexLocker lock(*m_pLock);
        if (m_pCurrent != nullptr) {
            m_pCurrent->SetOnView(false);
            m_pCurrent->Leave();
            m_pCurrent = nullptr;
        }
    }
    for (auto& entry : m_screens) {
        if (entry.second != nullptr) {
            entry.second->WaitIdle();
            delete entry.second;
        }
    }
    for (CScreen* pScreen : m_refused)
        delete pScreen;
    delete m_pLock;
}

const char* CScreenManager::KeyName(int key)
{
    static const char* const names[] = {"NONE", "LEFT", "UP", "RIGHT", "DOWN", "EXIT", "ENTER"};
    return key >= 0 && key < KEY_COUNT ? names[key] : "Key: Undefined";
}

const char* CScreenManager::StateName(int state)
{
    if (state == KEY_STATE_DOWN)
        return "Down";
    if (state == KEY_STATE_UP)
        return "Up";
    return "State: Undefined";
}

CScreen* CScreenManager::FindScreen(const std::string& name)
{
    if (m_screens.empty())
        return nullptr;
    return m_screens[name];
}

void CScreenManager::RouteKey(const KeyPress_t& key)
{
    if (key.key == KEY_NONE)
        return;
    Qb::CMutexLocker lock(*m_pLock);
    if (!HasScreens() || m_pCurrent == nullptr)
        return;
    log4cpp::Category::getInstance("tav.frontpanel")
        .debug("CScreenManager::RouteKey Key: %s, State: %s", KeyName(key.key), StateName(key.state));
    std::string next = m_pCurrent->HandleKey(key);
    if (next == m_pCurrent->GetMenuName())
        m_bNavigated = false;
    else if (next == m_pCurrent->GetBackName() && next != "No Screen")
        m_bNavigated = true;
    ChangeScreen(next);
}

void CScreenManager::AddScreen(CScreen* pScreen, const std::string& name)
{
    if (pScreen == nullptr)
        return;
    pScreen->SetName(name);
    pScreen->SetDrawLock(m_pLock);
    Qb::CMutexLocker lock(*m_pLock);
    if (!m_screens.insert(std::make_pair(name, pScreen)).second) {
        // First added wins. A name left behind by a lookup holds a null screen: fill it.
        CScreen*& slot = m_screens[name];
        if (slot == nullptr)
            slot = pScreen;
        else
            m_refused.push_back(pScreen);
    }
}

void CScreenManager::ShowScreenLocked(const std::string& name)
{
    Qb::CMutexLocker lock(*m_pLock);
    ChangeScreen(name);
}

bool CScreenManager::OnEvent(CEventHandler*, int type, void* pEvent, void*)
{
    if (type != KEYPAD_EVENT_KEY || pEvent == nullptr)
        return false;
    const KeyPress_t* pKey = static_cast<const KeyPress_t*>(pEvent);
    KeyPress_t key = {pKey->key, pKey->state};
    RouteKey(key);
    return true;
}

std::string CScreenManager::GetCurrentName()
{
    // Asked from the wake-up timer's thread too.
    Qb::CMutexLocker lock(*m_pLock);
    return m_pCurrent != nullptr ? m_pCurrent->GetName() : std::string();
}

CScreen* CScreenManager::GetCurrentScreen()
{
    Qb::CMutexLocker lock(*m_pLock);
    return m_pCurrent;
}
