// Base of the screens that show managed objects and stay current while on view: the
// controller's change sink, per-object subscriptions and the front-panel lock mode.
//
// The config, status and navigation bases keep their values here: a request list (keys
// and "name.%" patterns) read with one multi-get into the values cache, a map from object
// name to a map from instance text (".1.1") to value.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "Qb/Types.h"
#include "ScreenManager/Screen.h"
#include "Zor/EventSink.h"
#include "Zor/Oid.h"
#include "Zor/Param.h"

class CTavEventScreen : public CScreen, public Zor::IManagedEventSink {
public:
    explicit CTavEventScreen(const std::string& style);
    ~CTavEventScreen() override;

    // Reads "frontpanelLockMode.0" and, when it changed, applies it: 1 unlocked, 2 locked
    // (lines read-only, lock indicator), 3 panel disabled (disabled indicator only).
    // Returns the read-only flag.
    virtual bool UpdateLockMode();
    // Mode 1 or 2: every selectable line enabled and editable, or disabled and read-only.
    virtual void ApplyLockMode(bool readOnly);
    virtual bool Subscribe(const std::string& name, const std::string& instance);
    virtual bool Unsubscribe(const std::string& name, const std::string& instance);
    // A change of a subscribed object, on the SDK's delivery thread. Redraws (mode 1).
    virtual void OnManagedEvent(const std::string& name, const Zor::COid& instance, const Zor::CParam& value);

    // The SDK's entry: counts the delivery as busy (shutdown waits for it) and forwards.
    void ManagedEvent(const std::string& name, const Zor::COid& instance, const Zor::CParam& value) final;

    Qb::int32 GetLockMode() const { return m_iLockMode; }
    // The values cache; touch it on the key thread or inside RunOnViewFromEvent only.
    const Zor::CParam& GetValues() const { return m_values; }
    // The cached value of name.instance; null when absent.
    const Zor::CParam& CachedValue(const std::string& name, const std::string& instance) const;

protected:
    // Adds a key ("unitAlias.0") or pattern ("tempReading.%") to the request list.
    void AddRequest(const std::string& key);
    void AddRequest(const std::string& name, const std::string& instance) { AddRequest(name + instance); }
    // One multi-get of the request list into the values cache. On failure the cache keeps
    // its earlier values and the failure is logged. The lock mode comes with it, for
    // UpdateLockModeAsLoaded.
    bool LoadValues();
    // UpdateLockMode with the lock mode that LoadValues has just read, right after it on
    // entry: one controller round trip fewer before the first draw. Reads it when the load
    // did not bring it.
    bool UpdateLockModeAsLoaded();
    // Subscribes to every instance of every object in the cache, and ends exactly those
    // subscriptions again.
    void SubscribeValues();
    // Subscribes to each key ("name.0", or "name.%" for every instance, those created later
    // included), ended again by UnsubscribeValues.
    void SubscribeKeys(const std::vector<std::string>& keys);
    void UnsubscribeValues();

    std::string m_strNotSet;
    Qb::int32 m_iLockMode;
    bool m_bLoaded;
    Zor::CParam m_request;  // list of keys and patterns
    Zor::CParam m_values;   // name -> instance text -> value

private:
    bool ApplyLockModeValue(Qb::int32 mode);

    std::vector<std::pair<std::string, std::string>> m_subscribed;
    Qb::int32 m_iLoadedLockMode;  // read by the last LoadValues, -1 when none or used
};
