// What the unit does, beyond storing values, where the screens depend on it.
#include <cctype>
#include <chrono>
#include <climits>
#include <ctime>

#include "Unit/VirtualUnit.h"

namespace Unit {

using Zor::COid;
using Zor::CParam;
using Zor::Json;

namespace {

const char kProfileList[] = "profilelistName";
const size_t kProfileNameMax = 32;
const char kStagedNetwork[] = "tcpipNew";

bool EndsWith(const std::string& s, const std::string& tail)
{
    return s.size() >= tail.size() && s.compare(s.size() - tail.size(), tail.size(), tail) == 0;
}

bool StartsWith(const std::string& s, const std::string& head)
{
    return s.compare(0, head.size(), head) == 0;
}

// Profile names become file names on the receiver: letters, digits, blank, '-', '_', '.'.
bool ValidProfileName(const std::string& name)
{
    if (name.empty() || name.size() > kProfileNameMax || name[0] == ' ' || name[0] == '.') {
        return false;
    }
    for (char c : name) {
        bool ok = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == ' ' ||
                  c == '-' || c == '_' || c == '.';
        if (!ok) {
            return false;
        }
    }
    return true;
}

std::string FormatClock(std::time_t seconds, const std::string& format)
{
    std::tm parts{};
    gmtime_r(&seconds, &parts);
    char buf[64];
    size_t n = std::strftime(buf, sizeof buf, format.c_str(), &parts);
    return std::string(buf, n);
}

// Only the text the clock itself would show: strptime alone takes "2/30" or "9:5:0".
bool ParseClock(const std::string& text, const std::string& format, std::time_t& seconds)
{
    std::tm parts{};
    const char* end = strptime(text.c_str(), format.c_str(), &parts);
    if (end == nullptr || *end != '\0') {
        return false;
    }
    seconds = timegm(&parts);
    return FormatClock(seconds, format) == text;
}

// The clock's format as a person reads it: "%m/%d/%Y %H:%M:%S" is "MM/DD/YYYY hh:mm:ss".
std::string ClockPattern(const std::string& format)
{
    static const std::pair<char, const char*> kFields[] = {{'m', "MM"}, {'d', "DD"}, {'Y', "YYYY"},
                                                           {'y', "YY"}, {'H', "hh"}, {'M', "mm"},
                                                           {'S', "ss"}, {'%', "%"}};
    std::string out;
    for (size_t i = 0; i < format.size(); ++i) {
        const char* field = nullptr;
        for (const auto& f : kFields) {
            field = format[i] == '%' && i + 1 < format.size() && format[i + 1] == f.first ? f.second : field;
        }
        if (field != nullptr) {
            out += field;
            ++i;
        } else {
            out += format[i];
        }
    }
    return out;
}

// A row index ending in address type 1 (IPv4), length 4 and the address: "a.b.c.d".
bool AddressOfRow(const COid& row, std::string& address)
{
    const std::vector<uint32_t>& d = row.Digits();
    const size_t n = d.size();
    if (n < 6 || d[n - 6] != 1 || d[n - 5] != 4) {
        return false;
    }
    address.clear();
    for (size_t i = n - 4; i < n; ++i) {
        if (d[i] > 255) {
            return false;
        }
        address += (i == n - 4 ? "" : ".") + std::to_string(d[i]);
    }
    return true;
}

CParam DefaultValue(const ObjectDef_t& def)
{
    switch (def.type) {
        case OT_INT:
            return CParam::Int(def.hasMin ? static_cast<int64_t>(def.min) : 0);
        case OT_BOOL:
            return CParam::Bool(false);
        case OT_DOUBLE:
            return CParam::Double(def.hasMin ? def.min : 0.0);
        case OT_ENUM:
            return CParam::String(def.texts.empty() ? "" : def.texts[0]);
        case OT_STRING:
            break;
    }
    return CParam::String("");
}

}  // namespace

int CVirtualUnit::BehaviourInt(const char* key, int def) const
{
    auto it = m_behaviours.find(key);
    if (it == m_behaviours.end() || !it->is_number()) {
        return def;
    }
    // Out of range (or not whole) counts as unset: a cast would be undefined.
    const double value = it->get<double>();
    if (!(value >= INT_MIN && value <= INT_MAX) ||
        value != static_cast<double>(static_cast<long long>(value))) {
        return def;
    }
    return static_cast<int>(value);
}

bool CVirtualUnit::SetBehaviour(const std::string& name, const Zor::Json& value, std::string& error)
{
    if (name.empty() || !value.is_number()) {
        error = "a behaviour setting needs a name and a numeric value";
        return false;
    }
    std::lock_guard<std::mutex> lock(m_mutex);
    if (!m_behaviours.is_object())
        m_behaviours = Zor::Json::object();
    m_behaviours[name] = value;
    return true;
}

Zor::Json CVirtualUnit::GetBehaviour(const std::string& name)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    auto it = m_behaviours.is_object() ? m_behaviours.find(name) : m_behaviours.end();
    return it == m_behaviours.end() ? Zor::Json() : *it;
}

