#include "Menus/MenuAdmin.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

CMenuAdmin::CMenuAdmin(const Capabilities_t& caps)
    : CConfigTableScreen(
          kAdmin, kMainMenu,
          {
              Target("Unit Networking", kUnitNetworking),
              Target("System Time", kSystemTime),
              Target("About System", kAboutSystem),
              Target("Syslog Configuration", kSyslogConfiguration),
              Target("Voltage Levels", kVoltageLevels),
              Target("Unit Temperature", kUnitTemperature),
              Target("Profile Status", kProfileStatus),
              Target("Lock Front Panel", kPanelLock)
                  .LabelBy("frontpanelLockMode", ".0", {{"2", "Unlock Front Panel"}, {"3", "Unlock Front Panel"}}),
              Target("In-Band Control", kInbandControl).When(caps.inbandControl),
              Target("Listening Services", kListeningServices),
              Target("Reset All Settings", kResetAllSettings),
              Target("MPEG/IP Networking", kMpegIpNetworking).When(!caps.mpegIpRcvSlots.empty()),
              OnOff("Enable UID: ", "unitUidLed", ".0"),
          })
{
}
