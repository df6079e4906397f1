#include "Unit/Protocol.h"

namespace Unit {

using Zor::COid;
using Zor::CParam;
using Zor::CRet;
using Zor::Json;

namespace {

const int kMaxDepth = 32;

Json Fail(const std::string& msg)
{
    return Json{{"ok", false}, {"msg", msg}};
}

Json Ok()
{
    return Json{{"ok", true}};
}

Json FromRet(const CRet& ret)
{
    return ret.Success() ? Ok() : Fail(ret.Msg());
}

bool Text(const Json& request, const char* key, std::string& out)
{
    auto it = request.find(key);
    if (it == request.end() || !it->is_string()) {
        return false;
    }
    out = it->get<std::string>();
    return true;
}

bool TextList(const Json& request, const char* key, std::vector<std::string>& out)
{
    auto it = request.find(key);
    if (it == request.end() || !it->is_array()) {
        return false;
    }
    for (const auto& item : *it) {
        if (!item.is_string()) {
            return false;
        }
        out.push_back(item.get<std::string>());
    }
    return true;
}

// One write of a set or of a transaction's list; false with the message when malformed.
bool ParseWrite(const Json& op, Write_t& write, std::string& msg)
{
    if (!op.is_object() || !Text(op, "name", write.name) || !Text(op, "instance", write.instance) ||
        !op.contains("value")) {
        msg = "a write needs \"name\", \"instance\" (texts) and \"value\"";
        return false;
    }
    const Json& value = op["value"];
    if (!value.is_primitive() || value.is_null()) {
        msg = write.name + ": a value must be a text, number or boolean";
        return false;
    }
    write.value = Zor::ParamFromJson(value);
    return true;
}

std::string NormaliseInstance(const std::string& text)
{
    if (text == "%" || text == ".%") {
        return ".%";
    }
    COid oid(text);
    return oid.IsEmpty() ? "" : oid.OidStr();
}

}  // namespace

std::string CSession::Handle(const std::string& line)
{
    // Requests nest a few levels; a deeper line is refused unparsed (see JsonDepthWithin).
    const bool shallow = Zor::JsonDepthWithin(line, kMaxDepth);
    Json request = shallow ? Json::parse(line, nullptr, false) : Json();
    Json answer;
    if (!shallow) {
        answer = Fail("malformed request: nested too deep");
    } else if (request.is_discarded()) {
        answer = Fail("malformed request: not a JSON object");
    } else if (!request.is_object()) {
        answer = Fail("malformed request: not a JSON object");
    } else {
        try {
            answer = Dispatch(request);
        } catch (const std::exception& e) {
            // Every field is checked before use; this keeps the server up if one was missed.
            answer = Fail(std::string("malformed request: ") + e.what());
        }
    }
    Json out = Json::object();
    if (request.is_object() && request.contains("id")) {
        // Only a plain id is echoed: copying a deeply nested one could exhaust the stack.
        if (request["id"].is_primitive()) {
            out["id"] = request["id"];
        } else {
            answer = Fail("malformed request: \"id\" must be a number or a text");
        }
    }
    for (auto it = answer.begin(); it != answer.end(); ++it) {
        out[it.key()] = it.value();
    }
    // Texts that are not UTF-8 are replaced rather than refused or thrown.
    return out.dump(-1, ' ', false, Json::error_handler_t::replace);
}

Json CSession::Dispatch(const Json& request)
{
    std::string op;
    if (!Text(request, "op", op)) {
        return Fail("malformed request: no \"op\"");
    }
    auto clientField = request.find("client");
    auto forceField = request.find("force");
    if (clientField != request.end() && !clientField->is_string()) {
        return Fail("malformed request: \"client\" must be a text");
    }
    if (forceField != request.end() && !forceField->is_boolean()) {
        return Fail("malformed request: \"force\" must be true or false");
    }
    std::string client = clientField != request.end() ? clientField->get<std::string>() : "unknown";
    bool force = forceField != request.end() && forceField->get<bool>();
    if (op == "get") {
        std::vector<std::string> keys;
        if (!TextList(request, "keys", keys)) {
            return Fail("get needs \"keys\": a list of texts");
        }
        Json answer = Ok();
        answer["values"] = Zor::ParamToJson(m_pUnit->Get(keys));
        return answer;
    }
    if (op == "read") {
        std::string name, instance;
        if (!Text(request, "name", name) || !Text(request, "instance", instance)) {
            return Fail("read needs \"name\" and \"instance\"");
        }
        COid oid(instance);
        if (oid.IsEmpty()) {
            return Fail(name + ": bad instance \"" + instance + "\"");
        }
        CRet ret = m_pUnit->GetOne(name, oid);
        Json answer = FromRet(ret);
        if (ret.Success()) {
            answer["value"] = Zor::ParamToJson(ret.Val());
        }
        return answer;
    }
    if (op == "set") {
        Write_t write;
        std::string msg;
        if (!ParseWrite(request, write, msg)) {
            return Fail(msg);
        }
        return FromRet(m_pUnit->Set(client, write, force));
    }
    if (op == "txn") {
        auto ops = request.find("ops");
        if (ops == request.end() || !ops->is_array()) {
            return Fail("txn needs \"ops\": a list of writes");
        }
        std::vector<Write_t> writes;
        for (const auto& o : *ops) {
            Write_t write;
            std::string msg;
            if (!ParseWrite(o, write, msg)) {
                return Fail(msg);
            }
            writes.push_back(write);
        }
        return FromRet(m_pUnit->Transaction(client, writes, force));
    }
    if (op == "subscribe" || op == "unsubscribe") {
        return Subscribe(request, op == "subscribe");
    }
    if (op == "subsystems") {
        std::vector<std::string> types;
        bool all = !request.contains("types");
        if (!all && !TextList(request, "types", types)) {
            return Fail("subsystems needs \"types\": a list of texts");
        }
        CParam present = all ? m_pUnit->AllSubsystems() : m_pUnit->Subsystems(types);
        Json answer = Ok();
        answer["present"] = present.IsNull() ? Json::object() : Zor::ParamToJson(present);
        return answer;
    }
    if (op == "writes") {
        auto since = request.find("since");
        if (since != request.end() && (!since->is_number_unsigned() || since->get<uint64_t>() > UINT32_MAX)) {
            return Fail("\"since\" must be a sequence number");
        }
        uint32_t from = since == request.end() ? 0 : since->get<uint32_t>();
        uint32_t next = 0;
        Json list = Json::array();
        for (const auto& e : m_pUnit->Writes(from, next)) {
            Json entry = {{"seq", e.seq},
                          {"client", e.client},
                          {"name", e.name},
                          {"instance", e.instance},
                          {"value", Zor::ParamToJson(e.value)},
                          {"ok", e.ok}};
            if (!e.ok) {
                entry["msg"] = e.msg;
            }
            list.push_back(entry);
        }
        Json answer = Ok();
        answer["writes"] = list;
        answer["next"] = next;
        return answer;
    }
    if (op == "ping") {
        return Ok();
    }
    if (op == "behaviour") {
        // Reads a behaviour setting, or changes it when a value is given.
        std::string name;
        if (!Text(request, "name", name) || name.empty()) {
            return Fail("behaviour needs \"name\"");
        }
        auto value = request.find("value");
        std::string error;
        if (value != request.end() && !m_pUnit->SetBehaviour(name, *value, error)) {
            return Fail(name + ": " + error);
        }
        Json answer = Ok();
        answer["value"] = m_pUnit->GetBehaviour(name);
        return answer;
    }
    return Fail("unknown op \"" + op + "\"");
}

Json CSession::Subscribe(const Json& request, bool add)
{
    std::string name;
    std::string instance = ".%";
    if (!Text(request, "name", name) || name.empty() ||
        (request.contains("instance") && !Text(request, "instance", instance))) {
        return Fail(std::string(add ? "subscribe" : "unsubscribe") + " needs \"name\" (\"*\" for all)");
    }
    std::string inst = NormaliseInstance(instance);
    if (inst.empty()) {
        return Fail(name + ": bad instance \"" + instance + "\"");
    }
    std::pair<std::string, std::string> sub(name, inst);
    for (auto it = m_subs.begin(); it != m_subs.end(); ++it) {
        if (*it == sub) {
            if (!add) {
                m_subs.erase(it);
            }
            return Ok();
        }
    }
    if (!add) {
        return Fail("not subscribed to " + name + " " + inst);
    }
    m_subs.push_back(sub);
    return Ok();
}

bool CSession::EventLine(const Change_t& change, std::string& line) const
{
    std::string inst = change.instance.OidStr();
    for (const auto& s : m_subs) {
        if ((s.first == "*" || s.first == change.name) && (s.second == ".%" || s.second == inst)) {
            Json event = {{"event", "change"},
                          {"name", change.name},
                          {"instance", inst},
                          {"value", Zor::ParamToJson(change.value)}};
            line = event.dump(-1, ' ', false, Json::error_handler_t::replace);
            return true;
        }
    }
    return false;
}

}  // namespace Unit