void CVirtualUnit::StartBehaviours()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    // "systemState" reads as starting (0 unless told otherwise) until the unit is ready.
    int readyAfter = BehaviourInt("systemStateReadyAfterMs", 0);
    auto state = m_objects.find("systemState");
    if (readyAfter > 0 && state != m_objects.end() && !state->second.values.empty()) {
        for (auto& v : state->second.values) {
            CParam ready = v.second;
            COid oid = v.first;
            v.second = CParam::Int(BehaviourInt("systemStateStarting", 0));
            ScheduleLocked(static_cast<uint32_t>(readyAfter),
                           [this, oid, ready] { InternalSetLocked("systemState", oid, ready); });
        }
    }
    if (HasObjectLocked("datetimeNow") && ClockTicksLocked()) {
        TickClockLocked(m_uClockChain);
    }
}

bool CVirtualUnit::ClockTicksLocked() const
{
    auto tick = m_behaviours.find("datetimeTick");
    return tick == m_behaviours.end() || !tick->is_boolean() || tick->get<bool>();
}

std::string CVirtualUnit::ClockFormatLocked() const
{
    auto custom = m_behaviours.find("datetimeFormat");
    return custom != m_behaviours.end() && custom->is_string() ? custom->get<std::string>()
                                                               : "%Y-%m-%d %H:%M:%S";
}

void CVirtualUnit::TickClockLocked(uint32_t chain)
{
    auto obj = m_objects.find("datetimeNow");
    if (obj == m_objects.end() || chain != m_uClockChain) {
        return;
    }
    // Under NTP the unit keeps the system's time, and a clock set by hand is forgotten.
    auto mode = m_objects.find("datetimeUpdateMode");
    if (mode != m_objects.end() && mode->second.values.count(COid(".0")) != 0 &&
        mode->second.values[COid(".0")].ToString("") == "NTP") {
        m_bClockSet = false;
    }
    std::time_t now = std::time(nullptr);
    // Tick on the next whole second of the clock shown, so that it never skips one.
    uint32_t delay = 1000;
    if (m_bClockSet) {
        auto ms = std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() -
                                                                        m_clockSetAt)
                      .count();
        now = static_cast<std::time_t>(m_iClockSetTo + ms / 1000);
        delay = 1000 - static_cast<uint32_t>(ms % 1000);
    } else {
        struct timespec ts {};
        if (clock_gettime(CLOCK_REALTIME, &ts) == 0) {
            now = ts.tv_sec;
            delay = 1000 - static_cast<uint32_t>(ts.tv_nsec / 1000000) + 1;
        }
    }
    CParam value = obj->second.type == OT_INT ? CParam::Int(static_cast<int64_t>(now))
                                              : CParam::String(FormatClock(now, ClockFormatLocked()));
    for (const auto& v : obj->second.values) {
        if (v.second != value) {
            InternalSetLocked("datetimeNow", v.first, value);
        }
    }
    ScheduleLocked(delay, [this, chain] { TickClockLocked(chain); });
}

