// A confirmation screen: its one line takes every key (LEFT/RIGHT choose without ENTER);
// the style never moves the selection and never navigates on ENTER.
#pragma once

#include "ScreenManager/MenuStyleBasic.h"

class CMenuStyleYesNo : public CMenuStyleBasic {
public:
    CMenuStyleYesNo();
    ~CMenuStyleYesNo() override;

    void Redraw(int mode) override;
    std::string HandleKey(const KeyPress_t& key) override;
    void Clear(int a, int b) override;
    void SetLineLabel(const char* text, int position) override;
    void SetDisplay(CDisplay* pDisplay) override;

protected:
    void DrawMarker() override;
};
