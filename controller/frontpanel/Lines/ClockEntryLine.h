// Base of the date and time lines: one part ("MM/DD/YYYY" or "hh:mm:ss") of the unit's
// clock text "MM/DD/YYYY hh:mm:ss", edited digit by digit with the separators stepped over.
// The line keeps whatever surrounds its part in the controller's text and writes it back
// unchanged, so the date line leaves the time alone and the other way round.
//
//   SetValue(text)   the part alone, or a longer text that starts (or else ends) with it;
//                    false and no change when neither is the case
//   GetValue()       the controller's text with the part replaced by the line's
//   GetPart()        the part alone, as shown
//
// ENTER refuses a part that is not a real date or time (WasRefused()); nothing is written
// then. Before writing, a bound line reads the object again, so that the other part of a
// running clock is written as it is now rather than as it was when editing began.
#pragma once

#include <string>

#include "Lines/EntryLine.h"

class CClockEntryLine : public CEntryLine {
public:
    bool SetValue(const char* value) override;
    bool SetValue(const std::string& value) override { return SetValue(value.c_str()); }
    std::string GetValue() override;
    const std::string& GetPart() const { return m_strPart; }

protected:
    // pattern: "9" for a digit, anything else a fixed separator; initial: a valid part.
    CClockEntryLine(const std::string& pattern, const std::string& initial);
    virtual bool Valid(const std::string& part) const = 0;
    // The number of the digits at [at, at + count) of a part.
    static int Field(const std::string& part, size_t at, size_t count);

    Template_t EditTemplate() override;
    bool Accept(const std::string& edited) override;
    std::string DisplayText() override { return m_strPart; }

private:
    bool Fits(const std::string& text) const;
    bool Split(const std::string& text, std::string* pBefore, std::string* pPart, std::string* pAfter) const;

    std::string m_strPattern;
    std::string m_strPart;
    std::string m_strBefore;
    std::string m_strAfter;
};
