#include "Menus/MenuOutput.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

CMenuOutput::CMenuOutput(const Capabilities_t& caps)
    : CConfigTableScreen(kBasebandOutputs, kMainMenu,
                         {
                             Target("Primary SDI Output", OutputsSdi(1).c_str()),
                             Target("Secondary SDI Output", OutputsSdi(2).c_str()).When(caps.secondVideo),
                             Target("Primary Composite", OutputsComposite(1).c_str())
                                 .HiddenWhen("compositeVideoLossMode", ".1.1", {""}),
                             Target("Secondary Composite", OutputsComposite(2).c_str())
                                 .When(caps.secondVideo)
                                 .HiddenWhen("compositeVideoLossMode", ".1.2", {""}),
                             Target("Digital Audio", kDigitalAudio).When(caps.audioDigital > 0),
                             Target("Analog Audio", kAnalogAudio).When(caps.audioAnalog > 0),
                         })
{
}
