// An address of a list that the user can change or remove in place (filter addresses,
// receivers). It edits like CGenericIpLine, with one more cursor stop after the last digit
// that shows "Remove": ENTER there asks for the address's removal instead of writing it.
//
//   CEditRemoveIpLine()
//   SetRemoveHandler(f)   called with the line when the user chooses "Remove"
//   IsRemoveRequested()   true from that choice until the next edit starts
//
// The rest of the interface is CGenericIpLine's.
#pragma once

#include <functional>

#include "Lines/GenericIpLine.h"

class CEditRemoveIpLine : public CGenericIpLine {
public:
    CEditRemoveIpLine();

    void SetRemoveHandler(std::function<void(CEditRemoveIpLine&)> handler) { m_onRemove = handler; }
    bool IsRemoveRequested() const { return m_bRemoveRequested; }

    bool HandleKey(const KeyPress_t& key) override;
    void ShowCursor(int row) override;

protected:
    Template_t EditTemplate() override;

private:
    bool OnRemoveStop() const;

    bool m_bRemoveRequested;
    std::function<void(CEditRemoveIpLine&)> m_onRemove;
};
