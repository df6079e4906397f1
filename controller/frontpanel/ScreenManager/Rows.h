// The rows of a screen: one CRow per line, written as a table that reads like the screen's
// catalogue entry.
//
//     const CRow kLines[] = {
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
// becomes the instance's last number; inside a Record, the record's instance).
// docs/screens.md shows every kind and modifier with an example.
#pragma once

#include <functional>
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
// One row per instance of the object (or, inside a Record, the record's instance).
extern const char* const kEach;
// As the key of a From list: each entry is written as its instance's last number (a row
// number), for objects that name a row of another table by its index.
extern const char* const kInstanceNumber;

// What UP and DOWN step through in a text entry (the text line's character sets).
enum class CharSet {
    Alnum = 0,      // letters and digits
    Name = 2,       // letters, digits, "-", "_"
    HostName = 3,   // letters, digits, "-", ".", "_"
    Printable = 4,  // space to "~"
    LowerName = 5,  // "a".."z", "0".."9", "_"
    Letters = 6,    // letters and "_"
};

// The values a row's texts are made from: the screen's cache, with kCard and kEach
// resolved to the screen's card and the row's own instance.
class CRowValues {
public:
    CRowValues(const Zor::CParam& values, const std::string& card, const std::string& instance)
        : m_rValues(values), m_strCard(card), m_strInstance(instance)
    {
    }
    // The value's text, "" when absent; without an instance, at the row's own instance.
    std::string operator()(const std::string& object, const std::string& instance = std::string()) const;
    const Zor::CParam& Param(const std::string& object, const std::string& instance = std::string()) const;
    std::string Resolve(const std::string& instance) const;
    const std::string& Instance() const { return m_strInstance; }
    const Zor::CParam& All() const { return m_rValues; }

private:
    const Zor::CParam& m_rValues;
    const std::string& m_strCard;
    const std::string& m_strInstance;
};

class CRow {
public:
    enum Kind_e {
        KIND_TEXT,         // a value shown as text, never edited
        KIND_LIST,         // a choice among texts
        KIND_ENTRY,        // a typed text
        KIND_NUMBER,       // a typed decimal number
        KIND_HEX,          // a typed hexadecimal number
        KIND_ADDRESS,      // a typed IPv4 address
        KIND_KEY,          // a typed descrambling key
        KIND_DATE,         // the date part of a clock text
        KIND_TIME,         // the time part of a clock text
        KIND_TARGET,       // a label that opens a screen
        KIND_HEADING,      // a label the selection steps over
        KIND_COMMAND,      // ENTER writes a fixed value
        KIND_ADD_ADDRESS,  // a typed address that creates a table row keyed by it
        KIND_ADD_ROW,      // a choice that creates the next row of a table with it
        KIND_EDIT_ADDRESS, // the address a table row is keyed by, changed or removed in place
        KIND_RECORD,       // starts the rows repeated per instance of a table
        KIND_END_RECORD,   // ends them
    };
    using TextFn = std::function<std::string(const CRowValues&)>;
    using AddressCheck = std::function<bool(const std::string&)>;

    CRow(Kind_e kind, const char* label, const char* object, const char* instance);

