#include "PanelTest.h"

#include "Client/TavClient.h"
#include "Zor/Zor.h"

namespace PanelTest {

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

void CPanelTest::Press(std::initializer_list<int> keys, int times)
{
    for (int i = 0; i < times; ++i)
        for (int key : keys) {
            KeyPress_t press = {key, KEY_STATE_DOWN};
            m_pManager->RouteKey(press);
        }
}

}  // namespace PanelTest
