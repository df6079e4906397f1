#include "Menus/MenuHome.h"

#include "Client/TavClient.h"
#include "Display/Display.h"
#include "Display/TextAdjustment.h"
#include "Qb/Mutex.h"
#include "Qb/Str.h"
#include "ScreenManager/MenuStyle.h"
#include "ScreenManager/ScreenNames.h"

namespace {

const char* const kAlias = "unitAlias";
const char* const kActiveInput = "inputCurrentActiveInputId";
const char* const kAddress = "tcpipIpAddress";
const char* const kServiceName = "selectedserviceServiceName";
const char* const kServiceNum = "selectedserviceServiceNum";
const char* const kLockMode = "frontpanelLockMode";
const char* const kBitrate = "tsinputsrcTsBitrate";
using ScreenName::kNoScreen;

const size_t kRowWidth = 30;
const Qb::int32 kHintsAll = 7;

std::string InstanceOf(const std::string& key)
{
    size_t dot = key.find('.');
    return dot == std::string::npos ? std::string() : key.substr(dot);
}

std::string NameOf(const std::string& key)
{
    return key.substr(0, key.find('.'));
}

}  // namespace

CMenuHome::CMenuHome(bool showService)
    : CTavEventScreen("Menu Style Basic"),
      m_subscriptions(Zor::PT_LIST),
      m_bSubscribed(false),
      m_uTimerId(Qb::CWakeUpTimer::INVALID_ID),
      m_bShowService(showService)
{
}

CMenuHome::~CMenuHome()
{
    // No delivery starts after the removals; then wait for one still running.
    if (m_bSubscribed)
        for (int i = 0; i < m_subscriptions.Length(); ++i) {
            std::string key = m_subscriptions[i].ToString("");
            Unsubscribe(NameOf(key), InstanceOf(key));
        }
    if (m_uTimerId != Qb::CWakeUpTimer::INVALID_ID && m_pTimer != nullptr)
        m_pTimer->RemoveEvent(m_uTimerId);
    WaitIdle();
}

std::string CMenuHome::GetLineText(int line)
{
    Qb::CMutexLocker lock(*m_pScreenLock);
    return line >= 0 && line < ALL_LINES ? m_lines[line] : std::string();
}

Qb::int32 CMenuHome::CachedLockMode() const
{
    return CachedValue(kLockMode, ".0").ToInt32(0);
}

void CMenuHome::Enter()
{
    PushToMenu();
    if (!m_bSubscribed) {
        const char* keys[] = {"unitAlias.0",
                              "inputCurrentActiveInputId.1.1",
                              "tcpipIpAddress.0",
                              "selectedserviceServiceName.1.1",
                              "selectedserviceServiceNum.1.1",
                              "frontpanelLockMode.0"};
        for (const char* key : keys) {
            std::string text(key);
            if (!m_bShowService && (NameOf(text) == kServiceName || NameOf(text) == kServiceNum))
                continue;
            m_subscriptions.AddParam(Zor::CParam::String(text));
            Subscribe(NameOf(text), InstanceOf(text));
        }
        m_bSubscribed = true;
    }
    Qb::CMutexLocker lock(*m_pScreenLock);
    if (m_pTimer != nullptr && m_uTimerId == Qb::CWakeUpTimer::INVALID_ID)
        m_pTimer->AddEvent(this, ADDRESS_POLL_MS, m_uTimerId, true);
    if (m_pClient != nullptr) {
        Zor::CRet ret = m_pClient->GetValues(kZorClientName, m_subscriptions);
        if (ret.Success() && ret.Val().IsMap())
            m_values = ret.Val();
    }
    Qb::CIpAddress address;
    if (address.Parse(CachedValue(kAddress, ".0").ToString("")))
        m_address = address;
    FindActiveInput();
    UpdateLines(2, ALL_LINES);
}

void CMenuHome::Leave()
{
    // Under the draw lock: the call-back never blocks on it, so the removal cannot wait
    // for ever.
    if (m_uTimerId != Qb::CWakeUpTimer::INVALID_ID && m_pTimer != nullptr)
        m_pTimer->RemoveEvent(m_uTimerId);
}