    // --- Modifiers, chained on the row ---
    // Text after the value (" MHz").
    CRow& Unit(const char* unit);
    // printf-style pattern of one numeric conversion ("%.2f", "%2.3f", "%1.1E", "%d"), for
    // shown values; a value that is not a number is shown as it is.
    CRow& Format(const char* format);
    // The value is multiplied by this before formatting (bits/s to Mbit/s: 1e-6).
    CRow& Scale(double factor);
    // Shown texts for controller values ({"1", "Locked"}), matched before any format. On a
    // From list, also the shown texts for the texts read.
    CRow& Map(std::initializer_list<std::pair<const char*, const char*>> texts);
    // Shown when the value is absent or empty.
    CRow& Missing(const char* text);
    // Shown instead of a value as wide as this text or wider: ">99999999" lets values of up
    // to eight characters through.
    CRow& Clip(const char* text);
    // Shown but never edited, whatever the panel lock mode.
    CRow& ReadOnly();
    // The selection steps over the row (a value shown for information among entries).
    CRow& Unselectable();
    // A list drawn over two rows, the label and then the entry indented, where the label
    // leaves no room for the entry (on pages of the long-list menu style).
    CRow& TwoRows();
    // ENTER on the row opens this screen.
    CRow& Opens(const char* screen);
    // One more list entry, with its own controller text (an input's id for its label).
    CRow& Choice(const char* text, const char* value);
    // The row exists only on units where this holds (a capability of the screen creator).
    CRow& When(bool present);
    // List entries read from the controller: the texts of every instance of `object`
    // (only those under the screen's card with `cardOnly`), each exchanged as the value of
    // `key` at the same instance (the text itself without a key; kInstanceNumber: the
    // instance's last number).
    CRow& From(const char* object, const char* key = nullptr, bool cardOnly = false);
    // Keeps only the From entries whose instance of `object` reads `value` (the formats a
    // second output can show).
    CRow& FromWhere(const char* object, const char* value);
    // Shown for a value that matches no entry of the list. On a settings page it is also the
    // list's last entry, chosen for any such value; choosing it writes nothing.
    CRow& Unknown(const char* text);
    // The label chosen by another value; the row's own label when none matches.
    CRow& LabelBy(const char* object, const char* instance,
                  std::initializer_list<std::pair<const char*, const char*>> labels);
    // The row is on the panel only while `object` reads one of `values` (HiddenWhen: none
    // of them). Checked again after every change, the user's own edits included.
    CRow& ShownWhen(const char* object, const char* instance, std::initializer_list<const char*> values);
    CRow& HiddenWhen(const char* object, const char* instance, std::initializer_list<const char*> values);
    // While `object` reads `value`, the row shows `text` instead of its value ("--" while a
    // receiver is unlocked).
    CRow& Instead(const char* object, const char* instance, const char* value, const char* text);
    // While `object` reads `value`, `text` follows the value (" (Busy)").
    CRow& SuffixWhen(const char* object, const char* instance, const char* value, const char* text);
    // The shown text made by the screen from several values; `objects` are read with it.
    CRow& Compute(std::initializer_list<const char*> objects, TextFn text);
    // Records: shown when there is no record. Add and edit address rows: a screen's own rule
    // for the address (false refuses it with the two message lines and writes nothing).
    CRow& Empty(const char* text);
    CRow& Check(AddressCheck check, const char* line1, const char* line2);

    // The shown text of a value under this row's map, entries, format, scale, clip, unit.
    std::string Shown(const Zor::CParam& value) const;
    // The same, the value looked up among these list entries rather than the row's own.
    std::string Shown(const Zor::CParam& value, const std::vector<std::pair<std::string, std::string>>& among) const;
    // The texts of the SuffixWhen conditions that hold, in row order.
    std::string SuffixFor(const CRowValues& values) const;
    // The shown text of the row for one instance, with its computation and conditions.
    std::string ShownFor(const CRowValues& values) const;
    // The row's line, not yet placed. `editable` false (status pages) makes every value row
    // a text row.
    CGenericLine* MakeLine(bool editable) const;
    // The label of the row for one instance (kEach rows put its last number for "#"), or
    // the one its LabelBy picks.
    std::string LabelFor(const CRowValues& values) const;
    // True when the row shows the value as text (filled from the values cache).
    bool IsText(bool editable) const;
    // True when the row is bound to its object (read at every redraw, written on ENTER).
    bool IsBound(bool editable) const;
    // False while a ShownWhen / HiddenWhen condition rules the row out.
    bool IsShown(const CRowValues& values) const;
    // Every key the row reads, kCard and kEach unresolved ("name.%" for lists and records).
    std::vector<std::pair<std::string, std::string>> Reads() const;
    // List entries from the controller (From): shown text, controller text.
    std::vector<std::pair<std::string, std::string>> EntriesFrom(const CRowValues& values,
                                                                 const std::string& card) const;

