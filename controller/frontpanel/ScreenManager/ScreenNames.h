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

// Conditional access
constexpr const char* kBissConfig = "BISS Config";
constexpr const char* kBissServiceSettings = "Biss Service Settings";
constexpr const char* kBissSelectedServicesStatus = "BISS Selected Services Status";
constexpr const char* kBissAddServices = "BISS Add Services";
constexpr const char* kDvbCi = "DVB-CI";

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

// Conditional access, per CAM slot (0 top, 1 bottom, in the order the unit reports them).
inline std::string CaDvbCiSlot(int slot)
{
    return slot == 0 ? "DVB-CI(Top)" : "DVB-CI(Btm)";
}
inline std::string CaDvbCiStatus(int slot)
{
    return CaDvbCiSlot(slot) + " Status";
}
inline std::string CaDvbCiConfigPids(int slot)
{
    return CaDvbCiSlot(slot) + " Config PIDs";
}
inline std::string CaDvbCiConfigSrvs(int slot)
{
    return CaDvbCiSlot(slot) + " Config Srvs";
}
// The save question of a staged configuration screen.
inline std::string CaSaveChanges(const std::string& screen)
{
    return screen + " Save";
}

}  // namespace ScreenName
