// "Configure Network": the unit's network settings, edited in the controller's staging
// objects ("tcpipNew...") and put in force together by "Apply" ("tcpipApplyNew"). Rows
// being applied show " (Busy)". Leaving with staged edits that were not applied says so
// and puts the staging objects back to the values in force, so a later apply cannot
// bring forgotten edits in.
#pragma once

#include "ScreenManager/TableScreen.h"

class CMenuConfigureNetwork : public CConfigTableScreen {
public:
    CMenuConfigureNetwork();

    std::string HandleKey(const KeyPress_t& key) override;
};
