#include "Lines/GenericDateLine.h"

CGenericDateLine::CGenericDateLine() : CClockEntryLine("99/99/9999", "01/01/2000") {}

bool CGenericDateLine::Valid(const std::string& part) const
{
    int month = Field(part, 0, 2);
    int day = Field(part, 3, 2);
    int year = Field(part, 6, 4);
    if (year < 1970 || year > 2037 || month < 1 || month > 12 || day < 1)
        return false;
    static const int kDays[12] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    int days = kDays[month - 1] + (month == 2 && leap ? 1 : 0);
    return day <= days;
}
