// A date, "MM/DD/YYYY", edited digit by digit (see CClockEntryLine for the interface).
//
//   CGenericDateLine()   starts at "01/01/2000"
//
// Valid dates are real calendar days (leap years counted) of the years 1970 to 2037, the
// range the unit's 32-bit clock can hold.
#pragma once

#include "Lines/ClockEntryLine.h"

class CGenericDateLine : public CClockEntryLine {
public:
    CGenericDateLine();

protected:
    bool Valid(const std::string& part) const override;
};
