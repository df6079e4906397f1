// Decoding and processing, on units with the decoder.
#include "ScreenManager/TavScreenCreator.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

void CTavScreenCreator::BuildAudioProcessing() {}

void CTavScreenCreator::BuildDecoding() {}

void CTavScreenCreator::BuildProcessing() {}
