// The voltage and temperature pages on the full unit, as the panel shows them.
#include <gtest/gtest.h>

#include "Menus/MenuUnitTemperature.h"
#include "Menus/MenuVoltageLevelStatus.h"
#include "PanelTest.h"

namespace {

class AdminStatusPagesTest : public PanelTest::CPanelTest {
protected:
    void SetUp() override { Client(); }
};

}  // namespace

TEST_F(AdminStatusPagesTest, VoltageLevels)
{
    CMenuVoltageLevelStatus* pPage = new CMenuVoltageLevelStatus();
    Add(pPage, "Voltage Levels");
    Show("Voltage Levels");
    EXPECT_PANEL("admin_voltage_levels");
    EXPECT_EQ(pPage->HandleKey(KeyPress_t{KEY_EXIT, KEY_STATE_DOWN}), "Admin");
}

TEST_F(AdminStatusPagesTest, UnitTemperatureHasOneRowPerSensor)
{
    Add(new CMenuUnitTemperature(), "Unit Temperature");
    Show("Unit Temperature");
    EXPECT_PANEL("admin_unit_temperature");
}
