// Script mode: a panel session as a list of steps (keys, waits, expectations, dumps).
#pragma once

#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

namespace Panelsim {

class CPanelServer;

struct ScriptStep_t {
    enum Kind_e {
        CONNECT,
        PRESS,
        DOWN,
        UP,
        HOLD,
        COMBO,
        WAIT,
        EXPECT_ROW,
        EXPECT_TEXT,
        EXPECT_NOT_TEXT,
        DUMP,
        ERRORS
    };
    Kind_e kind = WAIT;
    int line = 0;
    std::string source;  // the line as written, for messages
    int key = 0;
    int key2 = 0;
    int row = 0;
    uint32_t ms = 0;  // time-out, hold or wait time
    uint32_t count = 0;
    std::string text;
};

enum { DEFAULT_EXPECT_MS = 3000, DEFAULT_CONNECT_MS = 10000 };

// Reads the whole script; false with "line N: ..." in `error` on the first bad line.
bool ParseScript(std::istream& in, std::vector<ScriptStep_t>& steps, std::string& error);

// Runs the steps against the daemon; 0 when every expectation held, 1 at the first one
// that failed (reported on `err` with the screen). Dumps go to `out`.
int RunScript(CPanelServer& server, const std::vector<ScriptStep_t>& steps, bool quiet, std::ostream& out,
              std::ostream& err);

}  // namespace Panelsim
