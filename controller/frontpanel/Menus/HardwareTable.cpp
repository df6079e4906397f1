#include "Menus/HardwareTable.h"

#include "Zor/Param.h"

namespace {

// The instance of `object` whose value is `text`; "" when none.
std::string InstanceWhere(const CRowValues& values, const char* object, const std::string& text)
{
    const Zor::CParam& all = values.All();
    if (text.empty() || !all.IsMap() || !all.KeyExists(object))
        return std::string();
    const Zor::CParam& instances = all[object];
    for (int i = 0; instances.IsMap() && i < instances.Length(); ++i)
        if (instances[instances.GetKey(i)].ToString("") == text)
            return instances.GetKey(i);
    return std::string();
}

}  // namespace

std::string ModelName(const CRowValues& values, const std::string& modelId)
{
    std::string model = InstanceWhere(values, "modelId", modelId);
    std::string name = model.empty() ? std::string() : values("modelName", model);
    return name.empty() ? modelId : name;
}

std::string BoardAt(const CRowValues& values, const std::string& location)
{
    return InstanceWhere(values, "hardwareLocation", location);
}
