// Test base for screens over a real unitd: by default the whole tree as start-up builds it
// on the panel rig, keys routed as the keypad would, the panel read and what the panel
// wrote taken from unitd's journal.
//
//   class CMyTest : public MenusTest::CTreeOnUnitd {};            // full.json, started
//   class CMyTest : public MenusTest::CTreeOnUnitd {              // Start(unit) per test
//   protected: CMyTest() : CTreeOnUnitd(nullptr) {} };
#pragma once

#include <gtest/gtest.h>
#include <stdlib.h>
#include <unistd.h>

#include <chrono>
#include <fstream>
#include <functional>
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
    using UnitEdit = std::function<void(nlohmann::json&)>;

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
        UseClient(nullptr);  // screens first: they may still be subscribed
        m_pClient.reset();
        m_pZor.reset();
        m_pUnitd.reset();
        if (!m_strEdited.empty()) {
            unlink(m_strEdited.c_str());
            rmdir(m_strEdited.substr(0, m_strEdited.rfind('/')).c_str());
        }
    }

    // A unit of unit/units, changed by `edit` when given; `tree` false makes no screens.
    void Start(const std::string& unit, const UnitEdit& edit = nullptr, bool tree = true)
    {
        std::string file = unit;
        if (edit) {
            nlohmann::json json = nlohmann::json::parse(std::ifstream(std::string(e2e::kUnitsDir) + "/" + unit));
            edit(json);
            char dir[] = "/tmp/fp-unit-XXXXXX";
            ASSERT_NE(mkdtemp(dir), nullptr);
            m_strEdited = file = std::string(dir) + "/unit.json";
            std::ofstream(file) << json.dump();
        }
        std::string error;
        m_pUnitd.reset(new e2e::CUnitServer(file));
        ASSERT_TRUE(m_pUnitd->Start(&error)) << error;
        m_pZor.reset(new Zor::CZorClient("zor.fp", m_pUnitd->Target()));
        m_pClient.reset(new CTavClient(m_pZor.get()));
        UseClient(m_pClient.get());
        if (tree)
            m_creator.CreateScreens(&Manager(), m_pClient.get());
    }
    void Down(int times) { Press({KEY_DOWN}, times); }

    // Waits until the panel passes `check` (events arrive on their own threads).
    ::testing::AssertionResult PanelBecomes(const std::function<bool(const std::string&)>& check,
                                            const std::string& what, int ms = 20000)
    {
        std::string panel;
        if (PanelTest::WaitUntil([&] { return check(panel = Panel()); }, ms))
            return ::testing::AssertionSuccess();
        return ::testing::AssertionFailure() << "never " << what << " on\n" << panel;
    }
    // The panel shows the text (or, with `shown` false, no longer shows it).
    ::testing::AssertionResult PanelShows(const std::string& text, bool shown = true, int ms = 10000)
    {
        return PanelBecomes([&](const std::string& p) { return (p.find(text) != std::string::npos) == shown; },
                            (shown ? "\"" : "without \"") + text + "\"", ms);
    }
    ::testing::AssertionResult RowReads(int r, const std::string& text)
    {
        return PanelBecomes([&](const std::string& p) { return PanelTest::Row(p, r) == text; },
                            "row " + std::to_string(r) + " \"" + text + "\"");
    }
    ::testing::AssertionResult PanelIs(const std::string& panel)
    {
        return PanelBecomes([&](const std::string& p) { return p == panel; }, "the expected panel");
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
    // Every value the panel wrote to an object.
    Writes PanelWrites(const std::string& name) { return m_pUnitd->ValuesWrittenBy("zor.fp", name); }
    // A write as another manager would make it; forced, a value the hardware reports.
    void Set(const std::string& name, const std::string& instance, const nlohmann::json& value, bool force = false)
    {
        ASSERT_TRUE(m_pUnitd->Set(name, instance, value, force).value("ok", false)) << name << instance;
    }
    void Force(const std::string& name, const std::string& instance, const nlohmann::json& value)
    {
        Set(name, instance, value, true);
    }

    std::unique_ptr<e2e::CUnitServer> m_pUnitd;
    std::unique_ptr<Zor::CZorClient> m_pZor;
    std::unique_ptr<CTavClient> m_pClient;
    CTavScreenCreator m_creator;

private:
    const char* m_pUnit;
    std::string m_strEdited;
};

}  // namespace MenusTest