std::string CVirtualUnit::ClockHookLocked(const std::string& name, const COid& oid, const CParam& value,
                                          Plan_t& plan)
{
    // The update mode as this transaction leaves it so far: "Manual" then the time may go together.
    std::string mode;
    auto stored = m_objects.find("datetimeUpdateMode");
    if (stored != m_objects.end() && stored->second.values.count(oid) != 0) {
        mode = stored->second.values[oid].ToString("");
    }
    for (const auto& w : plan.written) {
        mode = w.name == "datetimeUpdateMode" && w.instance == oid ? w.value.ToString("") : mode;
    }
    if (mode == "NTP") {
        return name + ": the clock is set by NTP (datetimeUpdateMode); set the mode to Manual first";
    }
    std::time_t seconds = 0;
    if (m_objects[name].type == OT_INT) {
        seconds = static_cast<std::time_t>(value.ToInt64(0));
    } else if (!ParseClock(value.ToString(""), ClockFormatLocked(), seconds)) {
        return name + ": \"" + value.ToString("") + "\" is not a date and time as " +
               ClockPattern(ClockFormatLocked());
    }
    plan.onCommit.push_back([this, seconds] {
        m_bClockSet = true;
        m_iClockSetTo = static_cast<int64_t>(seconds);
        m_clockSetAt = std::chrono::steady_clock::now();
        // A new chain of ticks, a second after the written time.
        uint32_t chain = ++m_uClockChain;
        if (ClockTicksLocked()) {
            ScheduleLocked(1000, [this, chain] { TickClockLocked(chain); });
        }
    });
    return "";
}

std::string CVirtualUnit::RunHookLocked(const std::string& name, const COid& oid, const CParam& value,
                                        Plan_t& plan)
{
    if (StartsWith(name, "profile") && HasObjectLocked(kProfileList)) {
        return ProfileHookLocked(name, value, plan);
    }
    if (name == "updateStart") {
        return UpdateHookLocked(value, plan);
    }
    if (EndsWith(name, "RowStatus")) {
        return RowStatusHookLocked(name, oid, value, plan);
    }
    if (StartsWith(name, "bissservice")) {
        std::string msg = BissKeyHookLocked(name, value);
        if (!msg.empty()) {
            return msg;
        }
    }
    if (name == "tcpipApplyNew" || StartsWith(name, kStagedNetwork)) {
        std::string msg = NetworkHookLocked(name, oid, value, plan);
        if (!msg.empty()) {
            return msg;
        }
    }
    if (name == "inputManualSwitchover" && value.ToInt64(0) != 0) {
        SwitchOverLocked(oid, plan);
    }
    if ((StartsWith(name, "servicelock") || name == "serviceselectionMode") &&
        HasObjectLocked("selectedserviceServiceNum")) {
        plan.onCommit.push_back([this] { SelectServiceLocked(); });
    }
    if (name == "utilityResetSettings" && value.ToInt64(0) != 0) {
        ResetSettingsLocked(plan);
    }
    if (name == "datetimeNow") {
        std::string msg = ClockHookLocked(name, oid, value, plan);
        if (!msg.empty()) {
            return msg;
        }
    }
    if (name == "datetimeUpdateMode" && value.ToString("") == "NTP" && HasObjectLocked("datetimeNow") &&
        ClockTicksLocked()) {
        // A new chain of ticks at once: the clock shows the unit's own time from now on.
        plan.onCommit.push_back([this] { TickClockLocked(++m_uClockChain); });
    }
    if (name == "frontpanelLockMode") {
        // The receiver reports the lock it applied: the mode as last written.
        auto status = m_objects.find("frontpanelLockStatus");
        CParam converted;
        if (status != m_objects.end() && status->second.values.count(oid) != 0 &&
            ConvertValue(status->first, status->second, value, converted).empty()) {
            plan.after.push_back(Change_t{status->first, oid, converted});
        }
    }
    ResetHookLocked(name, oid, value, plan);
    return "";
}

