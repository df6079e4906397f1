#include "Menus/MenuConditionalAccess.h"

#include "Qb/Str.h"
#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

CMenuConditionalAccess::CMenuConditionalAccess(const Capabilities_t& caps)
    : CConfigTableScreen(kConditionalAccess, kMainMenu,
                         {
                             Target("BISS", kBissConfig).When(caps.biss),
                             Target("BISS Selected Services Status", kBissSelectedServicesStatus).When(caps.biss),
                             Target("DVB-CI", kDvbCi).When(caps.camSlot),
                         })
{
}

namespace CaText {

std::string Service(const Zor::CParam& values, const std::string& number)
{
    const std::string key = ".1." + number;
    auto at = [&values, &key](const char* object) {
        if (!values.IsMap() || !values.KeyExists(object) || !values[object].IsMap() ||
            !values[object].KeyExists(key))
            return std::string();
        return values[object][key].ToString("");
    };
    // A service that left the stream: its row is gone, or reads destroyed (6) until the
    // screen reads its values again.
    const std::string row = at("siserviceRowStatus");
    if (row.empty() || row == "6")
        return "Srv " + number + " (Not Present)";
    return "Srv " + number + " " + at("siserviceName");
}

std::string Pid(const std::string& decimal)
{
    return Qb::Str::Format("0x%04X", Qb::Str::ToUInt32(decimal, 0));
}

std::string VideoType(Qb::int32 type)
{
    switch (type) {
        case 1:
            return " MPEG-1";
        case 2:
            return " MPEG-2";
        case 27:
            return " H.264";
        default:
            return " Unknown";
    }
}

std::string AudioType(Qb::int32 type)
{
    switch (type) {
        case 3:
        case 4:
            return " MPEG";
        case 6:
            return " LPCM/Dolby E";
        case 15:
            return " AAC ADTS";
        case 17:
            return " AAC LOAS";
        case 129:
            return " Dolby D";
        case 135:
            return " Dolby D+";
        default:
            return " None";
    }
}

std::string OtherType(const std::string& description)
{
    static const char* const kShort[][2] = {
        {"Multi-protocol Encapsulation Type A", "DSM-CC A"},
        {"DSM-CC U-N Messages Type B", "DSM-CC B"},
        {"Stream Descriptors Type C", "DSM-CC C"},
        {"DSM-CC Sections(any type, including private data)", "DSM-CC D"},
        {"DSM-CC Synchronized Download Protocol", "Sync Download"},
        {"SCTE Standard Subtitle", "SCTE Subtitle"},
        {"SCTE Isochronous Data/Reserved", "SCTE Isochronous"},
    };
    for (const auto& pair : kShort)
        if (description == pair[0])
            return pair[1];
    if (description.compare(0, 7, "ITU-T R") == 0 && description.find("H.222") != std::string::npos)
        return "H 222";
    return description;
}

}  // namespace CaText
