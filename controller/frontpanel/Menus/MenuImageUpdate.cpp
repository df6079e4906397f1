#include "Menus/MenuImageUpdate.h"

#include <cstdio>

#include "Client/Globals.h"
#include "Client/TavClient.h"
#include "Display/Display.h"
#include "Qb/Str.h"
#include "Qb/Thread.h"
#include "ScreenManager/MenuStyle.h"
#include "ScreenManager/ScreenManager.h"

namespace {

// The manager keeps its lock to itself; takeovers need exactly that lock, so that a
// takeover frame never interleaves with a key's or an event's drawing.
struct CManagerLockOf : CScreenManager {
    static Qb::CMutex* Of(CScreenManager& manager) { return manager.*(&CManagerLockOf::m_pLock); }
};

const char* const kStageNames[] = {"Idle", "Updating", "Verifying", "Finished", "Mirroring"};
const Qb::int32 kStageCount = 5;
const Qb::int32 kStageFinished = 3;
const Qb::uint32 kPollMs = 100;
const Qb::uint32 kOutcomeMs = 5000;

}  // namespace

CTakeoverScreen::CTakeoverScreen()
    : CScreen("Menu Style Basic"),
      m_pManager(nullptr),
      m_pManagerLock(nullptr),
      m_pTaken(nullptr),
      m_bTaken(false)
{
}

CTakeoverScreen::~CTakeoverScreen() {}

void CTakeoverScreen::SetManager(CScreenManager* pManager)
{
    m_pManager = pManager;
    m_pManagerLock = pManager != nullptr ? CManagerLockOf::Of(*pManager) : nullptr;
    // Timer work of this screen then runs under the same lock, and only while it shows.
    SetDrawLock(m_pManagerLock);
}

void CTakeoverScreen::Begin()
{
    m_pTaken = m_pManager != nullptr ? m_pManager->GetCurrentScreen() : nullptr;
    if (m_pTaken != nullptr) {
        m_pTaken->SetDrawEnabled(false);
        m_pTaken->SetOnView(false);  // first: its timer work gives up instead of waiting
        m_pTaken->Leave();
    }
    m_bTaken = true;
    SetOnView(true);
    ShowRow(std::string(), 2, true);
}

void CTakeoverScreen::End()
{
    SetOnView(false);
    m_bTaken = false;
    if (m_pManager == nullptr)
        return;
    // While the manager is being destroyed there is no screen on view, and the taken one
    // may be gone.
    CScreen* pNow = m_pManager->GetCurrentScreen();
    if (pNow == nullptr)
        return;
    if (pNow != m_pTaken) {
        // A key changed screens meanwhile: the taken screen was left by the manager.
        m_pTaken->SetDrawEnabled(true);
        pNow->SetOnView(false);
        pNow->Leave();
    }
    pNow->SetDrawEnabled(true);
    pNow->SetOnView(true);
    pNow->Enter();
    m_pTaken = nullptr;
}

void CTakeoverScreen::ShowRow(const std::string& text, int row, bool clear)
{
    if (m_pDisplay == nullptr)
        return;
    if (clear)
        m_pDisplay->Clear();
    else
        m_pDisplay->ClearLine(row);
    std::string line = text;
    m_pDisplay->WriteAligned(line, row, 0, 0);
    m_pDisplay->RedrawWindow();
    // No key hints: the keys do nothing for the screen underneath while this one shows.
    m_pDisplay->SetRightIndicators(0);
}

void CTakeoverScreen::Pause(Qb::uint32 ms)
{
    Qb::CThread::Sleep(ms);
}

Qb::int32 CTakeoverScreen::ReadNumber(const char* name)
{
    if (m_pClient == nullptr)
        return 0;
    return Qb::Str::ToInt32(m_pClient->GetData(name, ".0"), 0);
}

CMenuImageUpdate::CMenuImageUpdate() {}

std::string CMenuImageUpdate::ProgressText(const std::string& stage, Qb::int32 percent)
{
    char text[80];
    snprintf(text, sizeof text, "         %s: %d%%", stage.c_str(), static_cast<int>(percent));
    return text;
}

void CMenuImageUpdate::Run()
{
    ShowRow(std::string(), 2, true);  // a clear panel without key hints
    // Settle: the unit may still report the last update's finish for a moment. The count
    // is compared for equality on purpose: a stage still 3 at the fourth read keeps this
    // loop polling for ever. Do not turn it into an at-least test.
    int pauses = 0;
    Qb::int32 stage = ReadNumber("updateStage");
    for (;;) {
        Pause(kPollMs);
        ++pauses;
        stage = ReadNumber("updateStage");
        if (pauses == 3 && stage != kStageFinished)
            break;
    }

    Qb::int32 named = 0;
    std::string name;  // empty until a stage other than 0 is seen
    while (stage != kStageFinished) {
        Qb::int32 progress = ReadNumber("updateProgress");
        stage = ReadNumber("updateStage");
        if (stage != named && stage >= 0 && stage < kStageCount) {
            name = kStageNames[stage];
            named = stage;
        }
        ShowRow(ProgressText(name, progress), 2, false);
        Pause(kPollMs);
        stage = ReadNumber("updateStage");
    }

    ShowRow(ReadNumber("updateCompletionCode") == 1 ? "       Update Successful" : "         Update Failed",
            2, true);
    Pause(kOutcomeMs);
}
