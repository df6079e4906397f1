#include "Lines/GenericCommandLine.h"

CGenericCommandLine::CGenericCommandLine(const std::string& value) : m_strCommand(value) {}

bool CGenericCommandLine::HandleKey(const KeyPress_t& key)
{
    if (key.key != KEY_ENTER || m_bReadOnly || !IsEnabled())
        return false;
    bool written = WriteObject(m_strCommand) != 0;
    if (m_onCommit)
        m_onCommit(written);
    return false;  // nothing to edit: the selection stays where it is
}
