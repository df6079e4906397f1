#include "TavFrontpanel.h"

#include <log4cpp/SimpleConfigurator.hh>

#include "Client/Globals.h"
#include "Client/TavClient.h"
#include "Display/DisplayHw.h"
#include "KeyPad/KeyPressMonitor.h"
#include "KeyPad/TavKeyPad.h"
#include "Menus/ImageUpdateEvent.h"
#include "Menus/ProfileApplyEvent.h"
#include "Qb/Print.h"
#include "Qb/Thread.h"
#include "ScreenManager/TavScreenCreator.h"
#include "ScreenManager/TavScreenManager.h"
#include "Zor/Zor.h"

namespace {

const char* const kLogConfigPath = "/var/config/frontpanel-log4cpp.init";

// The keypad as start-up owns it: Cleanup stops and joins its threads before it deletes the
// objects those threads call into, and deletes the keypad itself at its own later step.
class COwnedKeyPad : public CTavKeyPad {
public:
    COwnedKeyPad(Qb::CStreamSocket& socket, CTavClient* pDb) : CTavKeyPad(socket, pDb) {}
    void StopThreads() { StopAndJoin(); }
};

uint32_t ReadSystemState(Zor::CZorClient& zor)
{
    return zor.GetVal(kZorClientName, "systemState", Zor::COid(".0"), true).Val().ToUInt32(0);
}

}  // namespace

CTavFrontpanel::CTavFrontpanel()
    : m_pKeyPressMonitor(nullptr),
      m_pScreenManager(nullptr),
      m_pImageUpdateEvent(nullptr),
      m_pProfileApplyEvent(nullptr),
      m_pKeyPad(nullptr),
      m_pDisplay(nullptr),
      m_socket(Qb::CLocalSocketAddress(kPanelSocketPath)),
      m_log(log4cpp::Category::getInstance("tav.frontpanel")),
      m_pScreenCreator(nullptr)
{
    try {
        log4cpp::SimpleConfigurator::configure(kLogConfigPath);
    } catch (...) {
        // A missing or broken configuration leaves the default logging in place.
    }
}

CTavFrontpanel::~CTavFrontpanel()
{
    m_socket.Close();
}

void CTavFrontpanel::Initialize(Qb::CDaemon& daemon)
{
    Zor::CZorClient zor(kZorClientName);
    CTavClient client(&zor);

    // No time limit: the panel stays dark until the unit says it is usable (0 and 2 mean
    // not ready, whatever the other bits say).
    uint32_t state = ReadSystemState(zor);
    while ((state & ~2u) == 0) {
        Qb::CThread::Sleep(100);
        state = ReadSystemState(zor);
    }
    m_log.debug("Initialize: system state %u, starting", state);

    m_pKeyPad = new COwnedKeyPad(m_socket, &client);
    m_pDisplay = new CDisplayHw(m_socket);  // clears the panel

    Qb::MyPrintf("Create CTavScreenManager...\n");
    m_pScreenManager = new CTavScreenManager(m_pKeyPad, m_pDisplay, &client);

    m_pImageUpdateEvent = new CImageUpdateEvent(m_pScreenManager);
    m_pImageUpdateEvent->Setup(m_pDisplay, m_pKeyPad, &client);
    zor.AddManagedEventHandler("updateStart", m_pImageUpdateEvent, ".%");
    m_pProfileApplyEvent = new CProfileApplyEvent(m_pScreenManager);
    m_pProfileApplyEvent->Setup(m_pDisplay, m_pKeyPad, &client, &client.GetWakeUpTimer());
    zor.AddManagedEventHandler("profileApplyProfileState", m_pProfileApplyEvent, ".%");

    Qb::MyPrintf("initScreens...\n");
    m_pScreenCreator = new CTavScreenCreator();
    Qb::MyPrintf("initScreens.Start...\n");
    m_pScreenCreator->CreateScreens(m_pScreenManager, &client);
    // The tree exists now: the panel opens on the home page.
    m_pScreenManager->ShowScreenLocked("Home");

    Qb::MyPrintf("SetupKeyPad\n");
    // The manager sees every key event before the monitor does. Both handlers stay
    // registered until the keypad is deleted in Cleanup, inside this scope.
    TEventHandler<CScreenManager> managerHandler(m_pScreenManager);
    m_pKeyPad->Register(&managerHandler);
    m_pKeyPressMonitor = new CKeyPressMonitor(m_pScreenManager, &client.GetWakeUpTimer());
    TEventHandler<CKeyPressMonitor> monitorHandler(m_pKeyPressMonitor);
    m_pKeyPad->Register(&monitorHandler);
    // A panel that comes (back) after start-up shows nothing until it is sent everything.
    CDisplayHw* pDisplay = m_pDisplay;
    m_pKeyPad->SetReconnectHandler([pDisplay] { pDisplay->Repaint(); });
    m_pKeyPad->Initialize();

    Qb::MyPrintf("Initialize: Exit\n");
    daemon.Block();
    m_log.debug("Initialize: stop requested");

    // Both removals name the image-update sink on purpose, so the profile-apply
    // subscription stays with the controller client until it is destroyed below.
    zor.RemoveManagedEventHandler("updateStart", m_pImageUpdateEvent, ".%");
    zor.RemoveManagedEventHandler("profileApplyProfileState", m_pImageUpdateEvent, ".%");

    Cleanup();
}

