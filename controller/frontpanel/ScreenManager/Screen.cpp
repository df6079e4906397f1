#include "ScreenManager/Screen.h"

#include <unistd.h>

#include "Client/TavClient.h"
#include "KeyPad/Assert.h"
#include "Qb/Thread.h"
#include "ScreenManager/MenuStyleBasic.h"
#include "ScreenManager/MenuStyleLongList.h"
#include "ScreenManager/MenuStyleYesNo.h"

// One more macro level, so that NULL is expanded before it becomes text ("__null").
#define SCREEN_ASSERT_TEXT(expr) FP_ASSERT_TEXT(expr)

namespace {

CMenuStyle* CreateStyle(const std::string& style)
{
    if (style == "Menu Style Basic")
        return new CMenuStyleBasic();
    if (style == "Menu Style Long List")
        return new CMenuStyleLongList();
    if (style == "Menu Style Yes No")
        return new CMenuStyleYesNo();
    return nullptr;
}

}  // namespace

CScreen::CScreen(const std::string& style)
    : m_pMenu(CreateStyle(style)),
      m_strStyle(style),
      m_pClient(nullptr),
      m_pTimer(nullptr),
      m_pDisplay(nullptr),
      m_pCollaborator(nullptr),
      m_pScreenLock(new Qb::CMutex("ScreenMutex")),
      m_value(Zor::PT_LIST),
      m_uWord(0),
      m_bReadOnly(false),
      m_bDrawEnabled(true),
      m_pDrawLock(nullptr),
      m_bOnView(false),
      m_iBusy(0)
{
    // Deliberately fatal: an unknown style name is a programming error. The message names
    // the source as the tree does, without its extension.
    if (m_pMenu == NULL)
        FpAssertFail(SCREEN_ASSERT_TEXT(m_pMenu != NULL), "controller/frontpanel/ScreenManager/Screen",
                     __LINE__, "CScreen::CScreen(const string&)");
}

CScreen::~CScreen()
{
    delete m_pMenu;
    delete m_pScreenLock;
}

void CScreen::PushToMenu()
{
    m_pMenu->SetClient(m_pClient);
    m_pMenu->SetDisplay(m_pDisplay);
}

std::string CScreen::HandleKey(const KeyPress_t& key)
{
    PushToMenu();
    return m_pMenu->HandleKey(key);
}

void CScreen::Enter()
{
    PushToMenu();
    m_pMenu->Redraw(2);
}

void CScreen::Leave() {}

void CScreen::Refresh(int mode)
{
    if (m_pDrawLock == nullptr) {
        // Not managed (a screen drawn on its own): nothing else can draw beside it.
        if (m_bDrawEnabled) {
            PushToMenu();
            m_pMenu->Redraw(mode);
        }
        return;
    }
    CBusy busy(*this);
    Qb::CMutexLocker lock(*m_pDrawLock);
    // A change event can arrive after its screen was left: it must not draw over the
    // screen now on view.
    if (!m_bDrawEnabled || !IsOnView())
        return;
    PushToMenu();
    m_pMenu->Redraw(mode);
}

std::string CScreen::GetName()
{
    return m_strName;
}

void CScreen::SetName(const std::string& name)
{
    m_strName = name;
}

bool CScreen::IsEditing()
{
    PushToMenu();
    return m_pMenu->IsEditing();
}

void CScreen::SetEditing(bool on)
{
    PushToMenu();
    if (m_pMenu->IsEditing() != on)
        (void)m_pMenu->HandleKeyCode(KEY_ENTER);  // the style toggles its own mode
}

void CScreen::SetClient(CTavClient* pClient)
{
    m_pClient = pClient;
    m_pTimer = pClient != nullptr ? &pClient->GetWakeUpTimer() : nullptr;
    m_pMenu->SetClient(pClient);
}

void CScreen::SetDisplay(CDisplay* pDisplay)
{
    m_pDisplay = pDisplay;
    m_pMenu->SetDisplay(pDisplay);
}

void CScreen::SetCollaborator(CTavKeyPad* pKeyPad)
{
    m_pCollaborator = pKeyPad;
}

CMenuStyle* CScreen::GetMenu()
{
    return m_pMenu;
}

std::string CScreen::GetMenuName()
{
    return m_pMenu->GetMenuName();
}

std::string CScreen::GetBackName()
{
    return m_pMenu->GetBackName();
}

bool CScreen::IsReadOnly()
{
    return m_bReadOnly;
}

void CScreen::SetDrawEnabled(bool on)
{
    m_bDrawEnabled.store(on);
}

void CScreen::WaitIdle() const
{
    while (m_iBusy.load() != 0)
        Qb::CThread::Sleep(1);
}

bool CScreen::RunOnViewFromTimer(const std::function<void()>& work)
{
    if (m_pDrawLock == nullptr) {
        work();  // not managed: nothing else draws beside it
        return true;
    }
    CBusy busy(*this);
    for (;;) {
        if (!IsOnView())
            return false;
        if (m_pDrawLock->TryLock())
            break;
        usleep(200);
    }
    bool onView = IsOnView();
    if (onView)
        work();
    m_pDrawLock->Unlock();
    return onView;
}

bool CScreen::RunOnViewFromEvent(const std::function<void()>& work)
{
    if (m_pDrawLock == nullptr) {
        if (!m_bDrawEnabled)
            return false;
        work();  // not managed: nothing else draws beside it
        return true;
    }
    CBusy busy(*this);
    Qb::CMutexLocker lock(*m_pDrawLock);
    if (!m_bDrawEnabled || !IsOnView())
        return false;
    work();
    return true;
}