std::string CVirtualUnit::ProfileHookLocked(const std::string& name, const CParam& value, Plan_t& plan)
{
    ObjectDef_t& list = m_objects[kProfileList];
    auto find = [&list](const std::string& profile) {
        for (const auto& v : list.values) {
            if (v.second.ToString("") == profile) {
                return v.first;
            }
        }
        return COid();
    };
    std::string text = value.ToString("");
    // The receiver stores profiles as NAME.pfl; a name given with the extension means the same.
    auto bare = [](std::string n) {
        return EndsWith(n, ".pfl") && n.size() > 4 ? n.substr(0, n.size() - 4) : n;
    };
    if (name != "profileRenameProfile") {
        text = bare(text);
    }
    if (name == "profileCreateProfile") {
        if (!ValidProfileName(text)) {
            return "Invalid profile name: \"" + text + "\"";
        }
        if (!find(text).IsEmpty()) {
            return "Profile already exists: " + text;
        }
        uint32_t next = list.values.empty() ? 1 : list.values.rbegin()->first.GetDigitL(0) + 1;
        plan.after.push_back(Change_t{kProfileList, COid(1, next), CParam::String(text)});
    } else if (name == "profileApplyProfile") {
        if (find(text).IsEmpty()) {
            return "No such profile: " + text;
        }
        if (m_bApplying) {
            return "A profile is being applied";
        }
        plan.onCommit.push_back([this] { m_bApplying = true; });
        // Validating, valid, applying, then the outcome, one step apart.
        uint32_t step = static_cast<uint32_t>(BehaviourInt("profileApplyStepMs", 500));
        int outcome = BehaviourInt("profileApplyResult", 4);
        const char* state = "profileApplyProfileState";
        plan.after.push_back(Change_t{state, COid(".0"), CParam::Int(0)});
        plan.timed.emplace_back(step,
                                [this, state] { InternalSetLocked(state, COid(".0"), CParam::Int(2)); });
        plan.timed.emplace_back(2 * step,
                                [this, state] { InternalSetLocked(state, COid(".0"), CParam::Int(3)); });
        plan.timed.emplace_back(3 * step, [this, state, outcome, text] {
            if (outcome == 4) {
                InternalSetLocked("profileLastAppliedProfile", COid(".0"), CParam::String(text));
            }
            InternalSetLocked(state, COid(".0"), CParam::Int(outcome));
            m_bApplying = false;
        });
    } else if (name == "profileRenameProfile") {
        size_t comma = text.find(',');
        if (comma == std::string::npos) {
            return "Rename needs old name,new name";
        }
        std::string from = bare(text.substr(0, comma));
        std::string to = bare(text.substr(comma + 1));
        COid oid = find(from);
        if (oid.IsEmpty()) {
            return "No such profile: " + from;
        }
        if (!ValidProfileName(to)) {
            return "Invalid profile name: \"" + to + "\"";
        }
        if (to != from && !find(to).IsEmpty()) {
            return "Profile already exists: " + to;
        }
        plan.after.push_back(Change_t{kProfileList, oid, CParam::String(to)});
    } else if (name == "profileDeleteProfile") {
        COid oid = find(text);
        if (oid.IsEmpty()) {
            return "No such profile: " + text;
        }
        for (const auto& obj : m_objects) {
            if (StartsWith(obj.first, "profilelist")) {
                plan.removals.emplace_back(obj.first, oid);
            }
        }
    }
    return "";
}

