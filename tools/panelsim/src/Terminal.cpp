#include "Terminal.h"

#include <curses.h>
#include <langinfo.h>
#include <signal.h>
#include <unistd.h>

#include <clocale>
#include <cstring>
#include <deque>
#include <string>

#include "PanelServer.h"
#include "panelsim/PanelModel.h"

namespace Panelsim {

namespace {

volatile sig_atomic_t g_stop = 0;

void OnStop(int)
{
    g_stop = 1;
}

const uint32_t kHoldMs = 2000;
const uint32_t kComboMs = 6000;

// A key release due at a time (for holds and the lock combination).
struct Release_t {
    int key;
    uint32_t due;
};

class CTerminal {
public:
    explicit CTerminal(CPanelServer& server) : m_rServer(server), m_bUtf8(false), m_bHoldNext(false)
    {
        std::memset(m_down, 0, sizeof m_down);
    }

    int Run()
    {
        std::setlocale(LC_ALL, "");
        m_bUtf8 = std::strcmp(nl_langinfo(CODESET), "UTF-8") == 0;
        initscr();
        cbreak();
        noecho();
        keypad(stdscr, TRUE);
        set_escdelay(25);
        curs_set(0);
        timeout(0);
        if (has_colors()) {
            start_color();
            use_default_colors();
            init_pair(1, COLOR_BLACK, COLOR_CYAN);  // the display
            init_pair(2, COLOR_RED, -1);            // protocol errors
        }
        m_strStatus = "waiting for the daemon on " + m_rServer.Path();
        while (!g_stop) {
            m_rServer.Poll(30, STDIN_FILENO);
            for (const std::string& error : m_rServer.Model().TakeNewErrors()) {
                m_strError = error;
            }
            if (!HandleInput()) {
                break;
            }
            ReleaseDue();
            Draw();
        }
        endwin();
        return 0;
    }

private:
    int KeyOf(int ch) const
    {
        switch (ch) {
            case KEY_LEFT:
                return PANEL_KEY_LEFT;
            case KEY_UP:
                return PANEL_KEY_UP;
            case KEY_RIGHT:
                return PANEL_KEY_RIGHT;
            case KEY_DOWN:
                return PANEL_KEY_DOWN;
            case 27:
                return PANEL_KEY_EXIT;
            case '\n':
            case '\r':
            case KEY_ENTER:
                return PANEL_KEY_ENTER;
            default:
                return 0;
        }
    }

    void Send(int key, int state)
    {
        m_down[key] = state == KEY_STATE_DOWN;
        if (!m_rServer.Send(KeyFrame(key, state))) {
            m_strStatus = std::string("no daemon connected: ") + KeyName(key) + " not sent";
        }
    }

    void Hold(int key, uint32_t ms)
    {
        if (m_down[key]) {
            return;
        }
        Send(key, KEY_STATE_DOWN);
        m_releases.push_back(Release_t{key, NowMs() + ms});
    }

    // False when the user quits.
    bool HandleInput()
    {
        for (int ch = getch(); ch != ERR; ch = getch()) {
            if (ch == 'q' || ch == 'Q') {
                return false;
            }
            if (ch == 'h' || ch == 'H') {
                m_bHoldNext = !m_bHoldNext;
                continue;
            }
            if (ch == 'l' || ch == 'L') {
                Hold(PANEL_KEY_LEFT, kComboMs);
                Hold(PANEL_KEY_RIGHT, kComboMs);
                continue;
            }
            const int key = KeyOf(ch);
            if (key == 0) {
                continue;
            }
            if (m_bHoldNext) {
                m_bHoldNext = false;
                Hold(key, kHoldMs);
            } else if (!m_down[key]) {
                Send(key, KEY_STATE_DOWN);
                Send(key, KEY_STATE_UP);
            }
        }
        return true;
    }

    void ReleaseDue()
    {
        const uint32_t now = NowMs();
        for (auto it = m_releases.begin(); it != m_releases.end();) {
            if (static_cast<int32_t>(now - it->due) >= 0) {
                Send(it->key, KEY_STATE_UP);
                it = m_releases.erase(it);
            } else {
                ++it;
            }
        }
    }

    void DrawCell(int y, int x, unsigned char code, bool highlight)
    {
        attr_t attributes = has_colors() ? COLOR_PAIR(1) : A_NORMAL;
        if (highlight) {
            attributes |= A_REVERSE;
        }
        attron(attributes);
        const char* symbol = GlyphSymbol(code);
        if (symbol != nullptr && m_bUtf8) {
            mvaddstr(y, x, symbol);
        } else {
            mvaddch(y, x, static_cast<chtype>(static_cast<unsigned char>(StandIn(code))));
        }
        attroff(attributes);
    }

