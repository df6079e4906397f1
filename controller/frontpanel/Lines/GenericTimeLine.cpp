#include "Lines/GenericTimeLine.h"

CGenericTimeLine::CGenericTimeLine() : CClockEntryLine("99:99:99", "00:00:00") {}

bool CGenericTimeLine::Valid(const std::string& part) const
{
    return Field(part, 0, 2) <= 23 && Field(part, 3, 2) <= 59 && Field(part, 6, 2) <= 59;
}
