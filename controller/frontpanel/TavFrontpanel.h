// The application object: connects the panel, waits for the unit to be ready, builds every
// long-lived object of the daemon in a fixed order, runs until told to stop, and tears the
// objects down again in a fixed order.
#pragma once

#include <log4cpp/Category.hh>

#include "Qb/Daemon.h"
#include "Qb/Socket.h"

class CKeyPressMonitor;
class CTavScreenManager;
class CImageUpdateEvent;
class CProfileApplyEvent;
class CTavKeyPad;
class CDisplayHw;
class CTavScreenCreator;

class CTavFrontpanel {
public:
    // Connects the panel socket and configures logging; all owned objects start null.
    CTavFrontpanel();
    // Closes the panel socket only; Initialize has already cleaned up.
    virtual ~CTavFrontpanel();

    // Builds everything, blocks until the daemon is asked to stop, then tears down.
    void Initialize(Qb::CDaemon& daemon);
    // Deletes the owned objects in their fixed order.
    void Cleanup();

private:
    CTavFrontpanel(const CTavFrontpanel&) = delete;
    CTavFrontpanel& operator=(const CTavFrontpanel&) = delete;

    CKeyPressMonitor* m_pKeyPressMonitor;
    CTavScreenManager* m_pScreenManager;
    CImageUpdateEvent* m_pImageUpdateEvent;
    CProfileApplyEvent* m_pProfileApplyEvent;
    CTavKeyPad* m_pKeyPad;
    CDisplayHw* m_pDisplay;
    Qb::CStreamSocket m_socket;
    log4cpp::Category& m_log;
    CTavScreenCreator* m_pScreenCreator;
};
