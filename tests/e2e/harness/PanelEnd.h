// The ttyhub end of the panel socket for tests: listens where the daemon connects, keeps
// every byte the daemon sends, decodes them into the panel they draw, and sends key reports
// as the panel would. It takes what arrived whenever a test asks for it or waits.
#pragma once

#include <functional>
#include <string>

namespace e2e {

class CPanelEnd {
public:
    enum Key { KEY_LEFT = 1, KEY_UP = 2, KEY_RIGHT = 3, KEY_DOWN = 4, KEY_EXIT = 5, KEY_ENTER = 6 };
    enum State { STATE_DOWN = 1, STATE_UP = 2 };

    CPanelEnd() = default;
    // Stops listening, closes the connection and removes the socket file.
    ~CPanelEnd();
    CPanelEnd(const CPanelEnd&) = delete;
    CPanelEnd& operator=(const CPanelEnd&) = delete;

    // Listens where the daemon looks for the panel.
    bool Start(std::string* error);
    // Connections accepted so far (a new one replaces the old one).
    bool WaitForConnections(int count, int timeoutMs);

    // Every byte received, over all connections.
    std::string Received();
    // Waits until bytes holds at or after offset `from`; offset past the match or npos.
    size_t WaitForReceived(const std::string& bytes, int timeoutMs, size_t from = 0);

    // The panel as the received commands draw it, in panelsim's dump format (one line per
    // row between bars, '^' under highlighted cells).
    std::string Screen();
    // "" while the received commands hold no protocol error; else how many, and the last.
    std::string ScreenErrors();
    // Waits until some row of the decoded panel shows text; the last dump in *dump.
    bool WaitForScreen(const std::string& text, int timeoutMs, std::string* dump = nullptr);

    // One key report frame (09 'K' key state 7E) to the current connection; false when
    // there is none.
    bool SendKey(int key, int state);
    // Down, then up.
    bool Press(int key);
    // Closes the current connection, as a restarting ttyhub would.
    void Drop();

private:
    // Takes a new connection and what the daemon sent, waiting at most waitMs for either.
    void Pump(int waitMs);
    bool WaitUntil(const std::function<bool()>& done, int timeoutMs);

    int m_iListenFd = -1;
    int m_iConnFd = -1;
    int m_iConnections = 0;
    std::string m_received;
};

}  // namespace e2e
