// Test base for the screens as start-up builds them, over a real unitd: the whole tree made
// by the screen creator on the panel rig, keys routed as the keypad would, the panel read
// and what the panel wrote taken from unitd's journal.
//
//   class CMyTest : public MenusTest::CTreeOnUnitd {};            // full.json, started
//   class CMyTest : public MenusTest::CTreeOnUnitd {              // Start(unit) per test
//   protected: CMyTest() : CTreeOnUnitd(nullptr) {} };
#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "Client/TavClient.h"
#include "Controller.h"
#include "PanelTest.h"
#include "Paths.h"
#include "ScreenManager/TavScreenCreator.h"
#include "Zor/Zor.h"

namespace MenusTest {

class CTreeOnUnitd : public PanelTest::CPanelTest {
protected:
    using Writes = std::vector<std::string>;

    // unit: started before each test; null: each test calls Start itself.
    explicit CTreeOnUnitd(const char* unit = "full.json") : m_pUnit(unit) {}

    void SetUp() override
    {
        if (std::string(e2e::kUnitdPath).empty())
            GTEST_SKIP() << "unitd is not built";
        if (m_pUnit != nullptr)
            Start(m_pUnit);
    }
    void TearDown() override
    {
        m_pManager.reset();  // screens first: they may still be subscribed
        m_pClient.reset();
        m_pZor.reset();
    }

    void Start(const char* unit)
    {
        std::string error;
        m_pUnitd.reset(new e2e::CUnitServer(unit));
        ASSERT_TRUE(m_pUnitd->Start(&error)) << error;
        m_pZor.reset(new Zor::CZorClient("zor.fp", m_pUnitd->Target()));
        m_pClient.reset(new CTavClient(m_pZor.get()));
        m_pManager.reset(new CTavScreenManager(nullptr, &Rig().Display(), m_pClient.get()));
        m_creator.CreateScreens(m_pManager.get(), m_pClient.get());
    }
    // An unknown name changes nothing, as on the panel.
    void Show(const std::string& name) { m_pManager->ShowScreenLocked(name); }
    void Press(std::initializer_list<int> keys, int times = 1)
    {
        for (int i = 0; i < times; ++i)
            for (int key : keys) {
                KeyPress_t press = {key, KEY_STATE_DOWN};
                m_pManager->RouteKey(press);
            }
    }
    void Down(int times) { Press({KEY_DOWN}, times); }
    // Waits until the panel shows the text (or, with `shown` false, no longer shows it).
    ::testing::AssertionResult PanelShows(const std::string& text, bool shown = true, int ms = 10000)
    {
        auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(ms);
        for (;;) {
            std::string panel = Panel();
            if ((panel.find(text) != std::string::npos) == shown)
                return ::testing::AssertionSuccess();
            if (std::chrono::steady_clock::now() > end)
                return ::testing::AssertionFailure() << (shown ? "no \"" : "still \"") << text << "\" on\n" << panel;
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
    }
    // The values the panel wrote to an object since a point of the journal, as
    // "instance=value".
    Writes Written(const std::string& name, int since)
    {
        Writes values;
        for (const auto& write : m_pUnitd->WritesOf(name, since))
            values.push_back(write["instance"].get<std::string>() + "=" + write["value"].get<std::string>());
        return values;
    }
    // Plays the hardware: a status value the unit would report.
    void Force(const std::string& name, const std::string& instance, const nlohmann::json& value)
    {
        ASSERT_TRUE(m_pUnitd->Set(name, instance, value, true).value("ok", false)) << name << instance;
    }

    std::unique_ptr<e2e::CUnitServer> m_pUnitd;
    std::unique_ptr<Zor::CZorClient> m_pZor;
    std::unique_ptr<CTavClient> m_pClient;
    std::unique_ptr<CTavScreenManager> m_pManager;
    CTavScreenCreator m_creator;

private:
    const char* m_pUnit;
};

}  // namespace MenusTest
