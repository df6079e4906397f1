// The two-way choice "Edit" / "Remove" of a row-edit screen (see CTwoWayLine for the
// interface).
//
//   CGenericEditRemoveLine()
#pragma once

#include "Lines/TwoWayLine.h"

class CGenericEditRemoveLine : public CTwoWayLine {
public:
    CGenericEditRemoveLine();
};
