#include "Lines/GenericDisplayLine.h"

#include "Display/Display.h"

CGenericDisplayLine::CGenericDisplayLine(const std::string& text)
{
    m_uKind = 1;
    m_uIdleHint = 6;
    m_uEditHint = 4;
    SetValue(text);
}

bool CGenericDisplayLine::SetValue(const char* value)
{
    m_strText = value != nullptr ? value : "";
    CDisplay::ReplaceUnsupportedChars(m_strText);
    return true;
}
