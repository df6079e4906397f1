// The image-update and profile-apply takeovers and the profile screens, on a real unitd:
// a second client starts the update or the apply as another manager would, the panel shows
// the progress and then the screen that was on view, exactly as it was.
#include <gtest/gtest.h>

#include <functional>
#include <memory>

#include "Lines/GenericStringLine.h"
#include "Menus/ImageUpdateEvent.h"
#include "Menus/MenuImageUpdate.h"
#include "Menus/MenuProfileApply.h"
#include "Menus/MenuProfiles.h"
#include "Menus/ProfileApplyEvent.h"
#include "Menus/ProfileStatus.h"
#include "ScreenManager/MenuStyle.h"
#include "TreeOnUnitd.h"

using PanelTest::Row;

namespace {

// The profile screens with their message pauses recorded instead of waited.
class CProfilesUnderTest : public CMenuProfiles {
public:
    explicit CProfilesUnderTest(std::function<void(Qb::uint32)> pause) : m_pause(std::move(pause)) {}
    void Pause(Qb::uint32 ms) override { m_pause(ms); }

private:
    std::function<void(Qb::uint32)> m_pause;
};

class TakeoverTest : public MenusTest::CTreeOnUnitd {
protected:
    // full.json with some behaviours changed; noProfiles empties the profile list. The
    // takeovers are wired as start-up wires them.
    void Build(const nlohmann::json& behaviours = nlohmann::json::object(), bool noProfiles = false)
    {
        ASSERT_NO_FATAL_FAILURE(Start(
            "full.json",
            [&](nlohmann::json& unit) {
                for (auto it = behaviours.begin(); it != behaviours.end(); ++it)
                    unit["behaviours"][it.key()] = it.value();
                if (noProfiles)
                    unit["objects"]["profilelistName"]["values"] = nlohmann::json::object();
            },
            false));
        m_pUpdate.reset(new CImageUpdateEvent(&Manager()));
        m_pUpdate->Setup(&Rig().Display(), nullptr, m_pClient.get());
        ASSERT_TRUE(m_pZor->AddManagedEventHandler("updateStart", m_pUpdate.get(), ".%").Success());
        m_pApply.reset(new CProfileApplyEvent(&Manager()));
        m_pApply->Setup(&Rig().Display(), nullptr, m_pClient.get(), &m_pClient->GetWakeUpTimer());
        ASSERT_TRUE(
            m_pZor->AddManagedEventHandler("profileApplyProfileState", m_pApply.get(), ".%").Success());

        m_pProfiles = new CProfilesUnderTest([this](Qb::uint32 ms) {
            m_pauses.push_back(ms);
            m_pausePanels.push_back(Panel());
        });
        Add(m_pProfiles, "Profile Config");
        Add(new CProfileStatus(), "Profile Status");
    }
    void TearDown() override
    {
        if (m_pZor) {
            m_pZor->RemoveManagedEventHandler("updateStart", m_pUpdate.get(), ".%");
            m_pZor->RemoveManagedEventHandler("profileApplyProfileState", m_pApply.get(), ".%");
        }
        if (m_pUpdate)
            m_pUpdate->Stop();
        if (m_pApply)
            m_pApply->Stop();
        UseClient(nullptr);
        m_pUpdate.reset();
        m_pApply.reset();
        CTreeOnUnitd::TearDown();
    }
    void Write(const std::string& name, const nlohmann::json& value) { Set(name, ".0", value); }
    // Chooses the profile on list row `row` (1 = the first profile).
    void Choose(int row)
    {
        Show("Profile Config");
        Press(KEY_DOWN, row);
        Press(KEY_ENTER);
    }

