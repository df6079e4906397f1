// A time of day, "hh:mm:ss" on the 24-hour clock, edited digit by digit (see
// CClockEntryLine for the interface).
//
//   CGenericTimeLine()   starts at "00:00:00"
#pragma once

#include "Lines/ClockEntryLine.h"

class CGenericTimeLine : public CClockEntryLine {
public:
    CGenericTimeLine();

protected:
    bool Valid(const std::string& part) const override;
};
