// The controller link protocol: one JSON object per line each way. A session is one
// client's connection: its requests and its subscriptions.
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "Unit/VirtualUnit.h"

namespace Unit {

class CSession {
public:
    explicit CSession(std::shared_ptr<CVirtualUnit> unit) : m_pUnit(std::move(unit)) {}

    // Answers one request line (the answer has no line end). Never throws: malformed lines
    // and bad requests get "ok":false and a message.
    std::string Handle(const std::string& line);
    // The event line for a change when this session subscribed to it.
    bool EventLine(const Change_t& change, std::string& line) const;

private:
    Zor::Json Dispatch(const Zor::Json& request);
    Zor::Json Subscribe(const Zor::Json& request, bool add);

    std::shared_ptr<CVirtualUnit> m_pUnit;
    std::vector<std::pair<std::string, std::string>> m_subs;  // (name or "*", ".%" or oid text)
};

}  // namespace Unit
