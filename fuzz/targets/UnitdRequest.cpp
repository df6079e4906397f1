// unitd's side of the controller link: every line a client sends goes to its session, and
// whatever the line holds, the answer is one JSON object with "ok" and the request's "id".
#include <mutex>
#include <string>
#include <vector>

#include "FuzzSupport.h"
#include "Targets.h"
#include "Unit/Protocol.h"
#include "ZorJson/ParamJson.h"
#include "Unit/VirtualUnit.h"

namespace {

using Zor::Json;

// One object of every kind a request can meet, and a few behaviours that writes set going.
const char* const kUnit = R"({
  "description": "fuzzing",
  "subsystems": { "Decoder": [".1.2"], "CamSlot": [".1", ".2"], "T2Mi": [] },
  "behaviours": {
    "networkApplyMs": 0, "datetimeTick": false,
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
    "alarmlogRowStatus": { "type": "int", "min": 1, "max": 6, "values": { ".1": 1 } },
    "alarmlogText": { "type": "string", "values": { ".1": "Input lost" } },
    "tcpipIpAddress": { "type": "string", "readonly": true, "values": { ".0": "10.0.0.2" } },
    "tcpipNewIpAddress": { "type": "string", "values": { ".0": "10.0.0.2" } },
    "tcpipApplyNew": { "type": "int", "values": { ".0": 0 } },
    "utilityResetSettings": { "type": "int", "values": { ".0": 0 } }
  }
})";

// Changes the unit announced while the current input ran.
struct Changes_t {
    std::mutex mutex;
    std::vector<Unit::Change_t> list;
};

void CheckAnswer(const Json& request, const std::string& answer)
{
    FUZZ_CHECK(answer.find('\n') == std::string::npos, answer);
    const Json out = Json::parse(answer, nullptr, false);
    FUZZ_CHECK(out.is_object(), answer);
    FUZZ_CHECK(out.contains("ok") && out["ok"].is_boolean(), answer);
    if (!out["ok"].get<bool>()) {
        FUZZ_CHECK(out.contains("msg") && out["msg"].is_string(), answer);
    }
    // An answer names the request it answers; a refusal may leave out an id it could not take.
    if (request.is_object() && request.contains("id") && (out["ok"].get<bool>() || out.contains("id"))) {
        FUZZ_CHECK(out.contains("id") && out["id"] == request["id"], answer);
    }
}

}  // namespace

namespace Fuzz {

int UnitdRequest(const uint8_t* data, size_t size)
{
    // A fresh unit for every input, so that an input replays the same way on its own.
    static const Json* doc = new Json(Json::parse(kUnit));
    std::string error;
    std::shared_ptr<Unit::CVirtualUnit> unit = Unit::CVirtualUnit::FromJson(*doc, error);
    FUZZ_CHECK(unit != nullptr, error);
    Changes_t changes;
    const int listener = unit->AddListener([&changes](const Unit::Change_t& change) {
        std::lock_guard<std::mutex> lock(changes.mutex);
        changes.list.push_back(change);
    });
    Unit::CSession session(unit);
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
        // The check parses the request itself only when unitd would: a line nested deeper
        // than unitd accepts would exhaust this process's stack in the parse too.
        const std::string answer = session.Handle(line);
        CheckAnswer(Zor::JsonDepthWithin(line, 32) ? Json::parse(line, nullptr, false) : Json(), answer);

        std::vector<Unit::Change_t> changed;
        {
            std::lock_guard<std::mutex> lock(changes.mutex);
            changed.swap(changes.list);
        }
        for (const Unit::Change_t& change : changed) {
            std::string event;
            if (session.EventLine(change, event)) {
                const Json json = Json::parse(event, nullptr, false);
                FUZZ_CHECK(json.is_object() && json.contains("event") && json["event"] == "change", event);
            }
        }
    }
    unit->RemoveListener(listener);
    return 0;
}

}  // namespace Fuzz