std::string CMenuHome::HandleKey(const KeyPress_t& key)
{
    PushToMenu();
    Qb::int32 mode;
    {
        Qb::CMutexLocker lock(*m_pScreenLock);
        mode = CachedLockMode();
    }
    std::string next = kNoScreen;
    switch (key.key) {
        case KEY_LEFT:
        case KEY_UP:
        case KEY_RIGHT:
        case KEY_DOWN:
        case KEY_ENTER:
            // A disabled panel (or an unknown mode) keeps the page.
            if (mode == 1 || mode == 2)
                next = "Home Main";
            break;
        default:
            break;
    }
    m_pMenu->SetNextScreen(next);
    return next;
}

void CMenuHome::FindActiveInput()
{
    m_strActiveInput.clear();
    m_strActiveLabel.clear();
    if (m_pClient == nullptr)
        return;
    Zor::CParam request(Zor::PT_LIST);
    request.AddParam(Zor::CParam::String("tsinputsrcId.%"));
    request.AddParam(Zor::CParam::String("tsinputsrcLabel.%"));
    Zor::CRet ret = m_pClient->GetValues(kZorClientName, request);
    const Zor::CParam& found = ret.Val();
    const std::string active = CachedValue(kActiveInput, ".1.1").ToString("");
    const Zor::CParam& ids = found["tsinputsrcId"];
    for (int i = 0; i < ids.Length() && !active.empty(); ++i) {
        std::string instance = ids.GetKey(i);
        if (ids[instance].ToString("") != active)
            continue;
        m_strActiveInput = instance;
        m_strActiveLabel = found["tsinputsrcLabel"][instance].ToString("");
        break;
    }
    if (m_strActiveInput.empty())
        return;
    Zor::CRet rate = m_pClient->GetValue(kZorClientName, kBitrate + m_strActiveInput);
    if (rate.Success())
        m_values[kBitrate][m_strActiveInput] = rate.Val();
}

std::string CMenuHome::BitrateText(bool fullRead)
{
    Qb::uint32 rate = 0;
    if (!m_strActiveInput.empty() && m_pClient != nullptr) {
        if (fullRead) {
            Zor::CParam request(Zor::PT_LIST);
            request.AddParam(Zor::CParam::String(std::string(kBitrate) + ".%"));
            Zor::CRet ret = m_pClient->GetValues(kZorClientName, request);
            const Zor::CParam& found = ret.Val();
            if (ret.Success() && found[kBitrate].KeyExists(m_strActiveInput))
                m_values[kBitrate][m_strActiveInput] = found[kBitrate][m_strActiveInput];
            rate = CachedValue(kBitrate, m_strActiveInput).ToUInt32(0);
        } else {
            rate = CachedValue(kBitrate, m_strActiveInput).ToUInt32(0);
            if (rate == 0)
                rate = m_pClient->GetValue(kZorClientName, kBitrate + m_strActiveInput).Val().ToUInt32(0);
        }
    }
    return Qb::Str::Format("Bitrate: %2.3f Mbps", static_cast<double>(rate) / 1e6);
}

std::string CMenuHome::MakeLine(int line, bool fullRead)
{
    std::string text;
    switch (line) {
        case LINE_ALIAS:
            text = CachedValue(kAlias, ".0").ToString("");
            break;
        case LINE_BITRATE:
            text = BitrateText(fullRead);
            break;
        case LINE_INPUT:
            if (m_strActiveInput.empty()) {
                text = "Input: Unknown";
            } else {
                // "DVB-S2 Slot 2" shows "DVB-S2 ": the blank before "Slot" stays.
                std::string label = m_strActiveLabel;
                size_t slot = label.find("Slot");
                if (slot != std::string::npos)
                    label.erase(slot);
                text = "Input: " + label;
            }
            break;
        case LINE_ADDRESS:
            text = "IP: " + m_address.ToString();
            break;
        case LINE_SERVICE: {
            std::string name = CachedValue(kServiceName, ".1.1").ToString("");
            std::string number = CachedValue(kServiceNum, ".1.1").ToString("");
            if (!name.empty())
                text = "Service: " + name;
            else if (!number.empty() && number != "0")
                text = "Service: Service " + number;
            break;
        }
        default:
            break;
    }
    if (text.size() > kRowWidth)
        text.resize(kRowWidth);
    return text;
}

