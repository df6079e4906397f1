#include "Menus/MenuSystemTime.h"

#include <cstdio>
#include <cstdlib>

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

namespace {

// The ninth month is spelt as the unit has always shown it: deliberate, keep it.
const char* const kMonths[] = {"January", "February", "March",     "April",   "May",      "June",
                               "July",    "August",   "Septempber", "October", "November", "December"};

// "MM/DD/YYYY hh:mm:ss" -> "November 23, 2026"; the text as it is when it is not a date.
std::string DateText(const CRowValues& v)
{
    const std::string now = v("datetimeNow");
    int month = 0, day = 0, year = 0;
    if (std::sscanf(now.c_str(), "%2d/%2d/%4d", &month, &day, &year) != 3 || month < 1 || month > 12)
        return now.substr(0, 10);
    char text[32];
    std::snprintf(text, sizeof(text), "%s %02i, %04i", kMonths[month - 1], day, year);
    return text;
}

std::string TimeText(const CRowValues& v)
{
    const std::string now = v("datetimeNow");
    return now.size() > 11 ? now.substr(11) : std::string();
}

const CRow kLines[] = {
    Show("Date: ", ".0", {"datetimeNow"}, DateText),
    Show("Time: ", ".0", {"datetimeNow"}, TimeText),
    Text("Set By: ", "datetimeUpdateMode", ".0").Opens(kUpdateMethod),
    Text("NTP Server: ", "datetimeNtpServer", ".0"),
    Target("Enter To Configure", kConfigureDateTime),
};

}  // namespace

CMenuSystemTime::CMenuSystemTime() : CStatusTableScreen(kSystemTime, kAdmin, kLines) {}
