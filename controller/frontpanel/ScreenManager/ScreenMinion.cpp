#include "ScreenManager/ScreenMinion.h"

#include "Display/Display.h"
#include "Qb/Thread.h"
#include "ScreenManager/MenuStyle.h"
#include "ScreenManager/MenuStyleBasic.h"
#include "ScreenManager/PanelMessage.h"
#include "ScreenManager/TavScreenMaster.h"

CScreenMinion::CScreenMinion(CTavScreenMaster* pMaster) : m_pMaster(pMaster), m_pStyle(new CMenuStyleBasic())
{
}

CScreenMinion::~CScreenMinion() {}

CTavClient* CScreenMinion::Client() const
{
    return m_pMaster->GetClient();
}

CDisplay* CScreenMinion::Display() const
{
    return m_pMaster->GetDisplay();
}

void CScreenMinion::Push()
{
    m_pStyle->SetClient(Client());
    m_pStyle->SetDisplay(Display());
}

void CScreenMinion::Draw(int mode)
{
    Push();
    m_pStyle->Redraw(mode);
}

bool CScreenMinion::IsEditing() const
{
    return m_pStyle->IsEditing();
}

void CScreenMinion::ResetStyle(const std::string& title)
{
    m_pStyle.reset(new CMenuStyleBasic());
    m_pStyle->SetTitle(title);
    Push();
}

void CScreenMinion::PassKey(const KeyPress_t& key)
{
    Push();
    (void)m_pStyle->HandleKey(key);
}

int CScreenMinion::SelectedIndex() const
{
    return m_pStyle->GetCursor().GetIndex();
}

void CScreenMinion::ShowMessage(const std::string& line1, const std::string& line2)
{
    DrawPanelMessage(Display(), line1, line2);
}

void CScreenMinion::Pause(Qb::uint32 ms)
{
    m_pMaster->Pause(ms);
}
