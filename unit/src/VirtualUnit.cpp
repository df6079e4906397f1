#include "Unit/VirtualUnit.h"

#include <pthread.h>

#include <chrono>
#include <cmath>
#include <fstream>
#include <sstream>

namespace Unit {

using Zor::COid;
using Zor::CParam;
using Zor::CRet;
using Zor::Json;

namespace {

const size_t kJournalLimit = 100000;

bool IsRowStatus(const std::string& name)
{
    const std::string tail = "RowStatus";
    return name.size() >= tail.size() && name.compare(name.size() - tail.size(), tail.size(), tail) == 0;
}

uint64_t NowMs()
{
    return static_cast<uint64_t>(std::chrono::duration_cast<std::chrono::milliseconds>(
                                     std::chrono::steady_clock::now().time_since_epoch())
                                     .count());
}

std::string Quoted(const CParam& value)
{
    return "\"" + value.ToString("") + "\"";
}

std::string NumberText(double v)
{
    return CParam::Double(v).ToString("");
}

bool ParseType(const std::string& text, ObjectType_e& type)
{
    static const std::pair<const char*, ObjectType_e> kTypes[] = {
        {"string", OT_STRING}, {"int", OT_INT}, {"bool", OT_BOOL}, {"double", OT_DOUBLE}, {"enum", OT_ENUM}};
    for (const auto& t : kTypes) {
        if (text == t.first) {
            type = t.second;
            return true;
        }
    }
    return false;
}

}  // namespace

bool SplitKey(const std::string& key, std::string& name, std::string& instance)
{
    size_t dot = key.find('.');
    if (dot == std::string::npos || dot == 0 || dot + 1 >= key.size()) {
        return false;
    }
    name = key.substr(0, dot);
    instance = key.substr(dot + 1);
    return true;
}

std::string ConvertValue(const std::string& name, const ObjectDef_t& def, const CParam& in, CParam& out)
{
    if (in.IsNull() || in.IsList() || in.IsMap()) {
        return name + ": a value must be a text, number or boolean";
    }
    switch (def.type) {
        case OT_STRING: {
            std::string text = in.ToString("");
            if (def.maxlen >= 0 && text.size() > static_cast<size_t>(def.maxlen)) {
                return name + ": value too long";
            }
            out = CParam::String(text);
            return "";
        }
        case OT_INT: {
            int64_t v = in.ToInt64(INT64_MIN);
            bool converts = !(v == INT64_MIN && in.ToInt64(INT64_MAX) == INT64_MAX);
            if (in.Type() == Zor::PT_DOUBLE && std::trunc(in.ToDouble(0.0)) != in.ToDouble(0.0)) {
                converts = false;
            }
            if (!converts) {
                return name + ": " + Quoted(in) + " is not an integer";
            }
            double d = static_cast<double>(v);
            if ((def.hasMin && d < def.min) || (def.hasMax && d > def.max)) {
                return name + ": " + in.ToString("") + " is out of range " +
                       (def.hasMin ? NumberText(def.min) : "") + ".." +
                       (def.hasMax ? NumberText(def.max) : "");
            }
            out = CParam::Int(v);
            return "";
        }
        case OT_BOOL: {
            std::string text = in.ToString("");
            if (text == "true" || text == "1") {
                out = CParam::Bool(true);
            } else if (text == "false" || text == "0") {
                out = CParam::Bool(false);
            } else {
                return name + ": " + Quoted(in) + " is not a boolean (true, false, 1 or 0)";
            }
            return "";
        }
        case OT_DOUBLE: {
            double v = in.ToDouble(NAN);
            if (std::isnan(v) || in.Type() == Zor::PT_BOOL ||
                (in.Type() == Zor::PT_STRING && (in.ToString("") == "true" || in.ToString("") == "false"))) {
                return name + ": " + Quoted(in) + " is not a number";
            }
            if ((def.hasMin && v < def.min) || (def.hasMax && v > def.max)) {
                return name + ": " + in.ToString("") + " is out of range " +
                       (def.hasMin ? NumberText(def.min) : "") + ".." +
                       (def.hasMax ? NumberText(def.max) : "");
            }
            out = CParam::Double(v);
            return "";
        }
        case OT_ENUM: {
            std::string text = in.ToString("");
            for (const auto& allowed : def.texts) {
                if (text == allowed) {
                    out = CParam::String(text);
                    return "";
                }
            }
            std::string list;
            for (const auto& allowed : def.texts) {
                list += (list.empty() ? "" : ", ") + allowed;
            }
            return name + ": " + Quoted(in) + " is not one of " + list;
        }
    }
    return name + ": unknown type";
}

CVirtualUnit::CVirtualUnit() : m_behaviours(Json::object()) {}

CVirtualUnit::~CVirtualUnit()
{
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_bStop = true;
    }
    m_cvTimed.notify_all();
    if (m_scheduler.joinable()) {
        m_scheduler.join();
    }
}