    struct Cond_t {
        std::string object;
        std::string instance;
        std::vector<std::string> values;
        std::string text;  // Instead, SuffixWhen, LabelBy
    };

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
    std::string value;  // a command's value; an add row's column
    std::string fromObject;
    std::string fromKey;
    bool fromCardOnly;
    std::vector<Cond_t> fromWhere;  // all must hold at the entry's instance
    std::string unknown;
    std::vector<Cond_t> labels;
    std::vector<Cond_t> shownWhen;  // all must hold
    std::vector<Cond_t> instead;
    std::vector<Cond_t> suffixWhen;
    std::vector<std::string> computeReads;
    TextFn compute;
    AddressCheck check;
    std::string checkLine1;
    std::string checkLine2;
    double scale;
    bool readOnly;
    bool selectable;
    bool twoRows;
    bool present;
    int charSet;
    int width;  // entry length, number width, hex or key digits
    int decimals;
    double min;
    double max;
};

// --- The rows ---
CRow Text(const char* label, const char* object, const char* instance, const char* format = nullptr);
CRow List(const char* label, const char* object, const char* instance, std::initializer_list<const char*> texts);
// "Enabled" / "Disabled".
CRow OnOff(const char* label, const char* object, const char* instance);
CRow Entry(const char* label, const char* object, const char* instance, CharSet set, int maxLength);
// A decimal number of `width` characters with `decimals` after the point, limited to
// [min, max] (both 0: no limits).
CRow Number(const char* label, const char* object, const char* instance, int width, int decimals, double min,
            double max);
CRow Hex(const char* label, const char* object, const char* instance, int digits, Qb::uint32 max = 0);
// A PID typed in hexadecimal and exchanged with the controller as a decimal number.
CRow Pid(const char* label, const char* object, const char* instance);
CRow Address(const char* label, const char* object, const char* instance);
CRow Key(const char* label, const char* object, const char* instance, int digits);
// The date ("MM/DD/YYYY") and time ("hh:mm:ss") parts of a clock text, each written back
// with the other part as the controller has it.
CRow Date(const char* label, const char* object, const char* instance);
CRow Time(const char* label, const char* object, const char* instance);
CRow Target(const char* label, const char* screen);
CRow Heading(const char* label);
// A shown text made by the screen from values read at `instance`:
//     Show("Size: ", kCard, {"videoWidth", "videoHeight"},
//          [](const CRowValues& v) { return v("videoWidth") + "x" + v("videoHeight"); })
CRow Show(const char* label, const char* instance, std::initializer_list<const char*> objects, CRow::TextFn text);
// ENTER writes `value` to the object ("Reset Counters", row status 6 for "Remove").
CRow Command(const char* label, const char* object, const char* instance, const char* value);
// The rows up to EndRecord are made once per instance of `object` whose instance starts
// with `within` (kCard: the screen's card; "" or nullptr: every instance).
CRow Record(const char* object, const char* within = nullptr);
CRow EndRecord();
// A typed address (starting at "0.0.0.0") that creates the row `within` + "." + address of
// the table whose row status is `rowStatus` (createAndGo).
CRow AddAddress(const char* label, const char* rowStatus, const char* within);
// A choice (its entries from From) that creates the next free row `within` + ".n" of the
// table whose row status is `rowStatus`, with the chosen entry written to `column`, in one
// transaction.
CRow AddRow(const char* label, const char* rowStatus, const char* column, const char* within);
// Inside a Record of a table keyed by address: the record's address, shown from its
// instance. A new address creates the row keyed by it and then destroys the old one; the
// "Remove" stop after the address destroys the row (row status 6).
CRow EditAddress(const char* label, const char* rowStatus);

// Formats one number with a checked one-conversion pattern; false (and nothing written)
// when the pattern is not one numeric conversion or the text is not a number.
bool FormatNumber(const std::string& format, const std::string& text, double scale, std::string* pOut);
