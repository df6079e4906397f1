// The names under which screens are added to the screen manager: every key handler names
// the next screen by one of these, so a typo is a compile error rather than a dead end.
// Screens made once per card or port are named by the functions below.
#pragma once

#include <string>

namespace ScreenName {

// The root
constexpr const char* kHome = "Home";
constexpr const char* kMainMenu = "Home Main";
constexpr const char* kActiveErrors = "Active Errors";
constexpr const char* kNoScreen = "No Screen";

// The main menu's sections
constexpr const char* kInputs = "Input Settings";
constexpr const char* kT2MiStatus = "T2-MI Status";
constexpr const char* kT2MiConfig = "T2-MI Configuration";
constexpr const char* kConditionalAccess = "Conditional Access";
constexpr const char* kDecoding = "Decoding";
constexpr const char* kProcessing = "Processing";
constexpr const char* kBasebandOutputs = "Baseband Outputs";
constexpr const char* kTransportStreamOutputs = "Transport Stream Outputs";
constexpr const char* kAdmin = "Admin";

// Administration
constexpr const char* kUnitNetworking = "Unit Networking";
constexpr const char* kConfigureNetwork = "Configure Network";
constexpr const char* kSystemTime = "System Time";
constexpr const char* kConfigureDateTime = "Configure Date/Time";
constexpr const char* kUpdateMethod = "Update Method";
constexpr const char* kAboutSystem = "About System";
constexpr const char* kAboutUnit = "About Unit";
constexpr const char* kOptions = "Options";
constexpr const char* kSelectSlot = "Select Slot for Hardware Details";
constexpr const char* kTopSlot = "Top Slot";
constexpr const char* kBottomSlot = "Bottom Slot";
constexpr const char* kSyslogConfiguration = "Syslog Configuration";
constexpr const char* kMpegIpNetworking = "MPEG/IP Networking";
constexpr const char* kInbandControl = "In-Band Control";
constexpr const char* kConfigureInband = "Configure In-Band";
constexpr const char* kListeningServices = "Listening Services";
constexpr const char* kListeningServicesSettings = "Listening Services Settings";
constexpr const char* kResetAllSettings = "Reset All Settings";
constexpr const char* kUnitTemperature = "Unit Temperature";
constexpr const char* kVoltageLevels = "Voltage Levels";
constexpr const char* kPanelLock = "Lock/Unlock Front Panel";
constexpr const char* kChangePanelPassword = "Change Panel Password";
constexpr const char* kProfileStatus = "Profile Status";
constexpr const char* kProfileConfig = "Profile Config";

// Inputs and T2-MI
constexpr const char* kInputSelectConfig = "Input Select Config";
constexpr const char* kInputSelectStatus = "Input Select Status";
constexpr const char* kAsiInputStatus = "ASI Input Status";
constexpr const char* kAsiInputConfig = "ASI Input Configuration";

// Conditional access

// Decoding and processing

// Outputs

// Per MPEG/IP card (numbered from 1 in slot order) and port.
inline std::string MpegIpPort(int card, int port)
{
    return "MPEG/IP " + std::to_string(card) + " Port " + std::to_string(port);
}
inline std::string MpegIpPortStatus(int card, int port)
{
    return MpegIpPort(card, port) + " Status";
}
inline std::string ConfigureMpegIpCard(int card)
{
    return "Configure MPEG/IP Card " + std::to_string(card);
}

// Inputs, per receiver card (numbered from 1 in slot order) and MPEG/IP stream.
inline std::string InputsDvbS2(int card)
{
    return "DVB-S2 " + std::to_string(card);
}
inline std::string InputsDvbS2Status(int card)
{
    return InputsDvbS2(card) + " Status";
}
inline std::string InputsDvbS2SelectPort(int card)
{
    return InputsDvbS2(card) + " Select Port";
}
inline std::string InputsTurboPsk(int card)
{
    return "Turbo PSK " + std::to_string(card);
}
inline std::string InputsTurboPskStatus(int card)
{
    return InputsTurboPsk(card) + " Status";
}
inline std::string InputsVsb(int card)
{
    return "8VSB/QAM " + std::to_string(card);
}
inline std::string InputsVsbStatus(int card)
{
    return InputsVsb(card) + " Status";
}
inline std::string InputsMpegIp(int card)
{
    return "MPEG/IP " + std::to_string(card);
}
// "MPEG/IP 1-2": the second stream of the first card.
inline std::string InputsMpegIpStream(int card, int stream)
{
    return InputsMpegIp(card) + "-" + std::to_string(stream);
}
inline std::string InputsMpegIpStreamStatus(int card, int stream)
{
    return InputsMpegIpStream(card, stream) + " Status";
}
inline std::string InputsIgmp(int card, int stream)
{
    return "IGMP " + std::to_string(card) + "-" + std::to_string(stream) + " Config";
}

}  // namespace ScreenName
