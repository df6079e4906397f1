#include "Menus/MenuGenlockStatus.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

CMenuGenlockStatus::CMenuGenlockStatus(const Capabilities_t& caps)
    : CStatusTableScreen(
          kGenlockStatus, kGenlock,
          {
              // The HD formats are wider than the row after the label: the value has its own.
              Heading("External Format: "),
              Text("  ", "genlockExtRefFormat", ".1.1").Missing("Unknown"),
              Text("Color Reference: ", "genlockColorRefSignal", ".1.1"),
              Text("Out Format Lock: ", "videooutputgenlockFormatLocked", ".1.1").When(!caps.secondVideo),
              Heading("Out Format Lock: ").When(caps.secondVideo),
              Text("  Primary: ", "videooutputgenlockFormatLocked", ".1.1").When(caps.secondVideo),
              Text("  Secondary: ", "videooutputgenlockFormatLocked", ".1.2").When(caps.secondVideo),
          },
          "Menu Style Long List")
{
}
