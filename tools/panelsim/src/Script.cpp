#include "Script.h"

#include <cctype>
#include <istream>
#include <ostream>

#include "PanelServer.h"
#include "panelsim/PanelModel.h"

namespace Panelsim {

namespace {

// Splits a line into words; "quoted texts" keep their blanks and take \" and \\ escapes;
// a '#' outside quotes starts a comment.
bool Tokenize(const std::string& line, std::vector<std::string>& words, std::vector<bool>& quoted,
              std::string& error)
{
    size_t i = 0;
    while (i < line.size()) {
        const char c = line[i];
        if (std::isspace(static_cast<unsigned char>(c))) {
            ++i;
        } else if (c == '#') {
            break;
        } else if (c == '"') {
            std::string word;
            ++i;
            bool closed = false;
            while (i < line.size()) {
                if (line[i] == '\\' && i + 1 < line.size() && (line[i + 1] == '"' || line[i + 1] == '\\')) {
                    word += line[i + 1];
                    i += 2;
                } else if (line[i] == '"') {
                    closed = true;
                    ++i;
                    break;
                } else {
                    word += line[i++];
                }
            }
            if (!closed) {
                error = "unterminated quoted text";
                return false;
            }
            words.push_back(word);
            quoted.push_back(true);
        } else {
            const size_t start = i;
            while (i < line.size() && !std::isspace(static_cast<unsigned char>(line[i]))) {
                ++i;
            }
            words.push_back(line.substr(start, i - start));
            quoted.push_back(false);
        }
    }
    return true;
}

bool ParseNumber(const std::string& word, uint32_t& value)
{
    if (word.empty() || word.size() > 9) {
        return false;
    }
    value = 0;
    for (char c : word) {
        if (!std::isdigit(static_cast<unsigned char>(c))) {
            return false;
        }
        value = value * 10 + static_cast<uint32_t>(c - '0');
    }
    return true;
}

bool ParseStep(const std::vector<std::string>& w, const std::vector<bool>& quoted, ScriptStep_t& step,
               std::string& error)
{
    const std::string& name = w[0];
    const size_t n = w.size();
    auto key = [&](size_t i, int& code) {
        code = KeyByName(w[i]);
        if (code == 0) {
            error = "unknown key \"" + w[i] + "\" (keys: LEFT UP RIGHT DOWN EXIT ENTER)";
        }
        return code != 0;
    };
    auto number = [&](size_t i, uint32_t& value) {
        if (!ParseNumber(w[i], value)) {
            error = "\"" + w[i] + "\" is not a number";
            return false;
        }
        return true;
    };
    auto text = [&](size_t i) {
        if (!quoted[i]) {
            error = "the text must be in double quotes";
            return false;
        }
        step.text = w[i];
        return true;
    };
    auto usage = [&](const char* form) {
        error = std::string("usage: ") + form;
        return false;
    };

    if (name == "connect") {
        step.kind = ScriptStep_t::CONNECT;
        step.ms = DEFAULT_CONNECT_MS;
        return n > 2 ? usage("connect [TIMEOUT_MS]") : n == 1 || number(1, step.ms);
    }
    if (name == "press" || name == "down" || name == "up") {
        step.kind = name == "press"  ? ScriptStep_t::PRESS
                    : name == "down" ? ScriptStep_t::DOWN
                                     : ScriptStep_t::UP;
        return n != 2 ? usage("press|down|up KEY") : key(1, step.key);
    }
    if (name == "hold") {
        step.kind = ScriptStep_t::HOLD;
        return n != 3 ? usage("hold KEY MS") : key(1, step.key) && number(2, step.ms);
    }
    if (name == "combo") {
        step.kind = ScriptStep_t::COMBO;
        return n != 4 ? usage("combo KEY KEY MS")
                      : key(1, step.key) && key(2, step.key2) && number(3, step.ms);
    }
    if (name == "wait") {
        step.kind = ScriptStep_t::WAIT;
        return n != 2 ? usage("wait MS") : number(1, step.ms);
    }
    if (name == "expect" && n >= 2 && w[1] == "row") {
        step.kind = ScriptStep_t::EXPECT_ROW;
        step.ms = DEFAULT_EXPECT_MS;
        if (n < 4 || n > 5) {
            return usage("expect row N \"TEXT\" [TIMEOUT_MS]");
        }
        uint32_t row = 0;
        if (!number(2, row) || !text(3) || (n == 5 && !number(4, step.ms))) {
            return false;
        }
        if (row >= PANEL_ROWS) {
            error = "row " + w[2] + " is not on the panel (0 to 4)";
            return false;
        }
        if (step.text.size() > PANEL_COLUMNS) {
            error = "the text is longer than a row (30 characters)";
            return false;
        }
        step.row = static_cast<int>(row);
        return true;
    }
    if ((name == "expect" || name == "expect-not") && n >= 2 && w[1] == "text") {
        const bool negative = name == "expect-not";
        step.kind = negative ? ScriptStep_t::EXPECT_NOT_TEXT : ScriptStep_t::EXPECT_TEXT;
        step.ms = negative ? 0 : DEFAULT_EXPECT_MS;
        if (n < 3 || n > 4) {
            return usage(negative ? "expect-not text \"TEXT\" [MS]" : "expect text \"TEXT\" [TIMEOUT_MS]");
        }
        if (!text(2) || (n == 4 && !number(3, step.ms))) {
            return false;
        }
        if (step.text.empty()) {
            error = "the text is empty";
            return false;
        }
        return true;
    }
    if (name == "dump") {
        step.kind = ScriptStep_t::DUMP;
        return n != 1 ? usage("dump") : true;
    }
    if (name == "errors") {
        step.kind = ScriptStep_t::ERRORS;
        return n != 2 ? usage("errors N") : number(1, step.count);
    }
    error = "unknown command \"" + name + "\"";
    return false;
}

std::string TrimRight(const std::string& text)
{
    const size_t last = text.find_last_not_of(' ');
    return last == std::string::npos ? std::string() : text.substr(0, last + 1);
}

bool ScreenHas(const CPanelModel& model, const std::string& text)
{
    for (int row = 0; row < PANEL_ROWS; ++row) {
        if (model.RowText(row).find(text) != std::string::npos) {
            return true;
        }
    }
    return false;
}

class CRunner {
public:
    CRunner(CPanelServer& server, bool quiet, std::ostream& out, std::ostream& err)
        : m_rServer(server), m_bQuiet(quiet), m_rOut(out), m_rErr(err)
    {
    }