void CMenuHome::WriteLine(int line, const std::string& text, bool send)
{
    m_lines[line] = text;
    if (m_pDisplay == nullptr)
        return;
    m_pDisplay->ClearLine(line);
    m_strScratch = text;
    if (line == LINE_ALIAS)
        m_pDisplay->WriteAligned(m_strScratch, line, ALIGN_CENTRE, 0);  // where titles stand
    else
        m_pDisplay->WriteAt(m_strScratch, line, 0);
    if (send)
        m_pDisplay->UpdateLine(line);
}

void CMenuHome::UpdateLines(int kind, int line)
{
    if (kind == 2) {
        m_pMenu->GetCursor().Reset();
        // The whole window is sent below, which covers the panel; no separate panel clear.
        m_pMenu->Clear(0, 0);
    } else if (kind == 1) {
        m_pMenu->Clear(0, 0);
    }
    const int last = m_bShowService ? LINE_SERVICE : LINE_ADDRESS;
    const bool all = line == ALL_LINES;
    for (int i = all ? LINE_ALIAS : line; i <= (all ? last : line); ++i)
        if (i <= last)
            WriteLine(i, MakeLine(i, all), kind == 0);
    if (kind != 0 && m_pDisplay != nullptr)
        m_pDisplay->RedrawWindow();
    ApplyIndicators();
}

void CMenuHome::ApplyIndicators()
{
    if (m_pDisplay == nullptr)
        return;
    const Qb::int32 mode = CachedLockMode();
    const bool locked = mode == 2;
    const bool disabled = mode == 3;
    const bool hadLeft = m_pDisplay->GetLeftIndicator8() || m_pDisplay->GetLeftIndicator16();
    m_pMenu->SetLockIndicator(locked);
    m_pMenu->SetDisabledIndicator(disabled);
    m_pDisplay->SetLeftIndicator8(locked);
    m_pDisplay->SetLeftIndicator16(disabled);
    if (hadLeft && !locked && !disabled)
        m_pDisplay->SetLeftIndicators(0);
    // A disabled panel ignores every key here: no arrows.
    m_pDisplay->SetRightIndicators(disabled ? 0 : kHintsAll);
}

void CMenuHome::OnManagedEvent(const std::string& name, const Zor::COid& instance, const Zor::CParam& value)
{
    int first = -1;
    int second = -1;
    {
        Qb::CMutexLocker lock(*m_pScreenLock);
        std::string at = instance.OidStr();
        if (name == kBitrate && at != m_strActiveInput)
            return;  // another input's rate
        const Zor::CParam& old = CachedValue(name, at);
        if (!old.IsNull() && old.ToString("") == value.ToString(""))
            return;
        m_values[name][at] = value;
        if (name == kAlias) {
            first = LINE_ALIAS;
        } else if (name == kBitrate) {
            first = LINE_BITRATE;
        } else if (name == kActiveInput) {
            FindActiveInput();
            first = LINE_BITRATE;
            second = LINE_INPUT;
        } else if (name == kServiceName || name == kServiceNum) {
            if (m_bShowService)
                first = LINE_SERVICE;
        }
        // The lock mode is only filed: the lines take it from the cache when written.
    }
    if (first < 0)
        return;
    RunOnViewFromEvent([this, first, second]() {
        Qb::CMutexLocker lock(*m_pScreenLock);
        UpdateLines(0, first);
        if (second >= 0)
            UpdateLines(0, second);
    });
}

void CMenuHome::ProcessRequest()
{
    // Drawing work: under the draw lock and only while the page is on view.
    RunOnViewFromTimer([this]() {
        Qb::CMutexLocker lock(*m_pScreenLock);
        if (m_pClient == nullptr)
            return;
        m_pClient->AttachThread();
        Qb::CIpAddress address;
        if (address.Parse(m_pClient->GetData(kAddress, ".0")))
            m_address = address;
        UpdateLines(0, LINE_ADDRESS);
        m_pClient->DetachThread();
    });
}
