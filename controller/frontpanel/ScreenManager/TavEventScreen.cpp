#include "ScreenManager/TavEventScreen.h"

#include <log4cpp/Category.hh>

#include "Client/TavClient.h"
#include "Lines/GenericLine.h"
#include "ScreenManager/MenuStyle.h"

namespace {

const char* const kLockModeName = "frontpanelLockMode";
const char* const kLockModeInstance = ".0";

const Zor::CParam& NullParam()
{
    static const Zor::CParam kNull;
    return kNull;
}

}  // namespace

CTavEventScreen::CTavEventScreen(const std::string& style)
    : CScreen(style),
      m_strNotSet("<CNotSet>"),
      m_iLockMode(0),
      m_bLoaded(false),
      m_request(Zor::PT_LIST),
      m_values(Zor::PT_MAP),
      m_iLoadedLockMode(-1)
{
    // The lock-mode request lives in the screen's value slot.
    m_value.Clear(Zor::PT_LIST);
    m_value.AddParam(Zor::CParam::String(std::string(kLockModeName) + kLockModeInstance));
}

CTavEventScreen::~CTavEventScreen() {}

bool CTavEventScreen::UpdateLockMode()
{
    if (m_pClient == nullptr)
        return m_bReadOnly;
    Zor::CRet ret = m_pClient->GetValues(kZorClientName, m_value);
    return ApplyLockModeValue(ret.Val()[kLockModeName][kLockModeInstance].ToInt32(0));
}

bool CTavEventScreen::UpdateLockModeAsLoaded()
{
    const Qb::int32 mode = m_iLoadedLockMode;
    m_iLoadedLockMode = -1;
    return mode < 0 ? UpdateLockMode() : ApplyLockModeValue(mode);
}

bool CTavEventScreen::ApplyLockModeValue(Qb::int32 mode)
{
    if (mode == m_iLockMode)
        return m_bReadOnly;
    m_iLockMode = mode;
    if (mode == 1 || mode == 2) {
        m_bReadOnly = mode == 2;
        ApplyLockMode(m_bReadOnly);
        m_pMenu->SetLockIndicator(m_bReadOnly);
        m_pMenu->SetDisabledIndicator(false);
    } else if (mode == 3) {
        // The panel is disabled: the lines keep their states.
        m_pMenu->SetLockIndicator(false);
        m_pMenu->SetDisabledIndicator(true);
    }
    return m_bReadOnly;
}

void CTavEventScreen::ApplyLockMode(bool readOnly)
{
    // The shown lines: a screen that hides lines re-applies the mode when it shows them,
    // or replaces this walk (the table screens walk every line they made).
    CLineContainer& lines = m_pMenu->GetLines();
    for (int i = 0; i < lines.GetCount(); ++i) {
        CGenericLine* pLine = lines.GetLine(i);
        if (pLine == nullptr || !pLine->IsSelectable())
            continue;
        pLine->SetEnabled(!readOnly);
        pLine->SetReadOnly(readOnly);
    }
}

bool CTavEventScreen::Subscribe(const std::string& name, const std::string& instance)
{
    if (m_pClient == nullptr)
        return false;
    return m_pClient->AddEventHandler(name, this, instance).Success();
}

bool CTavEventScreen::Unsubscribe(const std::string& name, const std::string& instance)
{
    if (m_pClient == nullptr)
        return false;
    return m_pClient->RemoveEventHandler(name, this, instance).Success();
}

void CTavEventScreen::OnManagedEvent(const std::string&, const Zor::COid&, const Zor::CParam&)
{
    Refresh(1);
}

void CTavEventScreen::ManagedEvent(const std::string& name, const Zor::COid& instance,
                                   const Zor::CParam& value)
{
    CBusy busy(*this);
    OnManagedEvent(name, instance, value);
}

const Zor::CParam& CTavEventScreen::CachedValue(const std::string& name, const std::string& instance) const
{
    if (!m_values.KeyExists(name))
        return NullParam();
    const Zor::CParam& instances = m_values[name];
    if (!instances.IsMap() || !instances.KeyExists(instance))
        return NullParam();
    return instances[instance];
}

void CTavEventScreen::AddRequest(const std::string& key)
{
    for (int i = 0; i < m_request.Length(); ++i)
        if (m_request[i].ToString("") == key)
            return;
    m_request.AddParam(Zor::CParam::String(key));
}

bool CTavEventScreen::LoadValues()
{
    m_iLoadedLockMode = -1;
    if (m_pClient == nullptr || m_request.Length() == 0)
        return false;
    // The lock mode rides on the same request: every entry needs it, and each round trip to
    // the controller on the key path is a wait on another process's scheduling.
    const std::string lockModeObject = std::string(kLockModeName) + ".";
    bool lockModeAsked = false;
    for (int i = 0; i < m_request.Length(); ++i)
        lockModeAsked =
            lockModeAsked || m_request[i].ToString("").compare(0, lockModeObject.size(), lockModeObject) == 0;
    Zor::CParam request = m_request;
    if (!lockModeAsked)
        request.AddParam(Zor::CParam::String(lockModeObject + (kLockModeInstance + 1)));
    Zor::CRet ret = m_pClient->GetValues(kZorClientName, request);
    if (!ret.Success() || !ret.Val().IsMap()) {
        log4cpp::Category::getInstance("tav.frontpanel")
            .error("%s: reading the screen's values failed: %s", m_strName.c_str(), ret.Msg().c_str());
        return false;
    }
    const Zor::CParam& values = ret.Val();
    m_iLoadedLockMode = values[kLockModeName][kLockModeInstance].ToInt32(0);
    if (lockModeAsked) {
        m_values = values;
        return true;
    }
    // Not the screen's own value: kept out of its cache, which is what it subscribes to.
    m_values.Clear(Zor::PT_MAP);
    for (int n = 0; n < values.Length(); ++n) {
        const std::string name = values.GetKey(n);
        if (name != kLockModeName)
            m_values[name] = values[name];
    }
    return true;
}

void CTavEventScreen::SubscribeValues()
{
    for (int n = 0; n < m_values.Length(); ++n) {
        std::string name = m_values.GetKey(n);
        const Zor::CParam& instances = m_values[name];
        for (int i = 0; i < instances.Length(); ++i) {
            std::string instance = instances.GetKey(i);
            if (Subscribe(name, instance))
                m_subscribed.emplace_back(name, instance);
        }
    }
}

void CTavEventScreen::SubscribeKeys(const std::vector<std::string>& keys)
{
    for (const std::string& key : keys) {
        size_t point = key.find('.');
        if (point == std::string::npos)
            continue;
        std::string name = key.substr(0, point);
        std::string instance = key.substr(point);
        if (Subscribe(name, instance))
            m_subscribed.emplace_back(name, instance);
    }
}

void CTavEventScreen::UnsubscribeValues()
{
    // Exactly what was subscribed, whatever the cache holds now.
    for (const auto& key : m_subscribed)
        Unsubscribe(key.first, key.second);
    m_subscribed.clear();
}
