// "Active Errors": one row per raised alarm (its name and location, slid sideways with
// LEFT and RIGHT when wider than the panel), or "No Active Errors". Read afresh on every
// entry.
#pragma once

#include "ScreenManager/Screen.h"

class CMenuActiveErrors : public CScreen {
public:
    CMenuActiveErrors();

    void Enter() override;

    bool HasNoErrors() const { return m_bNoErrors; }

private:
    void BuildLines();

    bool m_bNoErrors;
};