std::shared_ptr<CVirtualUnit> CVirtualUnit::Empty()
{
    std::shared_ptr<CVirtualUnit> unit(new CVirtualUnit());
    unit->StartBehaviours();
    return unit;
}

std::shared_ptr<CVirtualUnit> CVirtualUnit::LoadFile(const std::string& path, std::string& error)
{
    std::ifstream in(path);
    if (!in) {
        error = "cannot read unit file " + path;
        return nullptr;
    }
    std::stringstream text;
    text << in.rdbuf();
    std::shared_ptr<CVirtualUnit> unit = FromText(text.str(), error);
    if (!unit) {
        error = path + ": " + error;
    }
    return unit;
}

std::shared_ptr<CVirtualUnit> CVirtualUnit::FromText(const std::string& text, std::string& error)
{
    if (!Zor::JsonDepthWithin(text, 64)) {
        error = "nested too deep";
        return nullptr;
    }
    Json doc = Json::parse(text, nullptr, false);
    if (doc.is_discarded()) {
        error = "not valid JSON";
        return nullptr;
    }
    return FromJson(doc, error);
}

std::shared_ptr<CVirtualUnit> CVirtualUnit::FromJson(const Json& doc, std::string& error)
{
    std::shared_ptr<CVirtualUnit> unit(new CVirtualUnit());
    try {
        std::lock_guard<std::mutex> lock(unit->m_mutex);
        if (!unit->LoadLocked(doc, error)) {
            return nullptr;
        }
    } catch (const std::exception& e) {
        // A field of an unexpected JSON type that no check above names.
        error = std::string("unexpected content: ") + e.what();
        return nullptr;
    }
    unit->StartBehaviours();
    return unit;
}

