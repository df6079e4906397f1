// Small helpers shared by the line tests: key events, key sequences and tables of edit steps.
// What bound lines write is tested on the screens over unitd.
#pragma once

#include <string>

#include "KeyPad/KeyPress.h"
#include "Lines/EntryLine.h"
#include "Lines/GenericLine.h"
#include "PanelTest.h"

namespace LineTest {

using PanelTest::Key;

// Presses the keys (as PanelTest::KeyCodes reads them: "ERRU", "8R"); returns the last answer.
inline bool Keys(CGenericLine& line, const std::string& keys)
{
    bool editing = line.IsEditing();
    for (int code : PanelTest::KeyCodes(keys))
        editing = line.HandleKey(Key(code));
    return editing;
}

// One step of an edit: its keys, then the value the line reports; when given (0 or 1),
// whether it is still editing (the last key's answer too) and, for an entry line, whether the
// edit was refused.
struct Step {
    const char* keys;
    std::string value;
    int editing = -1;
    int refused = -1;
};

inline void Steps(CGenericLine& line, std::initializer_list<Step> steps)
{
    for (const Step& step : steps) {
        SCOPED_TRACE(std::string("keys \"") + step.keys + "\" to " + step.value);
        const bool answer = Keys(line, step.keys);
        EXPECT_EQ(step.value, line.GetValue());
        if (step.editing >= 0) {
            EXPECT_EQ(step.editing == 1, answer);
            EXPECT_EQ(step.editing == 1, line.IsEditing());
        }
        if (step.refused >= 0) {
            EXPECT_EQ(step.refused == 1, dynamic_cast<CEntryLine&>(line).WasRefused());
        }
    }
}

}  // namespace LineTest