std::string CVirtualUnit::UpdateHookLocked(const CParam& value, Plan_t& plan)
{
    if (value.ToInt64(0) == 0 || !HasObjectLocked("updateStage")) {
        return "";
    }
    if (m_bUpdating) {
        return "An update is in progress";
    }
    plan.onCommit.push_back([this] { m_bUpdating = true; });
    uint32_t step = static_cast<uint32_t>(BehaviourInt("updateStepMs", 200));
    int code = BehaviourInt("updateCompletionCode", 1);
    COid zero(".0");
    // Stage 1 starts with the write itself: the panel reads the stage at once.
    plan.after.push_back(Change_t{"updateProgress", zero, CParam::Int(0)});
    plan.after.push_back(Change_t{"updateStage", zero, CParam::Int(1)});
    uint32_t t = 0;
    for (int p = 10; p <= 100; p += 10) {
        t += step;
        plan.timed.emplace_back(
            t, [this, zero, p] { InternalSetLocked("updateProgress", zero, CParam::Int(p)); });
    }
    t += step;
    plan.timed.emplace_back(t, [this, zero] {
        InternalSetLocked("updateProgress", zero, CParam::Int(0));
        InternalSetLocked("updateStage", zero, CParam::Int(2));
    });
    for (int p = 50; p <= 100; p += 50) {
        t += step;
        plan.timed.emplace_back(
            t, [this, zero, p] { InternalSetLocked("updateProgress", zero, CParam::Int(p)); });
    }
    t += step;
    plan.timed.emplace_back(t, [this, zero, code] {
        InternalSetLocked("updateCompletionCode", zero, CParam::Int(code));
        InternalSetLocked("updateStage", zero, CParam::Int(3));
        InternalSetLocked("updateStart", zero, CParam::Int(0));
        m_bUpdating = false;
    });
    return "";
}

std::string CVirtualUnit::BissKeyHookLocked(const std::string& name, const CParam& value)
{
    // The receiver takes BISS key words only whole: so many hexadecimal digits.
    static const std::pair<const char*, size_t> kDigits[] = {
        {"bissserviceMode1SessionWord", 12}, {"bissserviceModeESessionWord", 16}, {"bissserviceModeEInjectedId", 14}};
    for (const auto& key : kDigits) {
        if (name != key.first) {
            continue;
        }
        const std::string text = value.ToString("");
        bool hex = text.size() == key.second;
        for (char c : text) {
            hex = hex && std::isxdigit(static_cast<unsigned char>(c)) != 0;
        }
        if (!hex) {
            return name + ": a key of " + std::to_string(key.second) + " hexadecimal digits is needed, not \"" +
                   text + "\"";
        }
    }
    return "";
}

std::string CVirtualUnit::RowStatusHookLocked(const std::string& name, const COid& oid, const CParam& value,
                                              Plan_t& plan)
{
    const std::string table = name.substr(0, name.size() - std::string("RowStatus").size());
    bool exists = m_objects[name].values.count(oid) != 0;
    int64_t status = value.ToInt64(0);
    if (status == 4 || status == 5) {  // createAndGo, createAndWait
        if (exists) {
            return name + ": row " + oid.OidStr() + " already exists";
        }
        // A table with a text address column is keyed by that address, which the new row holds.
        std::string addressColumn, address;
        for (const auto& obj : m_objects) {
            if (StartsWith(obj.first, table) && obj.second.type == OT_STRING &&
                (EndsWith(obj.first, "Address") || EndsWith(obj.first, "Addr"))) {
                addressColumn = obj.first;
            }
        }
        if (!addressColumn.empty() && !AddressOfRow(oid, address)) {
            return name + ": row " + oid.OidStr() +
                   " does not end in an IPv4 address (1.4.a.b.c.d, each 0 to 255)";
        }
        for (const auto& obj : m_objects) {
            if (StartsWith(obj.first, table) && obj.first != name && obj.second.values.count(oid) == 0) {
                plan.after.push_back(Change_t{
                    obj.first, oid,
                    obj.first == addressColumn ? CParam::String(address) : DefaultValue(obj.second)});
            }
        }
        // The row reads active (1) or notInService (2) once created.
        plan.after.push_back(Change_t{name, oid, CParam::Int(status == 4 ? 1 : 2)});
    } else if (status == 6 && exists) {  // destroy
        for (const auto& obj : m_objects) {
            if (StartsWith(obj.first, table) && obj.second.values.count(oid) != 0) {
                plan.removals.emplace_back(obj.first, oid);
            }
        }
    }
    if (table == "siservice" && (status == 4 || (status == 6 && exists))) {
        ServicePresenceLocked(oid, status != 6, plan);
    }
    return "";
}

