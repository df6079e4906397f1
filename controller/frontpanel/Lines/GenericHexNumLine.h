// A number entered and shown as zero-padded upper-case hexadecimal digits (PIDs, SSRC,
// event identifiers).
//
//   CGenericHexNumLine(int digits = 4, Qb::uint32 max = 0)
//                      digits 1 to 8; max 0 means every value the digits can hold
//   SetDecimalTransfer(on)
//                      the controller keeps the number as a decimal integer: reads parse
//                      decimal and GetValue answers decimal (the panel still shows hex)
//   SetValue(text)     hex digits with or without "0x" (decimal with the setting above);
//                      false and no change for anything else
//   GetValue()         the digits ("%%0%dX" of the digit count), or decimal as above; the
//                      edited digits while editing
//   GetNumber()        the committed number
//
// Every position steps 0..9, A..F. A committed number above max becomes max.
#pragma once

#include "Lines/EntryLine.h"
#include "Qb/Types.h"

class CGenericHexNumLine : public CEntryLine {
public:
    explicit CGenericHexNumLine(int digits = 4, Qb::uint32 max = 0);

    void SetDecimalTransfer(bool on) { m_bDecimal = on; }
    Qb::uint32 GetNumber() const { return m_uValue; }

    bool SetValue(const char* value) override;
    bool SetValue(const std::string& value) override { return SetValue(value.c_str()); }
    std::string GetValue() override;

protected:
    Template_t EditTemplate() override;
    bool Accept(const std::string& edited) override;
    std::string DisplayText() override { return Hex(m_uValue); }

private:
    std::string Hex(Qb::uint32 value) const;
    static bool ParseHex(std::string text, Qb::uint32* pValue);

    int m_iDigits;
    Qb::uint32 m_uMax;
    Qb::uint32 m_uValue;
    bool m_bDecimal;
};