bool CVirtualUnit::LoadLocked(const Json& doc, std::string& error)
{
    if (!doc.is_object()) {
        error = "a unit file is one JSON object";
        return false;
    }
    if (doc.contains("description") && doc["description"].is_string()) {
        m_strDescription = doc["description"].get<std::string>();
    }
    if (doc.contains("behaviours")) {
        if (!doc["behaviours"].is_object()) {
            error = "\"behaviours\" must be an object";
            return false;
        }
        m_behaviours = doc["behaviours"];
    }
    if (doc.contains("subsystems")) {
        const Json& subs = doc["subsystems"];
        if (!subs.is_object()) {
            error = "\"subsystems\" must be an object";
            return false;
        }
        for (auto it = subs.begin(); it != subs.end(); ++it) {
            std::vector<std::string> instances;
            if (!it.value().is_array()) {
                error = "subsystem " + it.key() + ": instances must be a list";
                return false;
            }
            for (const auto& inst : it.value()) {
                COid oid;
                if (!inst.is_string() || !oid.Str2Oid(inst.get<std::string>().c_str())) {
                    error = "subsystem " + it.key() + ": bad instance " + inst.dump();
                    return false;
                }
                instances.push_back(oid.OidStr());
            }
            m_subsystems.emplace_back(it.key(), instances);
        }
    }
    if (!doc.contains("objects")) {
        return true;
    }
    const Json& objects = doc["objects"];
    if (!objects.is_object()) {
        error = "\"objects\" must be an object";
        return false;
    }
    for (auto it = objects.begin(); it != objects.end(); ++it) {
        const std::string& name = it.key();
        const Json& o = it.value();
        ObjectDef_t def;
        if (name.empty() || name.find('.') != std::string::npos) {
            error = "bad object name \"" + name + "\"";
            return false;
        }
        if (!o.is_object() || !o.contains("type") || !o["type"].is_string() ||
            !ParseType(o["type"].get<std::string>(), def.type)) {
            error = name + ": \"type\" must be string, int, bool, double or enum";
            return false;
        }
        if (o.contains("readonly") && !o["readonly"].is_boolean()) {
            error = name + ": \"readonly\" must be true or false";
            return false;
        }
        def.readonly = o.contains("readonly") && o["readonly"].get<bool>();
        if (o.contains("texts")) {
            if (!o["texts"].is_array()) {
                error = name + ": \"texts\" must be a list of texts";
                return false;
            }
            for (const auto& t : o["texts"]) {
                if (!t.is_string()) {
                    error = name + ": \"texts\" must be a list of texts";
                    return false;
                }
                def.texts.push_back(t.get<std::string>());
            }
        }
        if (def.type == OT_ENUM && def.texts.empty()) {
            error = name + ": an enum needs \"texts\"";
            return false;
        }
        if (o.contains("min")) {
            def.hasMin = o["min"].is_number();
            def.min = def.hasMin ? o["min"].get<double>() : 0.0;
        }
        if (o.contains("max")) {
            def.hasMax = o["max"].is_number();
            def.max = def.hasMax ? o["max"].get<double>() : 0.0;
        }
        if (o.contains("maxlen") && o["maxlen"].is_number_integer()) {
            def.maxlen = o["maxlen"].get<int>();
        }
        if (o.contains("description") && o["description"].is_string()) {
            def.description = o["description"].get<std::string>();
        }
        if (!o.contains("values") || !o["values"].is_object()) {
            error = name + ": \"values\" must map instances to values";
            return false;
        }
        const Json& values = o["values"];
        for (auto v = values.begin(); v != values.end(); ++v) {
            COid oid;
            if (!oid.Str2Oid(v.key().c_str())) {
                error = name + ": bad instance \"" + v.key() + "\"";
                return false;
            }
            CParam converted;
            // Only scalars are values; a list or map is refused before it is converted.
            std::string msg = ConvertValue(
                name, def, v.value().is_primitive() ? Zor::ParamFromJson(v.value()) : CParam(), converted);
            if (!msg.empty()) {
                error = msg + " (instance " + v.key() + ")";
                return false;
            }
            def.values[oid] = converted;
        }
        m_initial[name] = def.values;
        m_objects[name] = def;
    }
    return true;
}

std::string CVirtualUnit::Description() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_strDescription;
}

