#include "PanelTest.h"

#include <algorithm>
#include <chrono>
#include <sstream>
#include <thread>

#include "Client/TavClient.h"
#include "Zor/Zor.h"

namespace PanelTest {

std::vector<int> KeyCodes(const std::string& keys)
{
    std::vector<int> codes;
    int times = 0;
    for (char c : keys) {
        if (c == ' ')
            continue;
        if (c >= '0' && c <= '9') {
            times = times * 10 + (c - '0');
            continue;
        }
        codes.insert(codes.end(), std::max(times, 1),
                     KEY_LEFT + static_cast<int>(std::string("LURDXE").find(c)));
        times = 0;
    }
    return codes;
}

KeyStateTable_t KeyStates(const std::vector<int>& down)
{
    KeyStateTable_t keys;
    for (int key = KEY_NONE; key < KEY_COUNT; ++key)
        keys[key] = KEY_STATE_UP;
    for (int key : down)
        keys[key] = KEY_STATE_DOWN;
    return keys;
}

bool WaitUntil(const std::function<bool()>& done, int ms)
{
    auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(ms);
    while (!done()) {
        if (std::chrono::steady_clock::now() > end)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return true;
}

std::string Row(const std::string& dump, int r)
{
    std::istringstream in(dump);
    std::string line;
    int row = -1;
    while (std::getline(in, line)) {
        if (line.empty() || line[0] != '|')
            continue;  // highlight marks
        if (++row == r) {
            std::string cells = line.substr(1, line.size() >= 2 ? line.size() - 2 : 0);
            return cells.erase(cells.find_last_not_of(' ') + 1);
        }
    }
    return std::string();
}

CPanelTest::CPanelTest()
{
    UseClient(nullptr);
}

CPanelTest::~CPanelTest()
{
    // Screens go first: they may still be subscribed through the client.
    m_pManager.reset();
    m_pClient.reset();
    m_pZor.reset();
}

void CPanelTest::UseClient(CTavClient* pClient)
{
    m_pManager.reset(new CTavScreenManager(nullptr, &m_rig.Display(), pClient));
}

CTavClient* CPanelTest::Client(const std::string& unit)
{
    if (!m_pClient) {
        m_pZor.reset(new Zor::CZorClient("zor.fp", "embedded:" + std::string(FP_UNIT_DIR) + "/" + unit));
        m_pClient.reset(new CTavClient(m_pZor.get()));
        UseClient(m_pClient.get());
    }
    return m_pClient.get();
}

void CPanelTest::PressKeys(const std::string& keys)
{
    for (int key : KeyCodes(keys))
        Press(key);
}

void CPanelTest::Press(std::initializer_list<int> keys, int times)
{
    for (int i = 0; i < times; ++i)
        for (int key : keys) {
            KeyPress_t press = Key(key);
            m_pManager->RouteKey(press);
        }
}

}  // namespace PanelTest
