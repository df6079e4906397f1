// A decimal number with a fixed number of digits and decimals (intervals, frequencies,
// offsets), shown and written zero-padded through "%%0%d.%df".
//
//   CLineNumber(int width, int decimals = 0, double min = 0, double max = 0)
//                    width counts every character, the point and a sign included; when
//                    min is not below max there are no limits
//   SetValue(text)   a decimal number; false and no change for anything else
//   GetValue()       the formatted committed number ("%05.1f" of 12.5 is "012.5"); the
//                    edited digits while editing
//   GetNumber()      the committed number
//
// While editing, digits step 0..9 and the point stays where it is; when min is negative
// the first position also offers "-". A value read from the controller is shown as it is,
// even outside the limits; a committed value outside them becomes the nearest limit.
#pragma once

#include "Lines/EntryLine.h"

class CLineNumber : public CEntryLine {
public:
    CLineNumber(int width, int decimals = 0, double min = 0.0, double max = 0.0);

    double GetNumber() const { return m_dValue; }

    bool SetValue(const char* value) override;
    bool SetValue(const std::string& value) override { return SetValue(value.c_str()); }
    std::string GetValue() override { return m_bEditing ? Editor().Text() : Format(m_dValue); }

protected:
    Template_t EditTemplate() override;
    bool Accept(const std::string& edited) override;

private:
    std::string Format(double value) const;
    double Limited(double value) const;
    static bool Parse(const std::string& text, double* pValue);
    static const CCharSet& SignOrDigit();

    int m_iWidth;
    int m_iDecimals;
    double m_dMin;
    double m_dMax;
    double m_dValue;
};
