#include "Lines/GenericLine.h"

#include <cstring>

#include "Client/TavClient.h"
#include "Display/Display.h"

CGenericLine::CGenericLine()
    : m_uKind(0),
      m_bDisabled(false),
      m_bState2(false),
      m_strPlaceholder("--"),
      m_bFlag0(false),
      m_bFlag1(false),
      m_bFlag2(false),
      m_bFlag3(false),
      m_iLabelLength(0),
      m_uIdleHint(0),
      m_uEditHint(0),
      m_iSuffixLength(0),
      m_iLabelColumn(1),
      m_bEditing(false),
      m_bHasLabel(false),
      m_bHasSuffix(false),
      m_bTakesKeysWhileIdle(false),
      m_bSelectable(true),
      m_pDisplay(nullptr),
      m_pClient(nullptr),
      m_iLineWidth(30),
      m_bReadOnly(false),
      m_bBound(false),
      m_bSpare(false),
      m_bHasCompanion(false)
{
    m_cursor.SetItemCount(0);
}

CGenericLine::~CGenericLine() {}

bool CGenericLine::HandleKey(const KeyPress_t&)
{
    return m_bEditing;
}

bool CGenericLine::SetValue(const char*)
{
    return true;
}

bool CGenericLine::SetValue(const std::string& value)
{
    return SetValue(value.c_str());
}

bool CGenericLine::SetIndex(int)
{
    return true;
}

std::string CGenericLine::GetValue()
{
    return std::string();
}

void CGenericLine::Draw(int row)
{
    DrawLayout(row, GetValue(), false);
}

void CGenericLine::ShowCursor(int row)
{
    m_cursor.SetRow(row);
    m_cursor.Draw();
}

void CGenericLine::HideCursor(int row)
{
    m_cursor.SetRow(row);
    m_cursor.Erase();
}

void CGenericLine::RefreshValue()
{
    if (m_bBound)
        SetValue(ReadObject());
}

void CGenericLine::ReloadValue()
{
    if (!m_strObjectName.empty() && !m_strObjectInstance.empty())
        SetValue(ReadObject());
}

Qb::uint32 CGenericLine::WriteObject(const std::string& value)
{
    if (m_strObjectName.empty())
        return 0;
    // Deliberate: a name without an instance sends nothing yet reports success (the name's
    // length), and callers rely on that.
    if (m_strObjectInstance.empty())
        return static_cast<Qb::uint32>(m_strObjectName.length());
    if (m_pClient == nullptr)
        return 0;
    Zor::CRet ret = m_pClient->SendOp(kZorClientName, m_strObjectName, Zor::COid(m_strObjectInstance), value);
    // Kept for the screen, which tells the user why the unit refused the value.
    m_strRefusal = ret.Success() ? std::string() : ret.Msg();
    return ret.Success() ? 1 : 0;
}

std::string CGenericLine::ReadObject()
{
    if (m_strObjectName.empty() || m_strObjectInstance.empty() || m_pClient == nullptr)
        return std::string();
    if (m_strObjectInstance != ".%")
        return m_pClient->GetData(m_strObjectName, m_strObjectInstance);

    // Any instance: the first one the controller lists.
    Zor::CParam request(Zor::PT_LIST);
    request.AddParam(Zor::CParam::String(m_strObjectName + ".%"));
    Zor::CRet ret = m_pClient->GetValues(kZorClientName, request);
    const Zor::CParam& instances = ret.Val()[m_strObjectName];
    if (instances.Length() == 0)
        return std::string();
    return instances[instances.GetKey(0)].ToString("");
}

void CGenericLine::SetLabel(const char* label)
{
    m_strLabel = label != nullptr ? label : "";
    m_iLabelLength = static_cast<Qb::int32>(m_strLabel.length());
    m_bHasLabel = true;
}

void CGenericLine::SetSuffix(const char* suffix)
{
    m_strSuffix = suffix != nullptr ? suffix : "";
    m_iSuffixLength = static_cast<Qb::int32>(m_strSuffix.length());
    m_bHasSuffix = true;
}

void CGenericLine::BindObject(const std::string& name, const std::string& instance)
{
    m_strObjectName = name;
    m_strObjectInstance = instance;
    m_bBound = true;
}

void CGenericLine::SetObjectName(const std::string& name)
{
    m_strObjectName = name;
    m_bBound = true;
}

void CGenericLine::SetObjectInstance(const std::string& instance)
{
    m_strObjectInstance = instance;
    m_bBound = true;
}

void CGenericLine::SetDisplay(CDisplay* pDisplay)
{
    m_pDisplay = pDisplay;
    m_cursor.SetDisplay(pDisplay);
}

void CGenericLine::DrawLayout(int row, const std::string& value, bool highlight)
{
    if (m_pDisplay == nullptr)
        return;
    DrawLabel(row);
    const int column = ValueColumn();
    // A line stays on its own row: a value read from the controller may be longer than the
    // row has room for, and the window would carry the rest into the next row.
    const int room = m_iLineWidth - column - (m_bHasSuffix ? m_iSuffixLength : 0);
    const std::string shown = static_cast<int>(value.size()) > room && room >= 0 ? value.substr(0, room) : value;
    if (highlight && !shown.empty())
        m_pDisplay->QueueHighlight(shown, row, column);
    else
        m_pDisplay->WriteAt(shown, row, column);
    DrawTail(row, column + static_cast<int>(shown.length()));
}

void CGenericLine::DrawLabel(int row)
{
    m_pDisplay->ClearLine(row);
    std::string lead(static_cast<size_t>(m_iLabelColumn > 0 ? m_iLabelColumn : 0), ' ');
    if (m_bHasLabel)
        lead += m_strLabel;
    if (static_cast<int>(lead.size()) > m_iLineWidth)
        lead.resize(static_cast<size_t>(m_iLineWidth));  // as for values: never into the next row
    m_pDisplay->WriteAt(lead, row, 0);
}

void CGenericLine::DrawTail(int row, int column)
{
    if (m_bHasSuffix) {
        m_pDisplay->WriteAt(m_strSuffix, row, column);
        column += m_iSuffixLength;
    }
    if (column < m_iLineWidth)
        m_pDisplay->WriteAt(std::string(static_cast<size_t>(m_iLineWidth - column), ' '), row, column);
}
