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
constexpr const char* kBissConfig = "BISS Config";
constexpr const char* kBissServiceSettings = "Biss Service Settings";
constexpr const char* kBissSelectedServicesStatus = "BISS Selected Services Status";
constexpr const char* kBissAddServices = "BISS Add Services";
constexpr const char* kDvbCi = "DVB-CI";

// Decoding and processing
constexpr const char* kServiceSelectSettings = "Service Select Settings";
constexpr const char* kServiceSelectStatus = "Service Select Status";
constexpr const char* kPrimaryServiceLock = "Primary Service Lock";
constexpr const char* kBackupServiceLock = "Backup Service Lock";
constexpr const char* kPrimaryPidLock = "Primary Service PID Lock";
constexpr const char* kBackupPidLock = "Backup Service PID Lock";
constexpr const char* kVideoStatus = "Video";
constexpr const char* kAncStatus = "ANC Status";
constexpr const char* kScte35Status = "SCTE35 Status";
constexpr const char* kAudioStatus = "Audio";
constexpr const char* kTimecode = "Timecode Configuration";
constexpr const char* kAudioProcessing = "Audio Processing";
constexpr const char* kOverlaySettings = "Overlay Settings";
constexpr const char* kScte104Config = "SCTE104 Configuration";
constexpr const char* kScte35Config = "SCTE35 Configuration";
constexpr const char* kScte35GeneralConfig = "General Configuration";
constexpr const char* kEsamConfig = "ESAM Configuration";
constexpr const char* kRelayConfig = "Relay Configuration";
constexpr const char* kGenlock = "Genlock Config";
constexpr const char* kGenlockSettings = "Genlock Configuration";
constexpr const char* kGenlockStatus = "Genlock Status";
constexpr const char* kSourceIdStatus = "Source ID";
constexpr const char* kSourceIdConfig = "Source ID Config";

// Outputs
constexpr const char* kDigitalAudio = "Digital Audio";
constexpr const char* kAnalogAudio = "Analog Audio";
constexpr const char* kAsiOutputSettings = "ASI Output Settings";

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

// Decoding and processing: per video output path (1 primary, 2 secondary; the primary
// keeps the plain name), per decoded audio service and per cue trigger.
inline std::string DecodingPathName(int path, const std::string& name)
{
    return path == 2 ? "Sec. " + name : name;
}
inline std::string DecodingVideoSettings(int path)
{
    return DecodingPathName(path, "Video Settings");
}
inline std::string DecodingAspect4x3(int path)
{
    return DecodingPathName(path, "4x3 Output Aspect Ratio");
}
inline std::string DecodingAspect16x9(int path)
{
    return DecodingPathName(path, "16x9 Output Aspect Ratio");
}
inline std::string DecodingAudioProcessingConfig(int audio)
{
    return "Audio " + std::to_string(audio) + " Processing Config";
}
inline std::string DecodingTrigger(int trigger)
{
    return "Trigger " + std::to_string(trigger);
}
// Outputs: the pages of an output path (1 primary, 2 secondary) carry its short name.
inline std::string OutputsPath(int path)
{
    return path == 1 ? "Pri." : "Sec.";
}
inline std::string OutputsSdi(int path)
{
    return OutputsPath(path) + " SDI Output";
}
inline std::string OutputsHdSdi(int path)
{
    return OutputsPath(path) + " HD Output Settings";
}
inline std::string OutputsHdAnc(int path)
{
    return OutputsPath(path) + " HD ANC Output Settings";
}
inline std::string OutputsSdSdi(int path)
{
    return OutputsPath(path) + " SD Output";
}
inline std::string OutputsSdAnc(int path)
{
    return OutputsPath(path) + " SD ANC Output Settings";
}
inline std::string OutputsSdVbi(int path)
{
    return OutputsPath(path) + " SD VBI Output Settings";
}
inline std::string OutputsAudioEmbed(int path)
{
    return OutputsPath(path) + " Audio Output";
}
inline std::string OutputsComposite(int path)
{
    return OutputsPath(path) + " Composite";
}
inline std::string OutputsCompositeGeneral(int path)
{
    return OutputsPath(path) + " Composite General Settings";
}
inline std::string OutputsCompositeVbi(int path)
{
    return OutputsPath(path) + " Composite VBI Settings";
}
// Outputs: per analogue audio output (from 1).
inline std::string OutputsAnalog(int output)
{
    return "Analog " + std::to_string(output) + " Settings";
}
// Outputs: per MPEG/IP transmit card (numbered from 1 in slot order); a card transmits one
// stream.
inline std::string OutputsMpegIp(int card)
{
    return "MPEG/IP " + std::to_string(card) + " Output";
}
inline std::string OutputsMpegIpSettings(int card)
{
    return OutputsMpegIp(card) + " Cfg";
}
inline std::string OutputsMpegIpStatus(int card)
{
    return OutputsMpegIp(card) + " Status";
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