    // Serves the daemon until the condition holds or the time is up; true if it held.
    template <typename Condition>
    bool Until(uint32_t ms, Condition condition)
    {
        const uint32_t start = NowMs();
        m_rServer.Poll(0);
        Report();
        for (;;) {
            if (condition()) {
                return true;
            }
            const uint32_t spent = NowMs() - start;
            if (spent >= ms) {
                return false;
            }
            const uint32_t left = ms - spent;
            m_rServer.Poll(static_cast<int>(left < 20 ? left : 20));
            Report();
        }
    }

    void Serve(uint32_t ms)
    {
        Until(ms, [] { return false; });
    }

    bool SendKey(int key, int state) { return m_rServer.Send(KeyFrame(key, state)); }

    void Report()
    {
        for (const std::string& text : m_rServer.Model().TakeNewErrors()) {
            if (!m_bQuiet) {
                m_rErr << "panelsim: protocol error: " << text << "\n";
            }
        }
    }

    bool Step(const ScriptStep_t& step, std::string& why)
    {
        CPanelModel& model = m_rServer.Model();
        switch (step.kind) {
            case ScriptStep_t::CONNECT:
                // A daemon that already came and went counts: its screen is still there.
                if (!Until(step.ms, [this] { return m_rServer.Connections() > 0; })) {
                    why = "no daemon connected within " + std::to_string(step.ms) + " ms";
                    return false;
                }
                return true;
            case ScriptStep_t::WAIT:
                Serve(step.ms);
                return true;
            case ScriptStep_t::EXPECT_ROW: {
                const std::string wanted = TrimRight(step.text);
                if (!Until(step.ms, [&] { return TrimRight(model.RowText(step.row)) == wanted; })) {
                    why = "row " + std::to_string(step.row) + " is \"" + TrimRight(model.RowText(step.row)) +
                          "\" after " + std::to_string(step.ms) + " ms";
                    return false;
                }
                return true;
            }
            case ScriptStep_t::EXPECT_TEXT:
                if (!Until(step.ms, [&] { return ScreenHas(model, step.text); })) {
                    why = "text not on the screen after " + std::to_string(step.ms) + " ms";
                    return false;
                }
                return true;
            case ScriptStep_t::EXPECT_NOT_TEXT:
                if (Until(step.ms, [&] { return ScreenHas(model, step.text); })) {
                    why = "text is on the screen";
                    return false;
                }
                return true;
            case ScriptStep_t::DUMP:
                m_rServer.Poll(0);
                Report();
                m_rOut << model.Dump() << std::flush;
                return true;
            case ScriptStep_t::ERRORS:
                m_rServer.Poll(0);
                Report();
                if (model.Errors() != step.count) {
                    why = std::to_string(model.Errors()) + " protocol errors so far" +
                          (model.Errors() ? " (last: " + model.LastError() + ")" : std::string());
                    return false;
                }
                return true;
            default:
                return KeyStep(step, why);
        }
    }

private:
    bool KeyStep(const ScriptStep_t& step, std::string& why)
    {
        if (!Until(DEFAULT_EXPECT_MS, [this] { return m_rServer.Connected(); })) {
            why = "no daemon connected to send the key to";
            return false;
        }
        bool sent = true;
        switch (step.kind) {
            case ScriptStep_t::PRESS:
                sent = SendKey(step.key, KEY_STATE_DOWN) && SendKey(step.key, KEY_STATE_UP);
                break;
            case ScriptStep_t::DOWN:
                sent = SendKey(step.key, KEY_STATE_DOWN);
                break;
            case ScriptStep_t::UP:
                sent = SendKey(step.key, KEY_STATE_UP);
                break;
            case ScriptStep_t::HOLD:
                sent = SendKey(step.key, KEY_STATE_DOWN);
                Serve(step.ms);
                sent = SendKey(step.key, KEY_STATE_UP) && sent;
                break;
            case ScriptStep_t::COMBO:
                sent = SendKey(step.key, KEY_STATE_DOWN) && SendKey(step.key2, KEY_STATE_DOWN);
                Serve(step.ms);
                sent = SendKey(step.key, KEY_STATE_UP) && SendKey(step.key2, KEY_STATE_UP) && sent;
                break;
            default:
                break;
        }
        if (!sent) {
            why = "the daemon went away while the key was sent";
        }
        return sent;
    }

