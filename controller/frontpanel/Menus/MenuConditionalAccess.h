// "Conditional Access": BISS descrambling with the user's own keys, and the common-interface
// slots for conditional-access modules. Each entry exists only on units that have it.
#pragma once

#include <string>

#include "Qb/Types.h"
#include "ScreenManager/Capabilities.h"
#include "ScreenManager/TableScreen.h"
#include "Zor/Param.h"

class CMenuConditionalAccess : public CConfigTableScreen {
public:
    explicit CMenuConditionalAccess(const Capabilities_t& caps);
};

// Texts shared by the conditional-access screens.
namespace CaText {

// "Srv 3 Weather Channel" for a received service; "Srv 7 (Not Present)" for one that is
// not (or no longer) in the stream. The service information is read with "siserviceName.%"
// and "siserviceRowStatus.%" (services are keyed by program number: ".1.3" is service 3).
std::string Service(const Zor::CParam& values, const std::string& number);
// "0x0100": a PID as four upper-case hexadecimal digits.
std::string Pid(const std::string& decimal);
// The stream-type texts of the PID lists, each with its leading blank.
std::string VideoType(Qb::int32 type);
std::string AudioType(Qb::int32 type);
// Another stream's description from the service information, long ones shortened.
std::string OtherType(const std::string& description);

}  // namespace CaText
