// A real CDisplayHw on one end of a local socket and the panel emulator's decoder on the
// other, so a test sees exactly what the panel would show. The panel end can also send key
// reports, for a keypad sharing the display's socket as in the daemon.
#pragma once

#include <memory>
#include <mutex>
#include <string>
#include <thread>

#include "Display/DisplayHw.h"
#include "Qb/Socket.h"
#include "panelsim/PanelModel.h"

namespace PanelTest {

class CPanelRig {
public:
    CPanelRig();
    ~CPanelRig();
    CPanelRig(const CPanelRig&) = delete;
    CPanelRig& operator=(const CPanelRig&) = delete;

    Qb::CStreamSocket& Socket() { return *m_pSocket; }
    CDisplayHw& Display() { return *m_pDisplay; }

    // Waits until every byte sent so far has been decoded, then returns the panel as text
    // (panelsim's dump: rows between bars, '^' under highlighted cells).
    std::string Dump();
    // The decoder's protocol error count, after the same wait.
    unsigned Errors();
    // A key report from the panel end (state 1 pressed, 2 released).
    void SendKey(int key, int state);

private:
    void ReadLoop();
    void Sync();

    std::string m_strDir;
    int m_iListenFd;
    int m_iPanelFd;
    std::unique_ptr<Qb::CStreamSocket> m_pSocket;
    std::unique_ptr<CDisplayHw> m_pDisplay;
    std::mutex m_mutex;  // guards the model; held across each read and its decoding
    Panelsim::CPanelModel m_model;
    bool m_bStop;
    std::thread m_reader;
};

}  // namespace PanelTest
