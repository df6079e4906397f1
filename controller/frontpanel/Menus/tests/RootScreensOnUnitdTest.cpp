// The home page, the active errors and the lock screen against a real unitd: values the
// receiver's hardware changes arrive as change events, and the write journal shows what the
// panel sent.
#include <gtest/gtest.h>

#include "TreeOnUnitd.h"

namespace {

class RootScreensOnUnitdTest : public MenusTest::CTreeOnUnitd {};

TEST_F(RootScreensOnUnitdTest, HomePageAndErrorsFollowTheUnit)
{
    Show("Home");
    Force("selectedserviceServiceName", ".1.1", "A Service Name Of Exactly Forty Letters.");
    EXPECT_TRUE(RowReads(4, "Service: A Service Name Of Exa"));
    Force("selectedserviceServiceName", ".1.1", "");
    Force("selectedserviceServiceNum", ".1.1", 0);
    EXPECT_TRUE(RowReads(4, ""));
    Force("inputCurrentActiveInputId", ".1.1", 801);
    EXPECT_TRUE(RowReads(2, "Input: Turbo PSK"));
    EXPECT_TRUE(RowReads(1, "Bitrate: 46.532 Mbps"));

    // Every alarm cleared: the list says so on the next entry.
    for (const char* alarm : {".1", ".2", ".3", ".8"})
        Force("alarmState", alarm, 1);
    Show("Active Errors");
    EXPECT_PANEL("active_errors_none");
}

TEST_F(RootScreensOnUnitdTest, LockScreenWritesOnlyWhatTheUserConfirms)
{
    Show("Lock/Unlock Front Panel");
    // "None" writes nothing.
    Press({KEY_ENTER, KEY_ENTER});
    EXPECT_TRUE(PanelWrites("frontpanelLockMode").empty());

    // "Lock Panel": one write, and the message stays up for its whole pause.
    Press({KEY_ENTER, KEY_UP});
    const auto start = std::chrono::steady_clock::now();
    Press(KEY_ENTER);
    const auto took = std::chrono::steady_clock::now() - start;
    EXPECT_GE(std::chrono::duration_cast<std::chrono::milliseconds>(took).count(), 1500);
    EXPECT_EQ(PanelWrites("frontpanelLockMode"), std::vector<std::string>{"2"});

    // A wrong password writes nothing.
    Press({KEY_ENTER, KEY_UP, KEY_ENTER});
    EXPECT_EQ(PanelWrites("frontpanelLockMode"), std::vector<std::string>{"2"});
    EXPECT_TRUE(PanelWrites("frontpanelPassword").empty());
    EXPECT_NE(Panel().find("Unlock Panel"), std::string::npos) << Panel();
}

}  // namespace