    std::unique_ptr<CImageUpdateEvent> m_pUpdate;
    std::unique_ptr<CProfileApplyEvent> m_pApply;
    CProfilesUnderTest* m_pProfiles = nullptr;  // owned by the manager
    std::vector<Qb::uint32> m_pauses;
    std::vector<std::string> m_pausePanels;
};

TEST_F(TakeoverTest, UpdateShowsItsStagesAndGivesTheScreenBackUntouchedByKeys)
{
    Build({{"updateStepMs", 150}});
    Choose(2);  // the actions of "Backup Uplink", "Rename:" selected
    Press(KEY_DOWN);
    const std::string before = Panel();

    // "0" is the unit saying the update is over: nothing happens.
    Write("updateStart", 0);
    std::this_thread::sleep_for(std::chrono::milliseconds(400));
    EXPECT_EQ(Panel(), before);

    Write("updateStart", 1);
    EXPECT_TRUE(RowReads(2, "         Updating: 40%"));
    // Keys wait for the panel: none of them may draw over the update or its outcome.
    std::thread keys([this]() { Press({KEY_LEFT, KEY_RIGHT}); });
    EXPECT_TRUE(RowReads(2, "         Verifying: 50%"));
    EXPECT_TRUE(RowReads(2, "       Update Successful"));
    EXPECT_PANEL("image_update_successful");
    keys.join();
    // Back exactly as it was (LEFT and RIGHT do nothing on a row that is not edited).
    EXPECT_TRUE(PanelIs(before));
    EXPECT_EQ(Current(), "Profile Config");
}

TEST_F(TakeoverTest, FailedUpdateAndFailedApplySayIt)
{
    Build({{"updateStepMs", 50},
           {"updateCompletionCode", 7},
           {"profileApplyResult", 1},
           {"profileApplyStepMs", 200}});
    Show("Profile Status");
    const std::string before = Panel();
    Write("updateStart", 1);
    EXPECT_TRUE(RowReads(2, "         Update Failed"));
    EXPECT_TRUE(PanelIs(before));

    Choose(1);
    const std::string actions = Panel();
    Press(KEY_ENTER);
    EXPECT_TRUE(RowReads(2, "Applying Profile Failed"));
    EXPECT_PANEL("profile_apply_failed");
    EXPECT_TRUE(PanelIs(actions));
    // A failed apply changes nothing of the last applied profile.
    Show("Profile Status");
    EXPECT_EQ(Panel(), before);
}

TEST_F(TakeoverTest, ApplyShowsEveryStateAndEndsOnlyWithTheOutcome)
{
    Build({{"profileApplyStepMs", 400}});
    Choose(3);  // "Sports Feed"
    const std::string before = Panel();
    Press(KEY_ENTER);
    EXPECT_EQ(PanelWrites("profileApplyProfile"), std::vector<std::string>{"Sports Feed"});
    EXPECT_TRUE(RowReads(2, "Validating Profile..."));
    // "Profile is Valid" does not end the display: the apply goes on to state 3.
    EXPECT_TRUE(RowReads(2, "Profile is Valid"));
    EXPECT_TRUE(RowReads(2, "Applying Profile..."));
    EXPECT_PANEL("profile_apply_applying");
    // A key reaching the screen underneath shows at most until the next poll.
    Press({KEY_DOWN, KEY_UP});
    EXPECT_TRUE(RowReads(2, "Applying Profile Succeeded"));
    EXPECT_TRUE(PanelIs(before));
    Show("Profile Status");
    EXPECT_PANEL("profile_status_after_apply");
}

TEST_F(TakeoverTest, ProfilesAreCreatedRenamedAndDeleted)
{
    Build(nlohmann::json::object(), true);
    Show("Profile Config");
    const std::string none = Panel();
    EXPECT_PANEL("profiles_none");
    // ENTER on "<< No Profiles >>" does nothing.
    Press(KEY_DOWN);
    const std::string onEmptyRow = Panel();
    Press(KEY_ENTER);
    EXPECT_EQ(Panel(), onEmptyRow);
    EXPECT_EQ(Current(), "Profile Config");

    // An empty name asks for one and sends nothing.
    Press({KEY_UP, KEY_ENTER, KEY_ENTER});
    ASSERT_EQ(m_pauses, std::vector<Qb::uint32>{1500});
    EXPECT_EQ(Row(m_pausePanels[0], 1), "        Please specify");
    EXPECT_EQ(Row(m_pausePanels[0], 2), "        a profile name");
    EXPECT_TRUE(PanelWrites("profileCreateProfile").empty());
    EXPECT_EQ(Panel(), none);

    // "A" is created and listed.
    auto* pCreate = dynamic_cast<CGenericStringLine*>(m_pProfiles->Select().Style().GetLines().GetLine(0));
    ASSERT_NE(pCreate, nullptr);
    pCreate->SetValue("A");
    Press({KEY_ENTER, KEY_ENTER});
    EXPECT_EQ(PanelWrites("profileCreateProfile"), std::vector<std::string>{"A"});
    EXPECT_EQ(Row(m_pausePanels.back(), 2), "     Creating Profile...");
    EXPECT_PANEL("profiles_one");

    // Renaming "A" to "B" (UP steps A to B) sends "A,B" and retitles the actions.
    Press({KEY_DOWN, KEY_ENTER, KEY_DOWN, KEY_ENTER, KEY_UP, KEY_ENTER});
    EXPECT_EQ(PanelWrites("profileRenameProfile"), std::vector<std::string>{"A,B"});
    EXPECT_PANEL("profile_actions_renamed");

    // Deleted: back on the list, without the name.
    Press({KEY_DOWN, KEY_DOWN, KEY_ENTER});
    EXPECT_EQ(PanelWrites("profileDeleteProfile"), std::vector<std::string>{"B"});
    EXPECT_EQ(Panel(), none);
    // EXIT from the list leaves for the parent.
    Press(KEY_EXIT);
    EXPECT_EQ(Current(), "Profile Status");
    EXPECT_EQ(m_pProfiles->GetMinion(), nullptr);
}

// The progress run alone, with the controller's answers scripted.
class CScriptedUpdate : public CMenuImageUpdate {
public:
    struct Stop_t {};
    std::vector<Qb::int32> stages;  // the last one repeats
    size_t next = 0;
    int pauses = 0;
    int progressReads = 0;
    std::function<void()> onPause;

protected:
    void Pause(Qb::uint32) override
    {
        if (onPause)
            onPause();
        if (++pauses > 60)
            throw Stop_t();
    }
    Qb::int32 ReadNumber(const char* name) override
    {
        const std::string key(name);
        if (key == "updateProgress") {
            ++progressReads;
            return 42;
        }
        if (key == "updateStage")
            return stages[std::min(next++, stages.size() - 1)];
        return 1;
    }
};

class UpdateRunTest : public PanelTest::CPanelTest {};

TEST_F(UpdateRunTest, SettlesOnlyOnTheFourthReadAndShowsTheStage)
{
    // A stage still 3 at the fourth read: the run never gets past the settle loop.
    {
        CScriptedUpdate run;
        run.SetDisplay(&Rig().Display());
        run.stages = {3};
        EXPECT_THROW(run.Run(), CScriptedUpdate::Stop_t);
        EXPECT_EQ(run.progressReads, 0);
    }
    // 3 for three reads, then stage 1 at 42 percent.
    {
        CScriptedUpdate run;
        run.SetDisplay(&Rig().Display());
        run.stages = {3, 3, 3, 1, 1, 3};
        std::vector<std::string> rows;
        run.onPause = [&]() { rows.push_back(Row(Panel(), 2)); };
        run.Run();
        EXPECT_EQ(run.progressReads, 1);
        ASSERT_EQ(rows.size(), 5u);  // three settle pauses, one progress pause, the outcome
        EXPECT_EQ(rows[3], "         Updating: 42%") << ::testing::PrintToString(rows);
        EXPECT_EQ(rows[4], "       Update Successful");
    }
}

TEST(ProfileApplyStateTest, TextsOfTheControllerAreReadStrictly)
{
    Qb::int32 state = -1;
    EXPECT_TRUE(CProfileApplyEvent::ParseState("true", &state));
    EXPECT_EQ(state, 1);
    EXPECT_TRUE(CProfileApplyEvent::ParseState("false", &state));
    EXPECT_EQ(state, 0);
    EXPECT_TRUE(CProfileApplyEvent::ParseState("3", &state));
    EXPECT_EQ(state, 3);
    for (const char* bad : {"", "x", "4x", "99999999999"})
        EXPECT_FALSE(CProfileApplyEvent::ParseState(bad, &state)) << bad;
    EXPECT_EQ(CMenuProfileApply::StateText(3), "Applying Profile...");
    EXPECT_EQ(CMenuProfileApply::StateText(7), "Applying Profile...");
}

}  // namespace
