// unitd's side of the controller link: every line a client sends goes to its session, and
// whatever the line holds, the answer is one JSON object with "ok" and the request's "id".
#include <mutex>
#include <string>
#include <vector>

#include "FuzzSupport.h"
#include "Targets.h"
#include "Unit/Protocol.h"
#include "Unit/VirtualUnit.h"

namespace {

using Zor::Json;

// One object of every kind a request can meet, and the behaviours whose state stays bounded
// however often they are written (so one unit can serve every input of a long run).
const char* const kUnit = R"({
  "description": "fuzzing",
  "subsystems": { "Decoder": [".1.2"], "CamSlot": [".1", ".2"], "T2Mi": [] },
  "behaviours": {
    "datetimeTick": false,
    "counterResets": { "tsinputsrcResetCounters": ["tsinputsrcErrorCount"] }
  },
  "objects": {
    "unitAlias": { "type": "string", "maxlen": 20, "values": { ".0": "IRD-01" } },
    "frontpanelLockMode": { "type": "int", "min": 1, "max": 3, "values": { ".0": 1 } },
    "systemState": { "type": "int", "readonly": true, "values": { ".0": 1 } },
    "tsinputsrcLabel": { "type": "string", "readonly": true, "values": { ".1.1": "ASI", ".2.1": "DVB-S2 1" } },
    "tsinputsrcErrorCount": { "type": "int", "readonly": true, "values": { ".1.1": 17, ".2.1": 3 } },
    "tsinputsrcResetCounters": { "type": "int", "values": { ".1.1": 0, ".2.1": 0 } },
    "dvbs2ssconfigModulation": { "type": "enum", "texts": ["QPSK", "8PSK", "Auto"], "values": { ".1.1": "8PSK" } },
    "avssconfigGenlockAvail": { "type": "bool", "readonly": true, "values": { ".1.1": true } },
    "audioLevel": { "type": "double", "min": -60, "max": 0, "values": { ".1.1": -20.5 } },
    "tcpipIpAddress": { "type": "string", "readonly": true, "values": { ".0": "10.0.0.2" } },
    "tcpipNewIpAddress": { "type": "string", "values": { ".0": "10.0.0.2" } },
    "tcpipApplyNew": { "type": "int", "values": { ".0": 0 } },
    "utilityResetSettings": { "type": "int", "values": { ".0": 0 } }
  }
})";

// The unit and the changes it announced while the current input ran.
struct Environment_t {
    std::shared_ptr<Unit::CVirtualUnit> unit;
    std::mutex mutex;
    std::vector<Unit::Change_t> changes;
};

Environment_t& Env()
{
    static Environment_t* env = [] {
        Environment_t* e = new Environment_t();  // never destroyed: the unit's thread runs on
        std::string error;
        e->unit = Unit::CVirtualUnit::FromText(kUnit, error);
        if (!e->unit) {
            ::Fuzz::Fail("unit loads", __FILE__, __LINE__, error);
        }
        e->unit->AddListener([e](const Unit::Change_t& change) {
            std::lock_guard<std::mutex> lock(e->mutex);
            e->changes.push_back(change);
        });
        return e;
    }();
    return *env;
}

void CheckAnswer(const std::string& line, const std::string& answer)
{
    FUZZ_CHECK(answer.find('\n') == std::string::npos, answer);
    const Json out = Json::parse(answer, nullptr, false);
    FUZZ_CHECK(out.is_object(), answer);
    FUZZ_CHECK(out.contains("ok") && out["ok"].is_boolean(), answer);
    if (!out["ok"].get<bool>()) {
        FUZZ_CHECK(out.contains("msg") && out["msg"].is_string(), answer);
    }
    const Json request = Json::parse(line, nullptr, false);
    if (request.is_object() && request.contains("id")) {
        FUZZ_CHECK(out.contains("id") && out["id"] == request["id"], answer);
    }
}

}  // namespace

namespace Fuzz {

int UnitdRequest(const uint8_t* data, size_t size)
{
    Environment_t& env = Env();
    Unit::CSession session(env.unit);
    const std::string input(reinterpret_cast<const char*>(data), size);

    // Lines as the server cuts them: a line end ends a request, a carriage return before it
    // is dropped, blank lines are skipped. The server would hold back a last line without its
    // line end; here it counts, so the fuzzer need not learn to end every input with one.
    size_t start = 0;
    while (start < input.size()) {
        size_t end = input.find('\n', start);
        if (end == std::string::npos) {
            end = input.size();
        }
        std::string line = input.substr(start, end - start);
        start = end + 1;
        if (!line.empty() && line.back() == '\r') {
            line.pop_back();
        }
        if (line.find_first_not_of(" \t") == std::string::npos) {
            continue;
        }
        CheckAnswer(line, session.Handle(line));

        std::vector<Unit::Change_t> changes;
        {
            std::lock_guard<std::mutex> lock(env.mutex);
            changes.swap(env.changes);
        }
        for (const Unit::Change_t& change : changes) {
            std::string event;
            if (session.EventLine(change, event)) {
                const Json json = Json::parse(event, nullptr, false);
                FUZZ_CHECK(json.is_object() && json.contains("event") && json["event"] == "change", event);
            }
        }
    }
    return 0;
}

}  // namespace Fuzz
