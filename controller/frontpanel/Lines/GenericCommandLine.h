// A row that does one thing when the user presses ENTER on it: writes a fixed value to its
// object ("Reset Counters", "Send IGMP Report", row status 6 for "Remove"). It never edits
// and shows no value.
//
//   CGenericCommandLine(value)   the text written on ENTER
//   SetCommitHandler(f)          called after the write, with its result
#pragma once

#include <functional>
#include <string>

#include "Lines/GenericDisplayLine.h"

class CGenericCommandLine : public CGenericDisplayLine {
public:
    explicit CGenericCommandLine(const std::string& value);

    bool HandleKey(const KeyPress_t& key) override;
    // The object is only written: its value is never shown.
    void RefreshValue() override {}
    bool SetValue(const char*) override { return true; }
    bool SetValue(const std::string&) override { return true; }
    void SetCommitHandler(std::function<void(bool written)> handler) { m_onCommit = handler; }
    const std::string& GetCommand() const { return m_strCommand; }

private:
    std::string m_strCommand;
    std::function<void(bool)> m_onCommit;
};
