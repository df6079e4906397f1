// The two-way choice "Keep" / "Remove" of a row-edit screen (see CTwoWayLine for the
// interface).
//
//   CGenericKeepRemoveLine()
#pragma once

#include "Lines/TwoWayLine.h"

class CGenericKeepRemoveLine : public CTwoWayLine {
public:
    CGenericKeepRemoveLine();
};
