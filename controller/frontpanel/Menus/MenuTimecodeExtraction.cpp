#include "Menus/MenuTimecodeExtraction.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

namespace {

const CRow kLines[] = {
    List("Source: ", "timecodeSource", ".1.1", {"Video ES", "SCTE 127"}),
};

}  // namespace

CMenuTimecodeExtraction::CMenuTimecodeExtraction() : CConfigTableScreen(kTimecode, kDecoding, kLines) {}