    CPanelServer& m_rServer;
    bool m_bQuiet;
    std::ostream& m_rOut;
    std::ostream& m_rErr;
};

}  // namespace

bool ParseScript(std::istream& in, std::vector<ScriptStep_t>& steps, std::string& error)
{
    std::string line;
    int number = 0;
    while (std::getline(in, line)) {
        ++number;
        if (!line.empty() && line.back() == '\r') {
            line.pop_back();
        }
        std::vector<std::string> words;
        std::vector<bool> quoted;
        std::string why;
        ScriptStep_t step;
        if (!Tokenize(line, words, quoted, why) || (!words.empty() && !ParseStep(words, quoted, step, why))) {
            error = "line " + std::to_string(number) + ": " + why;
            return false;
        }
        if (words.empty()) {
            continue;
        }
        step.line = number;
        const size_t first = line.find_first_not_of(" \t");
        step.source = line.substr(first);
        steps.push_back(step);
    }
    return true;
}

int RunScript(CPanelServer& server, const std::vector<ScriptStep_t>& steps, bool quiet, std::ostream& out,
              std::ostream& err)
{
    CRunner runner(server, quiet, out, err);
    for (const ScriptStep_t& step : steps) {
        std::string why;
        if (!runner.Step(step, why)) {
            err << "panelsim: line " << step.line << ": " << step.source << "\n"
                << "panelsim: failed: " << why << "\n"
                << server.Model().Dump() << std::flush;
            return 1;
        }
    }
    if (!quiet) {
        err << "panelsim: script passed (" << steps.size() << " steps)\n";
    }
    return 0;
}

}  // namespace Panelsim