void CVirtualUnit::ServicePresenceLocked(const COid& service, bool present, Plan_t& plan)
{
    // Services are keyed by program number: a CAM's selected PIDs of that program follow it
    // into and out of the stream.
    const std::string text = service.OidStr();
    const std::string program = text.substr(text.rfind('.') + 1);
    auto programs = m_objects.find("camselectedpidProgramNumber");
    auto presence = m_objects.find("camselectedpidPresence");
    if (programs == m_objects.end() || presence == m_objects.end()) {
        return;
    }
    for (const auto& row : programs->second.values) {
        if (row.second.ToString("") == program && presence->second.values.count(row.first) != 0) {
            plan.after.push_back(
                Change_t{presence->first, row.first, CParam::String(present ? "Present" : "Not Present")});
        }
    }
}

std::string CVirtualUnit::NetworkHookLocked(const std::string& name, const COid& oid, const CParam& value,
                                            Plan_t& plan)
{
    // While the receiver brings its interface up with the staged settings, "tcpipApplyNew"
    // reads true and the staged settings stay as they are being applied.
    if (m_bNetworkApplying) {
        return name + ": the network settings are being applied";
    }
    if (name != "tcpipApplyNew" || value.ToInt64(0) == 0) {
        return "";
    }
    int ms = BehaviourInt("networkApplyMs", 1500);
    if (ms <= 0) {
        // At once, yet after the transaction's other writes: settings staged with the apply count.
        plan.onCommit.push_back([this, oid] { FinishNetworkApplyLocked(oid); });
        return "";
    }
    plan.onCommit.push_back([this] { m_bNetworkApplying = true; });
    plan.timed.emplace_back(static_cast<uint32_t>(ms), [this, oid] { FinishNetworkApplyLocked(oid); });
    return "";
}

void CVirtualUnit::FinishNetworkApplyLocked(const COid& oid)
{
    // "tcpipNewX" holds the staged value of "tcpipX"; only the settings that change are announced.
    std::vector<Change_t> changes;
    for (const auto& obj : m_objects) {
        if (!StartsWith(obj.first, kStagedNetwork)) {
            continue;
        }
        std::string live = "tcpip" + obj.first.substr(std::string(kStagedNetwork).size());
        auto target = m_objects.find(live);
        if (target == m_objects.end()) {
            continue;
        }
        for (const auto& v : obj.second.values) {
            CParam converted;
            auto now = target->second.values.find(v.first);
            if (ConvertValue(live, target->second, v.second, converted).empty() &&
                (now == target->second.values.end() || now->second != converted)) {
                changes.push_back(Change_t{live, v.first, converted});
            }
        }
    }
    for (const auto& c : changes) {
        CommitLocked(c);
    }
    // Last, so that a panel waiting for the apply to end reads the new settings.
    InternalSetLocked("tcpipApplyNew", oid, CParam::Int(0));
    m_bNetworkApplying = false;
}

void CVirtualUnit::SwitchOverLocked(const COid& oid, Plan_t& plan)
{
    // Manual switch-over: the input in use swaps between primary and backup.
    auto active = m_objects.find("inputInputActive");
    if (active == m_objects.end() || active->second.values.count(oid) == 0) {
        return;
    }
    bool toBackup = active->second.values[oid].ToString("") != "Backup";
    plan.after.push_back(Change_t{"inputInputActive", oid, CParam::String(toBackup ? "Backup" : "Primary")});
    auto source = m_objects.find(toBackup ? "inputBackupSrc" : "inputPrimarySrc");
    if (source != m_objects.end() && source->second.values.count(oid) != 0 &&
        HasObjectLocked("inputCurrentActiveInputId")) {
        plan.after.push_back(Change_t{"inputCurrentActiveInputId", oid, source->second.values[oid]});
    }
}

