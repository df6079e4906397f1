// The ttyhub end of the panel socket for tests: listens where the daemon connects, records
// every byte the daemon sends, and sends key reports as the panel would.
#pragma once

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>

namespace e2e {

// Where the daemon looks for the panel.
extern const char* const kPanelSocket;

class CPanelEnd {
public:
    enum Key { KEY_LEFT = 1, KEY_UP = 2, KEY_RIGHT = 3, KEY_DOWN = 4, KEY_EXIT = 5, KEY_ENTER = 6 };
    enum State { STATE_DOWN = 1, STATE_UP = 2 };

    explicit CPanelEnd(const std::string& path = kPanelSocket);
    // Stops listening, closes the connection and removes the socket file.
    ~CPanelEnd();

    CPanelEnd(const CPanelEnd&) = delete;
    CPanelEnd& operator=(const CPanelEnd&) = delete;

    bool Start(std::string* error);

    // Connections accepted so far (a new one replaces the old one).
    int Connections();
    bool WaitForConnections(int count, int timeoutMs);

    // Every byte received, over all connections.
    std::string Received();
    // Waits until bytes holds at or after offset `from`; offset past the match or npos.
    size_t WaitForReceived(const std::string& bytes, int timeoutMs, size_t from = 0);

    // The panel as the received commands draw it, in panelsim's dump format (one line per
    // row between bars, '^' under highlighted cells), and the protocol errors found on the
    // way; "" and 0 when the panel decoder is not built.
    std::string Screen();
    int ScreenErrors();
    std::string ScreenLastError();
    // Waits until some row of the decoded panel shows text; the last dump in *dump.
    bool WaitForScreen(const std::string& text, int timeoutMs, std::string* dump = nullptr);

    // Sends to the current connection; false when there is none.
    bool SendBytes(const std::string& bytes);
    // One key report frame: 09 'K' key state 7E.
    bool SendKey(int key, int state);
    // Down, then up.
    bool Press(int key);
    // Closes the current connection, as a restarting ttyhub would.
    void Drop();

private:
    void Run();

    std::string m_strPath;
    int m_iListenFd;
    std::thread m_thread;
    std::atomic<bool> m_bStop;

    std::mutex m_mutex;  // guards everything below
    std::condition_variable m_changed;
    int m_iConnFd;
    int m_iConnections;
    std::string m_received;
};

// Bytes as hex pairs ("09 30 7e"), for failure messages.
std::string Hex(const std::string& bytes);

}  // namespace e2e
