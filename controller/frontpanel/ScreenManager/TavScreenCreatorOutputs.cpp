// Baseband outputs (with the decoder) and transport-stream outputs.
#include "ScreenManager/TavScreenCreator.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

void CTavScreenCreator::BuildBasebandOutputs() {}

void CTavScreenCreator::BuildTransportStreamOutputs() {}
