// Receiver of managed-object change events.
#pragma once

#include <string>

#include "Zor/Oid.h"
#include "Zor/Param.h"

namespace Zor {

class IManagedEventSink {
public:
    virtual ~IManagedEventSink() = default;
    // Called on the SDK's delivery thread, in the order of the writes, for every successful
    // write of a subscribed object by any client, changed or not.
    virtual void ManagedEvent(const std::string& name, const COid& instance, const CParam& value) = 0;
};

}  // namespace Zor