    void DrawKey(int y, int x, int key, const char* label)
    {
        if (m_down[key]) {
            attron(A_REVERSE);
        }
        mvaddstr(y, x, label);
        if (m_down[key]) {
            attroff(A_REVERSE);
        }
    }

    void Draw()
    {
        erase();
        const CPanelModel& model = m_rServer.Model();
        const int top = 1, left = 2;
        // The bezel: display on the left, the key cluster on the right.
        mvaddstr(top - 1, left, "frontpanel  -  5 x 30 display, six keys");
        mvhline(top, left, '-', 62);
        mvhline(top + 9, left, '-', 62);
        mvvline(top + 1, left - 1, '|', 8);
        mvvline(top + 1, left + 62, '|', 8);
        mvaddch(top, left - 1, '+');
        mvaddch(top, left + 62, '+');
        mvaddch(top + 9, left - 1, '+');
        mvaddch(top + 9, left + 62, '+');

        const int dy = top + 2, dx = left + 2;
        mvhline(dy - 1, dx, '=', PANEL_COLUMNS + 2);
        mvhline(dy + PANEL_ROWS, dx, '=', PANEL_COLUMNS + 2);
        for (int row = 0; row < PANEL_ROWS; ++row) {
            mvaddch(dy + row, dx, '[');
            for (int column = 0; column < PANEL_COLUMNS; ++column) {
                DrawCell(dy + row, dx + 1 + column, model.Code(row, column),
                         model.IsHighlighted(row, column));
            }
            mvaddch(dy + row, dx + 1 + PANEL_COLUMNS, ']');
        }

        const int kx = dx + PANEL_COLUMNS + 5;
        DrawKey(dy, kx + 7, PANEL_KEY_UP, "[ UP ]");
        DrawKey(dy + 2, kx, PANEL_KEY_LEFT, "[LEFT]");
        DrawKey(dy + 2, kx + 13, PANEL_KEY_RIGHT, "[RIGHT]");
        DrawKey(dy + 4, kx + 6, PANEL_KEY_DOWN, "[DOWN]");
        DrawKey(dy + 6, kx, PANEL_KEY_EXIT, "[EXIT]");
        DrawKey(dy + 6, kx + 12, PANEL_KEY_ENTER, "[ENTER]");

        int y = top + 11;
        mvaddstr(y++, left, "arrows: LEFT UP RIGHT DOWN   Esc: EXIT   Enter: ENTER");
        mvaddstr(y++, left, "h then a key: hold it 2 s    l: LEFT+RIGHT for 6 s (lock)    q: quit");
        if (m_bHoldNext) {
            mvaddstr(y, left, "hold: press the key to hold (h again cancels)");
        }
        ++y;
        std::string state = m_rServer.Connected() ? "daemon connected" : "waiting for the daemon";
        state += "   frames " + std::to_string(model.Frames()) + "   protocol errors " +
                 std::to_string(model.Errors());
        mvaddstr(y++, left, state.c_str());
        if (m_rServer.Watcher() != nullptr) {
            mvaddnstr(y++, left, m_rServer.Watcher()->Status().c_str(), COLS - left);
        }
        if (!m_strError.empty()) {
            if (has_colors()) {
                attron(COLOR_PAIR(2));
            }
            mvaddstr(y, left, ("last error: " + m_strError).c_str());
            if (has_colors()) {
                attroff(COLOR_PAIR(2));
            }
        }
        ++y;
        if (!m_rServer.Connected()) {
            mvaddstr(y, left, m_strStatus.c_str());
        }
        refresh();
    }

    CPanelServer& m_rServer;
    bool m_bUtf8;
    bool m_bHoldNext;
    bool m_down[PANEL_KEY_ENTER + 1];
    std::deque<Release_t> m_releases;
    std::string m_strStatus;
    std::string m_strError;
};

}  // namespace

void CatchStopSignals()
{
    struct sigaction action;
    std::memset(&action, 0, sizeof action);
    action.sa_handler = OnStop;
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
    sigaction(SIGHUP, &action, nullptr);
}

bool StopRequested()
{
    return g_stop != 0;
}

int RunTerminal(CPanelServer& server)
{
    CatchStopSignals();
    CTerminal terminal(server);
    return terminal.Run();
}

}  // namespace Panelsim
