// CParam <-> JSON, shared by the SDK's transports, the virtual unit and its tools.
#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "Zor/Param.h"

namespace Zor {

// Insertion-ordered JSON, so that maps keep their order on the wire.
using Json = nlohmann::ordered_json;

Json ParamToJson(const CParam& param);
// JSON keeps its type: integers, doubles, booleans, texts, arrays (lists), objects (maps).
CParam ParamFromJson(const Json& json);

// True when arrays and objects in text nest at most maxDepth deep. Checked before parsing
// text from outside: copying a deeply nested ordered value recurses once per level.
bool JsonDepthWithin(const std::string& text, int maxDepth);

}  // namespace Zor
