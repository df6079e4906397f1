#include "PanelRig.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <cstring>
#include <stdexcept>

namespace PanelTest {

namespace {

int ListenAt(const std::string& path)
{
    int fd = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (fd < 0)
        throw std::runtime_error("panel rig: socket() failed");
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, path.c_str(), sizeof(address.sun_path) - 1);
    if (bind(fd, reinterpret_cast<sockaddr*>(&address), sizeof(address)) != 0 || listen(fd, 1) != 0) {
        close(fd);
        throw std::runtime_error("panel rig: cannot listen on " + path);
    }
    return fd;
}

}  // namespace

CPanelRig::CPanelRig() : m_iListenFd(-1), m_iPanelFd(-1), m_bStop(false)
{
    char dir[] = "/tmp/fp-panel-XXXXXX";
    if (mkdtemp(dir) == nullptr)
        throw std::runtime_error("panel rig: mkdtemp failed");
    m_strDir = dir;
    const std::string path = m_strDir + "/panel.sock";
    m_iListenFd = ListenAt(path);
    m_pSocket.reset(new Qb::CStreamSocket(Qb::CLocalSocketAddress(path)));
    m_iPanelFd = accept4(m_iListenFd, nullptr, nullptr, SOCK_CLOEXEC);
    if (m_iPanelFd < 0)
        throw std::runtime_error("panel rig: accept failed");
    fcntl(m_iPanelFd, F_SETFL, fcntl(m_iPanelFd, F_GETFL) | O_NONBLOCK);
    m_reader = std::thread(&CPanelRig::ReadLoop, this);
    m_pDisplay.reset(new CDisplayHw(*m_pSocket));
}

CPanelRig::~CPanelRig()
{
    m_pDisplay.reset();
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_bStop = true;
    }
    m_reader.join();
    m_pSocket.reset();
    close(m_iPanelFd);
    close(m_iListenFd);
    unlink((m_strDir + "/panel.sock").c_str());
    rmdir(m_strDir.c_str());
}

void CPanelRig::ReadLoop()
{
    // The reader keeps draining so that a display writing a lot never blocks on a full
    // socket buffer.
    for (;;) {
        pollfd p = {m_iPanelFd, POLLIN, 0};
        poll(&p, 1, 20);
        std::lock_guard<std::mutex> lock(m_mutex);
        if (m_bStop)
            return;
        char buf[4096];
        ssize_t n;
        while ((n = read(m_iPanelFd, buf, sizeof(buf))) > 0)
            m_model.Feed(buf, static_cast<size_t>(n));
    }
}

void CPanelRig::Sync()
{
    // Writes are complete when the drawing call returns, so the bytes are already queued on
    // the panel end; wait until the reader has taken and decoded all of them.
    for (int i = 0; i < 5000; ++i) {
        {
            std::lock_guard<std::mutex> lock(m_mutex);
            int queued = 0;
            if (ioctl(m_iPanelFd, FIONREAD, &queued) != 0 || queued == 0)
                return;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
}

std::string CPanelRig::Dump()
{
    Sync();
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_model.Dump();
}

unsigned CPanelRig::Errors()
{
    Sync();
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_model.Errors();
}

void CPanelRig::SendKey(int key, int state)
{
    const std::string frame = Panelsim::KeyFrame(key, state);
    ssize_t n = write(m_iPanelFd, frame.data(), frame.size());
    (void)n;
}

}  // namespace PanelTest
