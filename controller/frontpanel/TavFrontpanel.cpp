#include "TavFrontpanel.h"

#include <log4cpp/SimpleConfigurator.hh>

#include "Client/Globals.h"
#include "Client/TavClient.h"
#include "KeyPad/TavKeyPad.h"
#include "Qb/Print.h"
#include "Qb/Thread.h"
#include "Zor/Zor.h"

namespace {

const char* const kLogConfigPath = "/var/config/frontpanel-log4cpp.init";

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

    m_pKeyPad = new CTavKeyPad(m_socket, &client);
    // Display on the panel socket (clears the panel): added here when it lands.

    Qb::MyPrintf("Create CTavScreenManager...\n");
    // Screen manager, image-update and profile-apply sinks with their subscriptions to
    // "updateStart" and "profileApplyProfileState": added here when they land.

    Qb::MyPrintf("initScreens...\n");
    // Screen creator, given the screen manager.
    Qb::MyPrintf("initScreens.Start...\n");
    // The creator builds the screen tree here.

    Qb::MyPrintf("SetupKeyPad\n");
    // Key handlers, screen manager first, then the key press monitor: added here when they
    // land.
    m_pKeyPad->Initialize();

    Qb::MyPrintf("Initialize: Exit\n");
    daemon.Block();
    m_log.debug("Initialize: stop requested");

    // Both removals name the image-update sink on purpose, so the profile-apply
    // subscription stays with the controller client until it is destroyed below.
    // (Added with the sinks.)

    Cleanup();
}

void CTavFrontpanel::Cleanup()
{
    // No newline after either text, on purpose: the two lines are printed exactly so.
    Qb::MyPrintf("Cleaning up front panel");

    // The unregistrations name fresh handler objects, so the registrations made in
    // Initialize stay until the keypad is destroyed. (Added with the keypad.)

    // Screen creator, screen manager, the two sinks, display, key press monitor are
    // deleted here in that order as they land.

    if (m_pKeyPad != nullptr) {
        m_pKeyPad->Stop();
        delete m_pKeyPad;  // joins both threads
        m_pKeyPad = nullptr;
    }

    Qb::MyPrintf("Cleanup complete");
}
