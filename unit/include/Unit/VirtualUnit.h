// The virtual unit: the controller's typed object store, loaded from a unit file, with the
// receiver's behaviours (start-up state, profiles, image update, clock...).
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "Zor/Oid.h"
#include "Zor/Param.h"
#include "Zor/Ret.h"
#include "ZorJson/ParamJson.h"

namespace Unit {

enum ObjectType_e { OT_STRING, OT_INT, OT_BOOL, OT_DOUBLE, OT_ENUM };

struct ObjectDef_t {
    ObjectType_e type = OT_STRING;
    bool readonly = false;
    std::vector<std::string> texts;  // enum: the allowed texts
    bool hasMin = false;
    bool hasMax = false;
    double min = 0.0;
    double max = 0.0;
    int maxlen = -1;  // strings; -1: no limit
    std::string description;
    std::map<Zor::COid, Zor::CParam> values;  // oid order
};

// One successful write, as the unit announces it.
struct Change_t {
    std::string name;
    Zor::COid instance;
    Zor::CParam value;
};

// One requested write: the instance is text as the client sent it (".0", "1.1").
struct Write_t {
    std::string name;
    std::string instance;
    Zor::CParam value;
};

struct JournalEntry_t {
    uint32_t seq = 0;
    std::string client;
    std::string name;
    std::string instance;
    Zor::CParam value;
    bool ok = false;
    std::string msg;
};

class CVirtualUnit {
public:
    // Called with the unit's lock held, for every successful write by any client and by the
    // unit itself, in write order. Must not call back into the unit.
    typedef std::function<void(const Change_t&)> Listener;

    ~CVirtualUnit();
    CVirtualUnit(const CVirtualUnit&) = delete;
    CVirtualUnit& operator=(const CVirtualUnit&) = delete;

    // Null and the reason in error when the file cannot be read or is not a valid unit.
    static std::shared_ptr<CVirtualUnit> LoadFile(const std::string& path, std::string& error);
    static std::shared_ptr<CVirtualUnit> FromText(const std::string& text, std::string& error);
    static std::shared_ptr<CVirtualUnit> FromJson(const Zor::Json& doc, std::string& error);
    // A unit with no objects and no subsystems.
    static std::shared_ptr<CVirtualUnit> Empty();

    std::string Description() const;

    // Keys "name.instance" or "name.%": a map of name -> map of instance text -> value,
    // instances in oid order. Unknown keys are left out.
    Zor::CParam Get(const std::vector<std::string>& keys) const;
    // One value; fails with a message when the object or instance is unknown.
    Zor::CRet GetOne(const std::string& name, const Zor::COid& instance) const;
    // A forced write also writes read-only objects.
    Zor::CRet Set(const std::string& client, const Write_t& write, bool force);
    // All writes apply, or none (the message names the first refused one).
    Zor::CRet Transaction(const std::string& client, const std::vector<Write_t>& writes, bool force);
    // Map of each present type to a list of its instance texts; null when none is present.
    Zor::CParam Subsystems(const std::vector<std::string>& types) const;
    // The same for every fitted type.
    Zor::CParam AllSubsystems() const;
    // Journal of client writes (refused ones too) with seq >= since; next is the seq the
    // next write will get.
    std::vector<JournalEntry_t> Writes(uint32_t since, uint32_t& next) const;

    int AddListener(const Listener& listener);
    // Once this returns the listener is not running and will not run again.
    void RemoveListener(int id);

    // Changes one numeric behaviour setting at run time (for example "updateCompletionCode"
    // 2 or "profileApplyResult" 1, so that the next update or profile apply fails). Takes
    // effect from the next operation that reads it; false with a message for a value that is
    // not a number.
    bool SetBehaviour(const std::string& name, const Zor::Json& value, std::string& error);
    // The current setting, null when unset.
    Zor::Json GetBehaviour(const std::string& name);

private:
    typedef std::function<void()> Action;  // runs with m_mutex held
    // What a write sets going besides itself; carried out only when the write applies.
    struct Plan_t {
        std::vector<Change_t> written;                            // the writes checked so far
        std::vector<Change_t> after;                              // applied right after the writes
        std::vector<std::pair<std::string, Zor::COid>> removals;  // instances that go away
        std::vector<std::pair<uint32_t, Action>> timed;           // later steps
        std::vector<Action> onCommit;  // state kept by the behaviours; steps that need the writes applied
    };