void CTavFrontpanel::Cleanup()
{
    // No newline after either text, on purpose: the two lines are printed exactly so.
    Qb::MyPrintf("Cleaning up front panel");

    // Before anything is unregistered or deleted, no key event and no lock wake-up may
    // still be on its way: the keypad's threads are joined (the keypad object stays until
    // its own step) and the monitor's pending wake-up is removed (which waits for a running
    // one).
    if (m_pKeyPad != nullptr)
        static_cast<COwnedKeyPad*>(m_pKeyPad)->StopThreads();
    if (m_pKeyPressMonitor != nullptr)
        m_pKeyPressMonitor->DisarmLockTimer();

    // These name fresh handler objects, and registrations are matched by identity: in
    // effect both registrations made in Initialize stay until the keypad is deleted. Kept
    // as it is on purpose.
    if (m_pKeyPressMonitor != nullptr && m_pKeyPad != nullptr) {
        TEventHandler<CKeyPressMonitor> handler(m_pKeyPressMonitor);
        m_pKeyPad->Unregister(&handler);
    }
    if (m_pScreenManager != nullptr && m_pKeyPad != nullptr) {
        TEventHandler<CScreenManager> handler(m_pScreenManager);
        m_pKeyPad->Unregister(&handler);
    }

    // The sinks stop taking events and wait for a running one before the manager whose
    // screens they show goes; the profile-apply sink is still subscribed.
    if (m_pImageUpdateEvent != nullptr)
        m_pImageUpdateEvent->Stop();
    if (m_pProfileApplyEvent != nullptr)
        m_pProfileApplyEvent->Stop();

    delete m_pScreenCreator;  // owns nothing: the screens are the manager's
    m_pScreenCreator = nullptr;
    delete m_pScreenManager;  // with all its screens
    m_pScreenManager = nullptr;
    delete m_pImageUpdateEvent;
    m_pImageUpdateEvent = nullptr;
    delete m_pProfileApplyEvent;
    m_pProfileApplyEvent = nullptr;
    delete m_pDisplay;
    m_pDisplay = nullptr;
    delete m_pKeyPressMonitor;
    m_pKeyPressMonitor = nullptr;

    if (m_pKeyPad != nullptr) {
        m_pKeyPad->Stop();
        delete m_pKeyPad;  // joins both threads
        m_pKeyPad = nullptr;
    }

    Qb::MyPrintf("Cleanup complete");
}
