// Builds the tree of screens once, at start-up, and hands every screen to the screen
// manager under its name. Which screens exist depends on what the unit reports: screens
// for absent hardware are never built, so the user can never reach them.
#pragma once

#include <string>
#include <vector>

#include "Qb/Types.h"
#include "ScreenManager/Capabilities.h"
#include "Qb/Uncopyable.h"

class CScreen;
class CTavClient;
class CTavScreenManager;

class CTavScreenCreator : private Qb::CUncopyable {
public:
    using Capabilities_t = ::Capabilities_t;

    CTavScreenCreator();
    virtual ~CTavScreenCreator();

    // Probes the unit and adds every screen to the manager. Called once; the manager owns
    // the screens from then on.
    void CreateScreens(CTavScreenManager* pManager, CTavClient* pClient);

    const Capabilities_t& GetCapabilities() const { return m_caps; }

    // Fills the capabilities from the unit (the first step of CreateScreens).
    void ProbeCapabilities();

protected:

    // One builder per group of the tree, in building order.
    virtual void AddHome();
    virtual void BuildMainMenu();
    virtual void BuildInputScreens();
    virtual void BuildConditionalAccess();
    virtual void BuildT2Mi();
    virtual void BuildAudioProcessing();
    virtual void BuildDecoding();
    virtual void BuildProcessing();
    virtual void BuildBasebandOutputs();
    virtual void BuildTransportStreamOutputs();
    virtual void BuildAdmin();
    virtual void AddActiveErrors();

    void Add(CScreen* pScreen, const std::string& name);

    CTavScreenManager* m_pManager;
    CTavClient* m_pClient;
    Capabilities_t m_caps;

private:
    bool Present(const std::string& subsystem);
    std::vector<std::string> Instances(const std::string& subsystem);
    bool IsTrue(const char* name, const char* instance);
    Qb::uint32 Number(const char* name, const char* instance);
};
