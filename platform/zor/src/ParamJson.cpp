#include "ZorJson/ParamJson.h"

namespace Zor {

Json ParamToJson(const CParam& param)
{
    switch (param.Type()) {
        case PT_STRING:
            return param.ToString("");
        case PT_INT:
            return param.ToInt64(0);
        case PT_BOOL:
            return param.ToBool(false);
        case PT_DOUBLE:
            return param.ToDouble(0.0);
        case PT_LIST: {
            Json list = Json::array();
            for (int i = 0; i < param.Length(); ++i) {
                list.push_back(ParamToJson(param[i]));
            }
            return list;
        }
        case PT_MAP: {
            Json map = Json::object();
            for (int i = 0; i < param.Length(); ++i) {
                std::string key = param.GetKey(i);
                map[key] = ParamToJson(param[key]);
            }
            return map;
        }
        case PT_NULL:
            break;
    }
    return nullptr;
}

CParam ParamFromJson(const Json& json)
{
    switch (json.type()) {
        case Json::value_t::string:
            return CParam::String(json.get<std::string>());
        case Json::value_t::number_integer:
            return CParam::Int(json.get<int64_t>());
        case Json::value_t::number_unsigned: {
            uint64_t v = json.get<uint64_t>();
            // Beyond int64 a number keeps its magnitude as a double rather than wrapping.
            return v > static_cast<uint64_t>(INT64_MAX) ? CParam::Double(static_cast<double>(v))
                                                        : CParam::Int(static_cast<int64_t>(v));
        }
        case Json::value_t::number_float:
            return CParam::Double(json.get<double>());
        case Json::value_t::boolean:
            return CParam::Bool(json.get<bool>());
        case Json::value_t::array: {
            CParam list(PT_LIST);
            for (const auto& item : json) {
                list.AddParam(ParamFromJson(item));
            }
            return list;
        }
        case Json::value_t::object: {
            CParam map(PT_MAP);
            for (auto it = json.begin(); it != json.end(); ++it) {
                map[it.key()] = ParamFromJson(it.value());
            }
            return map;
        }
        default:
            return CParam();
    }
}

bool JsonDepthWithin(const std::string& text, int maxDepth)
{
    int depth = 0;
    bool inString = false;
    bool escaped = false;
    for (char c : text) {
        if (inString) {
            if (escaped) {
                escaped = false;
            } else if (c == '\\') {
                escaped = true;
            } else if (c == '"') {
                inString = false;
            }
        } else if (c == '"') {
            inString = true;
        } else if (c == '[' || c == '{') {
            if (++depth > maxDepth) {
                return false;
            }
        } else if (c == ']' || c == '}') {
            --depth;
        }
    }
    return true;
}

}  // namespace Zor
