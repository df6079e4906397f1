// Base of the read-only status pages: values are read and subscribed on every entry, and
// each change event files the new value in the cache and rebuilds the texts from it (no
// new read is made).
#pragma once

#include <atomic>

#include "ScreenManager/TavEventScreen.h"

class CTavStatusScreen : public CTavEventScreen {
public:
    explicit CTavStatusScreen(const std::string& style = "Menu Style Basic");
    ~CTavStatusScreen() override;

    std::string HandleKey(const KeyPress_t& key) override;
    void Enter() override;
    void Leave() override;
    // Files the value and runs UpdateLines (1) under the draw lock, while on view.
    void OnManagedEvent(const std::string& name, const Zor::COid& instance,
                        const Zor::CParam& value) override;

    // Rebuilds the shown texts from the cache, then draws with the mode (0 lines only,
    // 1 and 2 the whole screen). The base only draws.
    virtual void UpdateLines(int mode);
    virtual void SubscribeAll();
    // Creates the page's lines and fills the request list (AddRequest); first entry only.
    virtual void BuildLines() = 0;
    // After the values are read and subscribed, before the lock mode and the drawing.
    virtual void AfterLoad() {}

    // The instance text under which change events are filed (".1.1" for a page of one
    // card). Empty (the default): under the event's own instance, for pages that span
    // several instances.
    void SetEventInstance(const std::string& instance) { m_strEventInstance = instance; }
    const std::string& GetEventInstance() const { return m_strEventInstance; }
    // Change events filed since the last entry.
    int GetUpdateCount() const { return m_iUpdates.load(); }

protected:
    std::string m_strEventInstance;
    std::atomic<int> m_iUpdates;  // written on the delivery thread
};
