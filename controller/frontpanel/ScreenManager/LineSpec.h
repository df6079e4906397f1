// The declarative description of a screen's lines: one CLineSpec per row, written as a
// table that reads like the screen's catalogue entry.
//
//     const CLineSpec kLines[] = {
//         Text("12V: ", "sensor12V", ".0", "%.2f"),
//         List("DHCP: ", "tcpipIpMode", ".0", {"Enabled", "Disabled"}),
//         Entry("Host Name: ", "tcpipHostname", ".0", CharSet::HostName, 20),
//         Number("Frequency: ", "dvbs2Freq", kCard, 5, 3, 950.0, 2150.0).Unit(" MHz"),
//         Text("Sensor #: ", "tempReading", kEach, "%.2f"),
//         Target("Input Select Status", "Input Select Status"),
//     };
//
// Instances: a fixed text (".0", ".1.2"), kCard (the screen's own instance, given to the
// table screen), or kEach (one row per instance the controller lists; a "#" in the label
// becomes the instance's last number). See docs/screens.md.
#pragma once

#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "Qb/Types.h"

class CGenericLine;
namespace Zor {
class CParam;
}

// The screen's own instance (the table screen's card), resolved when the lines are made.
extern const char* const kCard;
// One row per instance of the object.
extern const char* const kEach;

// What UP and DOWN step through in a text entry (the text line's character sets).
enum class CharSet {
    Alnum = 0,      // letters and digits
    Name = 2,       // letters, digits, "-", "_"
    HostName = 3,   // letters, digits, "-", ".", "_"
    Printable = 4,  // space to "~"
    LowerName = 5,  // "a".."z", "0".."9", "_"
    Letters = 6,    // letters and "_"
};

class CLineSpec {
public:
    enum Kind_e {
        KIND_TEXT,     // a value shown as text, never edited
        KIND_LIST,     // a choice among texts
        KIND_ENTRY,    // a typed text
        KIND_NUMBER,   // a typed decimal number
        KIND_HEX,      // a typed hexadecimal number
        KIND_ADDRESS,  // a typed IPv4 address
        KIND_KEY,      // a typed descrambling key
        KIND_TARGET,   // a label that opens a screen
        KIND_HEADING,  // a label the selection steps over
    };

    CLineSpec(Kind_e kind, const char* label, const char* object, const char* instance);

    // --- Modifiers, chained on the row ---
    // Text after the value (" MHz").
    CLineSpec& Unit(const char* unit);
    // printf-style pattern of one numeric conversion ("%.2f", "%2.3f", "%1.1E", "%d"), for
    // shown values; a value that is not a number is shown as it is.
    CLineSpec& Format(const char* format);
    // The value is multiplied by this before formatting (bits/s to Mbit/s: 1e-6).
    CLineSpec& Scale(double factor);
    // Shown texts for controller values ({"1", "Locked"}), matched before any format.
    CLineSpec& Map(std::initializer_list<std::pair<const char*, const char*>> texts);
    // Shown when the value is absent or empty.
    CLineSpec& Missing(const char* text);
    // Shown instead of a value as wide as this text or wider: ">99999999" lets values of up
    // to eight characters through.
    CLineSpec& Clip(const char* text);
    // Shown but never edited, whatever the panel lock mode.
    CLineSpec& ReadOnly();
    // ENTER on the row opens this screen.
    CLineSpec& Opens(const char* screen);
    // One more list entry, with its own controller text (an input's id for its label).
    CLineSpec& Choice(const char* text, const char* value);

    // The shown text of a value under this row's map, format, scale, clip and unit.
    std::string Shown(const Zor::CParam& value) const;
    // The row's line, not yet placed. `editable` false (status pages) makes every value row
    // a text row.
    CGenericLine* MakeLine(bool editable) const;
    // The label of the row for one instance (kEach rows put its last number for "#").
    std::string LabelFor(const std::string& instance) const;
    // True when the row shows the value as text (filled from the values cache).
    bool IsText(bool editable) const;

    Kind_e kind;
    std::string label;
    std::string object;
    std::string instance;
    std::vector<std::pair<std::string, std::string>> entries;  // list: shown text, controller text
    std::vector<std::pair<std::string, std::string>> map;      // controller text -> shown text
    std::string unit;
    std::string format;
    std::string missing;
    std::string clip;
    std::string target;
    double scale;
    bool readOnly;
    int charSet;
    int width;  // entry length, number width, hex or key digits
    int decimals;
    double min;
    double max;
};

// --- The rows ---
CLineSpec Text(const char* label, const char* object, const char* instance, const char* format = nullptr);
CLineSpec List(const char* label, const char* object, const char* instance,
               std::initializer_list<const char*> texts);
CLineSpec Entry(const char* label, const char* object, const char* instance, CharSet set, int maxLength);
// A decimal number of `width` characters with `decimals` after the point, limited to
// [min, max] (both 0: no limits).
CLineSpec Number(const char* label, const char* object, const char* instance, int width, int decimals,
                 double min, double max);
CLineSpec Hex(const char* label, const char* object, const char* instance, int digits, Qb::uint32 max = 0);
CLineSpec Address(const char* label, const char* object, const char* instance);
CLineSpec Key(const char* label, const char* object, const char* instance, int digits);
CLineSpec Target(const char* label, const char* screen);
CLineSpec Heading(const char* label);

// Formats one number with a checked one-conversion pattern; false (and nothing written)
// when the pattern is not one numeric conversion or the text is not a number.
bool FormatNumber(const std::string& format, const std::string& text, double scale, std::string* pOut);
