// Test base for screens over a real unitd: Start(unit) builds the whole tree as start-up
// builds it on the panel rig, keys are routed as the keypad would, the panel is read and what
// the panel wrote is taken from unitd's journal.
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
    using UnitEdit = std::function<void(nlohmann::json&)>;

    void SetUp() override
    {
        if (std::string(e2e::kUnitdPath).empty())
            GTEST_SKIP() << "unitd is not built";
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
            nlohmann::json json =
                nlohmann::json::parse(std::ifstream(std::string(e2e::kUnitsDir) + "/" + unit));
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

    // Waits until the panel passes `check` (events arrive on their own threads).
    ::testing::AssertionResult PanelBecomes(const std::function<bool(const std::string&)>& check,
                                            const std::string& what, int ms = 20000)
    {
        std::string panel;
        if (PanelTest::WaitUntil([&] { return check(panel = Panel()); }, ms))
            return ::testing::AssertionSuccess();
        return ::testing::AssertionFailure() << "never " << what << " on\n" << panel;
    }
    ::testing::AssertionResult PanelShows(const std::string& text)
    {
        return PanelBecomes([&](const std::string& p) { return p.find(text) != std::string::npos; },
                            "\"" + text + "\"");
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

    // Every value the panel wrote to an object.
    std::vector<std::string> PanelWrites(const std::string& name)
    {
        return m_pUnitd->ValuesWrittenBy("zor.fp", name);
    }
    // A write as another manager would make it; forced, a value the hardware reports.
    void Set(const std::string& name, const std::string& instance, const nlohmann::json& value,
             bool force = false)
    {
        ASSERT_TRUE(m_pUnitd->Set(name, instance, value, force).value("ok", false)) << name << instance;
    }

    std::unique_ptr<e2e::CUnitServer> m_pUnitd;
    std::unique_ptr<Zor::CZorClient> m_pZor;
    std::unique_ptr<CTavClient> m_pClient;
    CTavScreenCreator m_creator;

private:
    std::string m_strEdited;
};

}  // namespace MenusTest
