// A two-way choice, "Yes" and "No" unless other texts are given (see CTwoWayLine for the
// interface).
//
//   CGenericYesNoLine(const std::string& first = "Yes", const std::string& second = "No")
#pragma once

#include "Lines/TwoWayLine.h"

class CGenericYesNoLine : public CTwoWayLine {
public:
    explicit CGenericYesNoLine(const std::string& first = "Yes", const std::string& second = "No");
};
