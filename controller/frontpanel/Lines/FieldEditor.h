// Character-by-character editing shared by the entry lines: the characters UP and DOWN step
// through (CCharSet) and the cursor over a value that may be wider than its field, with the
// scrolling of the text entry line (CFieldEditor).
#pragma once

#include <string>
#include <vector>

#include "Display/Cursor.h"

// An ordered set of characters. UP takes the next member in the set's order and wraps from
// the last to the first; DOWN is the exact reverse. A character outside the set moves to
// the nearest member by byte value in the direction of the key, wrapping through the byte
// range (so a blank fill becomes "0" on UP in most sets).
class CCharSet {
public:
    // Members step through `order`, wrapping. Any other character steps to the nearest
    // member in byte order, or with `byCode` (sets 5 and 6) simply to the next code.
    explicit CCharSet(const std::string& order, bool byCode = false);

    char Step(char current, bool up) const;
    bool Contains(char c) const { return m_order.find(c) != std::string::npos; }

    // The text entry sets 0 to 6; other values fall back as the text line documents.
    static const CCharSet& ForTextSet(int set);
    static const CCharSet& Decimal();      // "0".."9"
    static const CCharSet& Hexadecimal();  // "0".."9", "A".."F"

private:
    std::string m_order;
    bool m_bByCode;
};

// The edit copy of a value of L characters shown in a field of W + 1 columns, a cursor
// position inside the field (the line's edit CCursor, which wraps at L) and the offset of
// the first character shown. Positions without a character set (separators such as the
// points of an address) are stepped over.
class CFieldEditor {
public:
    explicit CFieldEditor(CCursor& cursor);

    // Starts editing `text` (one set per character, null for a fixed one) in a field of
    // `width` (W); cursor and offset go to the first editable character.
    void Start(const std::string& text, const std::vector<const CCharSet*>& sets, int width);
    void MoveLeft();
    void MoveRight();
    void Step(bool up);

    const std::string& Text() const { return m_text; }
    // Index of the character under the cursor, and its column inside the field.
    int Index() const { return m_iOffset + m_cursor.GetIndex(); }
    int Column() const { return m_cursor.GetIndex(); }
    int Offset() const { return m_iOffset; }
    // The characters in the field (at most W + 1 from the offset).
    std::string Visible() const;

private:
    void StepLeft();
    void StepRight();
    bool Editable(int index) const;
    void SetPosition(int position);

    CCursor& m_cursor;
    std::string m_text;
    std::vector<const CCharSet*> m_sets;
    int m_iWidth;
    int m_iOffset;
};
