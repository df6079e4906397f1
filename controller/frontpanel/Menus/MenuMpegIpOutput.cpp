#include "Menus/MenuMpegIpOutput.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

CMenuMpegIpOutput::CMenuMpegIpOutput(int card)
    : CConfigTableScreen(OutputsMpegIp(card), kTransportStreamOutputs,
                         {
                             Target("Stream 1 Output Cfg", OutputsMpegIpSettings(card).c_str()),
                             Target("Stream 1 Output Status", OutputsMpegIpStatus(card).c_str()),
                         })
{
}