CParam CVirtualUnit::Get(const std::vector<std::string>& keys) const
{
    // Gather per name first so that several keys of one name merge in oid order.
    typedef std::map<COid, const CParam*> Hits;
    std::vector<std::pair<std::string, Hits>> found;
    std::lock_guard<std::mutex> lock(m_mutex);
    for (const auto& key : keys) {
        std::string name, instance;
        if (!SplitKey(key, name, instance)) {
            continue;
        }
        auto obj = m_objects.find(name);
        if (obj == m_objects.end()) {
            continue;
        }
        const auto& values = obj->second.values;
        COid oid;
        auto one = values.end();
        if (instance != "%") {
            if (!oid.Str2Oid(instance.c_str()) || (one = values.find(oid)) == values.end()) {
                continue;
            }
        } else if (values.empty()) {
            continue;
        }
        auto slot = found.begin();
        while (slot != found.end() && slot->first != name) {
            ++slot;
        }
        if (slot == found.end()) {
            found.emplace_back(name, Hits());
            slot = found.end() - 1;
        }
        if (one != values.end()) {
            slot->second[one->first] = &one->second;
        } else {
            for (const auto& v : values) {
                slot->second[v.first] = &v.second;
            }
        }
    }
    CParam result(Zor::PT_MAP);
    for (const auto& entry : found) {
        CParam& instances = result[entry.first];
        instances.Clear(Zor::PT_MAP);
        for (const auto& v : entry.second) {
            instances[v.first.OidStr()] = *v.second;
        }
    }
    return result;
}

CRet CVirtualUnit::GetOne(const std::string& name, const COid& instance) const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    auto obj = m_objects.find(name);
    if (obj == m_objects.end()) {
        return CRet::Fail("unknown object: " + name);
    }
    auto v = obj->second.values.find(instance);
    if (v == obj->second.values.end()) {
        return CRet::Fail(name + ": no instance \"" + instance.OidStr() + "\"");
    }
    return CRet::Ok(v->second);
}

CRet CVirtualUnit::Set(const std::string& client, const Write_t& write, bool force)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return ApplyLocked(client, std::vector<Write_t>(1, write), force);
}

CRet CVirtualUnit::Transaction(const std::string& client, const std::vector<Write_t>& writes, bool force)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return ApplyLocked(client, writes, force);
}

std::string CVirtualUnit::CheckWriteLocked(const Write_t& write, bool force, COid& oid, CParam& value,
                                           Plan_t& plan)
{
    auto obj = m_objects.find(write.name);
    if (obj == m_objects.end()) {
        return "unknown object: " + write.name;
    }
    if (!oid.Str2Oid(write.instance.c_str())) {
        return write.name + ": bad instance \"" + write.instance + "\"";
    }
    const ObjectDef_t& def = obj->second;
    if (def.readonly && !force) {
        return write.name + " is read-only";
    }
    std::string msg = ConvertValue(write.name, def, write.value, value);
    if (!msg.empty()) {
        return msg;
    }
    bool rowCreation = false;
    msg = RunHookLocked(write.name, oid, value, plan);
    if (!msg.empty()) {
        return msg;
    }
    for (auto c = plan.after.begin(); c != plan.after.end();) {
        const bool planned = c->name == write.name && c->instance == oid;
        rowCreation = rowCreation || planned;
        // A column of a row created earlier in the same transaction: the written value, not
        // the column's default, is what the new row holds.
        if (planned && !IsRowStatus(write.name)) {
            c = plan.after.erase(c);
        } else {
            ++c;
        }
    }
    if (!rowCreation && def.values.count(oid) == 0) {
        return write.name + ": no instance \"" + oid.OidStr() + "\"";
    }
    return "";
}

CRet CVirtualUnit::ApplyLocked(const std::string& client, const std::vector<Write_t>& writes, bool force)
{
    Plan_t plan;
    std::string failure;
    for (const auto& w : writes) {
        Change_t change;
        change.name = w.name;
        failure = CheckWriteLocked(w, force, change.instance, change.value, plan);
        if (!failure.empty()) {
            break;
        }
        plan.written.push_back(change);
    }
    if (writes.empty()) {
        failure = "empty transaction";
    }
    for (const auto& w : writes) {
        JournalEntry_t entry;
        entry.seq = m_uNextSeq++;
        entry.client = client;
        entry.name = w.name;
        entry.instance = w.instance;
        entry.value = w.value;
        entry.ok = failure.empty();
        entry.msg = failure;
        m_journal.push_back(entry);
        if (m_journal.size() > kJournalLimit) {
            m_journal.pop_front();
        }
    }
    if (!failure.empty()) {
        return CRet::Fail(failure);
    }
    for (const auto& c : plan.written) {
        CommitLocked(c);
    }
    for (const auto& c : plan.after) {
        CommitLocked(c);
    }
    for (const auto& r : plan.removals) {
        auto obj = m_objects.find(r.first);
        if (obj != m_objects.end()) {
            obj->second.values.erase(r.second);
        }
    }
    for (const auto& a : plan.onCommit) {
        a();
    }
    for (const auto& t : plan.timed) {
        ScheduleLocked(t.first, t.second);
    }
    return CRet::Ok();
}