    CVirtualUnit();
    bool LoadLocked(const Zor::Json& doc, std::string& error);
    void StartBehaviours();
    Zor::CRet ApplyLocked(const std::string& client, const std::vector<Write_t>& writes, bool force);
    std::string CheckWriteLocked(const Write_t& write, bool force, Zor::COid& oid, Zor::CParam& value,
                                 Plan_t& plan);
    std::string RunHookLocked(const std::string& name, const Zor::COid& oid, const Zor::CParam& value,
                              Plan_t& plan);
    void CommitLocked(const Change_t& change);
    void EmitLocked(const Change_t& change);
    void ScheduleLocked(uint32_t delayMs, const Action& action);
    void SchedulerLoop();

    // Behaviours (Behaviours.cpp).
    std::string ProfileHookLocked(const std::string& name, const Zor::CParam& value, Plan_t& plan);
    std::string UpdateHookLocked(const Zor::CParam& value, Plan_t& plan);
    void ResetHookLocked(const std::string& name, const Zor::COid& oid, const Zor::CParam& value,
                         Plan_t& plan);
    std::string BissKeyHookLocked(const std::string& name, const Zor::CParam& value);
    void ServicePresenceLocked(const Zor::COid& service, bool present, Plan_t& plan);
    std::string RowStatusHookLocked(const std::string& name, const Zor::COid& oid, const Zor::CParam& value,
                                    Plan_t& plan);
    std::string NetworkHookLocked(const std::string& name, const Zor::COid& oid, const Zor::CParam& value,
                                  Plan_t& plan);
    void FinishNetworkApplyLocked(const Zor::COid& oid);
    void SwitchOverLocked(const Zor::COid& oid, Plan_t& plan);
    void ResetSettingsLocked(Plan_t& plan);
    void SelectServiceLocked();
    std::string ClockHookLocked(const std::string& name, const Zor::COid& oid, const Zor::CParam& value,
                                Plan_t& plan);
    bool ClockTicksLocked() const;
    std::string ClockFormatLocked() const;
    void TickClockLocked(uint32_t chain);
    int BehaviourInt(const char* key, int def) const;
    bool HasObjectLocked(const std::string& name) const { return m_objects.count(name) != 0; }
    void InternalSetLocked(const std::string& name, const Zor::COid& oid, const Zor::CParam& value);

    mutable std::mutex m_mutex;
    std::string m_strDescription;
    std::map<std::string, ObjectDef_t> m_objects;
    std::map<std::string, std::map<Zor::COid, Zor::CParam>> m_initial;  // values as loaded
    std::vector<std::pair<std::string, std::vector<std::string>>> m_subsystems;
    Zor::Json m_behaviours;
    std::map<int, Listener> m_listeners;
    int m_iNextListener = 1;
    std::deque<JournalEntry_t> m_journal;
    uint32_t m_uNextSeq = 1;

    // Timed behaviour steps, by due time (monotonic ms) then order of scheduling.
    std::multimap<uint64_t, Action> m_timed;
    std::condition_variable m_cvTimed;
    bool m_bStop = false;
    bool m_bUpdating = false;         // an image update sequence runs
    bool m_bApplying = false;         // a profile apply sequence runs
    bool m_bNetworkApplying = false;  // staged network settings are being applied
    std::thread m_scheduler;

    // The clock: the system's time, or one set by a write that ticks on from there.
    bool m_bClockSet = false;
    int64_t m_iClockSetTo = 0;  // seconds since 1970, as written
    std::chrono::steady_clock::time_point m_clockSetAt;
    uint32_t m_uClockChain = 0;  // a tick of an older chain of ticks does nothing
};

// Splits "name.1.1" / "name.%" into name and instance text ("1.1", "%"); false without a point.
bool SplitKey(const std::string& key, std::string& name, std::string& instance);

// Converts a written value to the object's type; "" when it converts, else the message.
std::string ConvertValue(const std::string& name, const ObjectDef_t& def, const Zor::CParam& in,
                         Zor::CParam& out);

}  // namespace Unit
