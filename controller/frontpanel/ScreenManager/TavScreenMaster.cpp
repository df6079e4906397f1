#include "ScreenManager/TavScreenMaster.h"

#include "Qb/Thread.h"
#include "ScreenManager/MenuStyle.h"
#include "ScreenManager/ScreenMinion.h"

CTavScreenMaster::CTavScreenMaster(const std::string& parent, const std::string& style)
    : CScreen(style), m_pMinion(nullptr)
{
    m_pMenu->SetParentScreen(parent);
}

CTavScreenMaster::~CTavScreenMaster() {}

std::string CTavScreenMaster::HandleKey(const KeyPress_t& key)
{
    if (m_pMinion == nullptr)
        return "No Screen";
    return OnResult(m_pMinion->HandleKey(key));
}

void CTavScreenMaster::Enter()
{
    OnEnter();
}

void CTavScreenMaster::Refresh(int mode)
{
    RunOnViewFromEvent([this, mode]() {
        if (m_pMinion != nullptr)
            m_pMinion->Draw(mode);
    });
}

bool CTavScreenMaster::IsEditing()
{
    return m_pMinion != nullptr && m_pMinion->IsEditing();
}

void CTavScreenMaster::Pause(Qb::uint32 ms)
{
    Qb::CThread::Sleep(ms);
}

void CTavScreenMaster::GiveControl(CScreenMinion* pMinion)
{
    m_pMinion = pMinion;
    if (pMinion == nullptr)
        return;
    pMinion->Build();
    pMinion->Draw(2);
}