void CVirtualUnit::CommitLocked(const Change_t& change)
{
    auto obj = m_objects.find(change.name);
    if (obj == m_objects.end()) {
        return;
    }
    obj->second.values[change.instance] = change.value;
    EmitLocked(change);
}

void CVirtualUnit::EmitLocked(const Change_t& change)
{
    for (const auto& l : m_listeners) {
        l.second(change);
    }
}

void CVirtualUnit::InternalSetLocked(const std::string& name, const COid& oid, const CParam& value)
{
    auto obj = m_objects.find(name);
    if (obj == m_objects.end()) {
        return;
    }
    CParam converted;
    if (!ConvertValue(name, obj->second, value, converted).empty()) {
        return;
    }
    Change_t change{name, oid, converted};
    CommitLocked(change);
}

CParam CVirtualUnit::Subsystems(const std::vector<std::string>& types) const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    CParam result;
    for (const auto& sub : m_subsystems) {
        bool asked = false;
        for (const auto& t : types) {
            asked = asked || t == sub.first;
        }
        if (!asked || sub.second.empty() || result.KeyExists(sub.first)) {
            continue;
        }
        CParam& list = result[sub.first];
        list.Clear(Zor::PT_LIST);
        for (const auto& inst : sub.second) {
            list.AddParam(CParam::String(inst));
        }
    }
    return result;
}

CParam CVirtualUnit::AllSubsystems() const
{
    std::vector<std::string> types;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        for (const auto& sub : m_subsystems) {
            types.push_back(sub.first);
        }
    }
    return Subsystems(types);
}

std::vector<JournalEntry_t> CVirtualUnit::Writes(uint32_t since, uint32_t& next) const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    std::vector<JournalEntry_t> out;
    for (const auto& e : m_journal) {
        if (e.seq >= since) {
            out.push_back(e);
        }
    }
    next = m_uNextSeq;
    return out;
}

int CVirtualUnit::AddListener(const Listener& listener)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    int id = m_iNextListener++;
    m_listeners[id] = listener;
    return id;
}

void CVirtualUnit::RemoveListener(int id)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_listeners.erase(id);
}

void CVirtualUnit::ScheduleLocked(uint32_t delayMs, const Action& action)
{
    m_timed.emplace(NowMs() + delayMs, action);
    // The thread starts with the first timed action: most units in tests and fuzzing never
    // schedule one, and a thread per unit is most of what building one costs.
    if (!m_scheduler.joinable()) {
        m_scheduler = std::thread(&CVirtualUnit::SchedulerLoop, this);
    }
    m_cvTimed.notify_all();
}

void CVirtualUnit::SchedulerLoop()
{
    pthread_setname_np(pthread_self(), "unit-timer");
    std::unique_lock<std::mutex> lock(m_mutex);
    while (!m_bStop) {
        if (m_timed.empty()) {
            m_cvTimed.wait(lock);
            continue;
        }
        uint64_t now = NowMs();
        auto first = m_timed.begin();
        if (first->first > now) {
            m_cvTimed.wait_for(lock, std::chrono::milliseconds(first->first - now));
            continue;
        }
        Action action = first->second;
        m_timed.erase(first);
        action();
    }
}

}  // namespace Unit
