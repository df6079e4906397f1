// "Home": the idle page shown after start-up and whenever the user leaves the menus. Rows:
// the unit's alias, the bit rate of the active input, its label, the unit's address and
// (on units with a decoder) the selected service. Values follow the controller's change
// events; the address, which the controller does not announce, is read every 45 s.
#pragma once

#include <string>

#include "Qb/IpAddress.h"
#include "Qb/Types.h"
#include "Qb/WakeUpTimer.h"
#include "ScreenManager/TavEventScreen.h"

class CMenuHome : public CTavEventScreen, public Qb::IProcessRequests {
public:
    enum Line_e { LINE_ALIAS, LINE_BITRATE, LINE_INPUT, LINE_ADDRESS, LINE_SERVICE, ALL_LINES };
    enum { ADDRESS_POLL_MS = 45000 };

    // showService: the unit has a decoder, so the page shows the selected service.
    explicit CMenuHome(bool showService);
    ~CMenuHome() override;

    std::string HandleKey(const KeyPress_t& key) override;
    void Enter() override;
    void Leave() override;
    void OnManagedEvent(const std::string& name, const Zor::COid& instance,
                        const Zor::CParam& value) override;
    // The address poll, on the wake-up timer's thread.
    void ProcessRequest() override;

    // The text last written on a line.
    std::string GetLineText(int line);

private:
    // kind 0: the line only; 1: clear first; 2: clear the panel too. line ALL_LINES: every
    // line, with the bit rates read afresh. Call under the screen lock.
    void UpdateLines(int kind, int line);
    std::string MakeLine(int line, bool fullRead);
    std::string BitrateText(bool fullRead);
    // Finds the active input's instance and label and reads its bit rate.
    void FindActiveInput();
    void WriteLine(int line, const std::string& text, bool send);
    // Arrows unless the panel is disabled; the lock or disabled glyph at the left.
    void ApplyIndicators();
    Qb::int32 CachedLockMode() const;

    Qb::CIpAddress m_address;
    std::string m_lines[ALL_LINES];
    Zor::CParam m_subscriptions;   // list of object keys
    std::string m_strActiveInput;  // instance (".2.1") of the input in use
    std::string m_strActiveLabel;
    std::string m_strScratch;
    bool m_bSubscribed;
    unsigned m_uTimerId;
    bool m_bShowService;
};
