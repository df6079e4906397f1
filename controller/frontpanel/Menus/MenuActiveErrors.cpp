#include "Menus/MenuActiveErrors.h"

#include "Client/TavClient.h"
#include "Lines/GenericDisplayLine.h"
#include "Lines/GenericScrollLine.h"
#include "ScreenManager/MenuStyle.h"

namespace {

const Qb::int32 kAlarmRaised = 3;

}  // namespace

CMenuActiveErrors::CMenuActiveErrors() : CScreen("Menu Style Basic"), m_bNoErrors(true)
{
    m_pMenu->SetTitle("Active Errors");
    m_pMenu->SetParentScreen("Home Main");
}

void CMenuActiveErrors::Enter()
{
    BuildLines();
    CScreen::Enter();
}

void CMenuActiveErrors::BuildLines()
{
    // The style's lines own the rows; the previous entry's rows go with the clear.
    m_pMenu->GetLines().Clear();
    m_pMenu->GetCursor().SetItemCount(0);
    m_pMenu->GetCursor().Reset();
    m_bNoErrors = true;

    Zor::CParam values;
    if (m_pClient != nullptr) {
        Zor::CParam request(Zor::PT_LIST);
        request.AddParam(Zor::CParam::String("alarmState.%"));
        request.AddParam(Zor::CParam::String("syscondLoc.%"));
        request.AddParam(Zor::CParam::String("syscondName.%"));
        Zor::CRet ret = m_pClient->GetValues(kZorClientName, request);
        if (ret.Success() && ret.Val().IsMap())
            values = ret.Val();
    }

    // Const lookups: a missing name or instance reads as null, that is, empty text.
    const Zor::CParam& found = values;
    const Zor::CParam& states = found["alarmState"];
    for (int i = 0; i < states.Length(); ++i) {
        std::string instance = states.GetKey(i);
        if (states[instance].ToInt32(0) != kAlarmRaised)
            continue;
        std::string text = found["syscondName"][instance].ToString("") +
                           " - Loc: " + found["syscondLoc"][instance].ToString("");
        m_pMenu->AppendLine(new CGenericScrollLine(text), "");
        m_bNoErrors = false;
    }
    if (m_bNoErrors) {
        CGenericLine* pLine = new CGenericDisplayLine("No Active Errors");
        m_pMenu->AppendLine(pLine, "");
    }
}