namespace {

// The audio and video texts of the MPEG stream types the service information lists.
const char* AudioType(int64_t streamType)
{
    switch (streamType) {
        case 3: return "MPEG-1";
        case 4: return "MPEG-2";
        case 6: return "Dolby E";
        case 15: return "AAC ADTS";
        case 17: return "AAC LOAS";
        case 128: return "LPCM";
        case 129: return "Dolby Digital";
        case 135: return "Dolby Digital+";
        default: return "MPEG";
    }
}

}  // namespace

void CVirtualUnit::SelectServiceLocked()
{
    // The decoder follows the service selection: the selected service (by number or name,
    // primary or backup) and its video, audio and SCTE-35 PIDs from the service information.
    // Auto seek and the PID modes keep the service being decoded.
    auto value = [this](const std::string& name, const char* instance) {
        auto obj = m_objects.find(name);
        if (obj == m_objects.end() || obj->second.values.count(COid(instance)) == 0) {
            return CParam();
        }
        return obj->second.values[COid(instance)];
    };
    auto rows = [this](const std::string& name) {
        auto obj = m_objects.find(name);
        return obj == m_objects.end() ? std::map<COid, CParam>() : obj->second.values;
    };
    const std::string mode = value("serviceselectionMode", ".1.1").ToString("");
    if (mode != "Use Primary Svc" && mode != "Use Backup Svc") {
        return;
    }
    const std::string lock = mode == "Use Backup Svc" ? "servicelockBackup" : "servicelock";
    int64_t number = value(lock + "ServiceNum", ".1.1").ToInt64(-1);
    if (value(lock + "LockMode", ".1.1").ToString("") == "Service Name") {
        number = -1;
        const std::string name = value(lock + "ServiceName", ".1.1").ToString("");
        const auto names = rows("siserviceName");
        for (const auto& row : names) {
            if (row.second.ToString("") == name) {
                number = value("siserviceNum", row.first.OidStr().c_str()).ToInt64(-1);
            }
        }
    }
    std::string serviceName;
    for (const auto& row : rows("siserviceNum")) {
        if (row.second.ToInt64(-2) == number) {
            serviceName = value("siserviceName", row.first.OidStr().c_str()).ToString("");
        }
    }
    if (serviceName.empty()) {
        return;  // not a received service: the decoder stays where it is
    }
    InternalSetLocked("selectedserviceServiceNum", COid(".1.1"), CParam::Int(number));
    InternalSetLocked("selectedserviceServiceName", COid(".1.1"), CParam::String(serviceName));

    int64_t videoPid = 0;
    for (const auto& row : rows("sivideoSrvNum")) {
        if (row.second.ToInt64(-2) == number) {
            const std::string at = row.first.OidStr();
            videoPid = value("sivideoPid", at.c_str()).ToInt64(0);
            const int64_t type = value("sivideoType", at.c_str()).ToInt64(0);
            InternalSetLocked("selectedserviceVideoType", COid(".1.1"),
                              CParam::String(type == 2 ? "MPEG-2" : "H.264"));
        }
    }
    InternalSetLocked("selectedserviceVideoPid", COid(".1.1"), CParam::Int(videoPid));

    // Audio services in the order the service lists them; the others carry no audio.
    std::vector<std::pair<int64_t, std::string>> audio;
    for (const auto& row : rows("siaudioSrvNum")) {
        if (row.second.ToInt64(-2) == number) {
            const std::string at = row.first.OidStr();
            audio.emplace_back(value("siaudioPid", at.c_str()).ToInt64(0),
                               AudioType(value("siaudioType", at.c_str()).ToInt64(0)));
        }
    }
    size_t n = 0;
    for (const auto& row : rows("selectedaudioPid")) {
        const bool has = n < audio.size();
        InternalSetLocked("selectedaudioPid", row.first, CParam::Int(has ? audio[n].first : 0));
        InternalSetLocked("selectedaudioType", row.first, CParam::String(has ? audio[n].second : "None"));
        InternalSetLocked("audiosrvEncodedType", row.first, CParam::String(has ? audio[n].second : "None"));
        ++n;
    }
    std::vector<int64_t> splice;
    for (const auto& row : rows("siotherSrvNum")) {
        const std::string at = row.first.OidStr();
        if (row.second.ToInt64(-2) == number &&
            StartsWith(value("siotherStreamTypeDesc", at.c_str()).ToString(""), "SCTE-35")) {
            splice.push_back(value("siotherPid", at.c_str()).ToInt64(0));
        }
    }
    n = 0;
    for (const auto& row : rows("selectedscte35Pid")) {
        InternalSetLocked("selectedscte35Pid", row.first, CParam::Int(n < splice.size() ? splice[n] : 0));
        ++n;
    }
}

void CVirtualUnit::ResetSettingsLocked(Plan_t& plan)
{
    // Every setting goes back to its value in the unit file; status objects stay.
    for (const auto& obj : m_objects) {
        if (obj.second.readonly || obj.first == "utilityResetSettings") {
            continue;
        }
        for (const auto& v : m_initial[obj.first]) {
            auto now = obj.second.values.find(v.first);
            if (now == obj.second.values.end() || now->second != v.second) {
                plan.after.push_back(Change_t{obj.first, v.first, v.second});
            }
        }
    }
}

void CVirtualUnit::ResetHookLocked(const std::string& name, const COid& oid, const CParam& value,
                                   Plan_t& plan)
{
    // Counter resets: "counterResets": {"resetObject": ["counterA", ...]} zeroes the counters
    // at the written instance (every instance when the reset is written at ".0").
    auto resets = m_behaviours.find("counterResets");
    if (resets != m_behaviours.end() && resets->is_object() && resets->contains(name) &&
        (*resets)[name].is_array() && value.ToString("") != "0" && value.ToString("") != "false") {
        for (const auto& counter : (*resets)[name]) {
            auto obj = counter.is_string() ? m_objects.find(counter.get<std::string>()) : m_objects.end();
            if (obj == m_objects.end()) {
                continue;
            }
            for (const auto& v : obj->second.values) {
                if (v.first == oid || oid == COid(".0")) {
                    plan.after.push_back(Change_t{obj->first, v.first, DefaultValue(obj->second)});
                }
            }
        }
    }
    // Reset and reboot: "reboot": {"objects": [...], "ms": 3000} takes "systemState" through
    // starting (0) and back to ready.
    auto reboot = m_behaviours.find("reboot");
    if (reboot == m_behaviours.end() || !reboot->is_object() || !reboot->contains("objects") ||
        value.ToString("") == "0" || value.ToString("") == "false") {
        return;
    }
    bool listed = false;
    const Json& objects = (*reboot)["objects"];
    for (const auto& o : objects.is_array() ? objects : Json::array()) {
        listed = listed || (o.is_string() && o.get<std::string>() == name);
    }
    auto state = m_objects.find("systemState");
    if (!listed || state == m_objects.end()) {
        return;
    }
    auto msField = reboot->find("ms");
    uint32_t ms = msField != reboot->end() && msField->is_number_unsigned() ? msField->get<uint32_t>() : 3000;
    for (const auto& v : state->second.values) {
        COid soid = v.first;
        CParam ready = v.second.ToInt64(0) == 0 || v.second.ToInt64(0) == 2 ? CParam::Int(1) : v.second;
        plan.after.push_back(Change_t{"systemState", soid, CParam::Int(0)});
        plan.timed.emplace_back(ms, [this, soid, ready] { InternalSetLocked("systemState", soid, ready); });
    }
}

}  // namespace Unit
