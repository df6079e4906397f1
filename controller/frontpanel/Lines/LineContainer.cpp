#include "Lines/LineContainer.h"

#include <algorithm>

#include "Lines/GenericLine.h"

CLineContainer::CLineContainer() : m_pClient(nullptr), m_pDisplay(nullptr) {}

CLineContainer::~CLineContainer()
{
    Clear();
}

int CLineContainer::AddSlot(const std::string& target)
{
    int index = static_cast<int>(m_all.size());
    m_all.push_back(Entry{nullptr, target, index});
    m_shown.push_back(index);
    return index;
}

void CLineContainer::Clear()
{
    for (Entry& entry : m_all)
        delete entry.pLine;
    m_all.clear();
    m_shown.clear();
}

bool CLineContainer::SetLine(CGenericLine* pLine, unsigned index)
{
    if (pLine != nullptr) {
        pLine->SetClient(m_pClient);
        pLine->SetDisplay(m_pDisplay);
    }
    if (index >= m_all.size())
        return false;
    Entry& entry = m_all[index];
    if (entry.pLine != pLine)
        delete entry.pLine;
    entry.pLine = pLine;
    return true;
}

CGenericLine* CLineContainer::GetLine(int position) const
{
    if (position < 0 || position >= GetCount())
        return nullptr;
    return m_all[static_cast<size_t>(m_shown[static_cast<size_t>(position)])].pLine;
}

int CLineContainer::FindIndex(const CGenericLine* pLine) const
{
    for (const Entry& entry : m_all)
        if (entry.pLine == pLine)
            return entry.iIndex;
    return -1;
}

int CLineContainer::FindPosition(const CGenericLine* pLine) const
{
    for (size_t i = 0; i < m_shown.size(); ++i)
        if (m_all[static_cast<size_t>(m_shown[i])].pLine == pLine)
            return static_cast<int>(i);
    return -1;
}

bool CLineContainer::ShowLine(int index)
{
    if (index < 0 || index >= GetSlotCount())
        return false;
    auto at = std::lower_bound(m_shown.begin(), m_shown.end(), index);
    if (at == m_shown.end() || *at != index)
        m_shown.insert(at, index);
    return true;
}

bool CLineContainer::HideLine(int index)
{
    auto at = std::find(m_shown.begin(), m_shown.end(), index);
    if (at == m_shown.end())
        return false;
    m_shown.erase(at);
    return true;
}

std::string CLineContainer::GetTarget(int position) const
{
    if (position < 0 || position >= GetCount())
        return "No Screen";
    const std::string& target = m_all[static_cast<size_t>(m_shown[static_cast<size_t>(position)])].strTarget;
    return target.empty() ? "No Screen" : target;
}

bool CLineContainer::RemoveSlot(int index)
{
    if (index < 0 || index >= GetSlotCount())
        return false;
    delete m_all[static_cast<size_t>(index)].pLine;
    m_all.erase(m_all.begin() + index);
    for (size_t i = static_cast<size_t>(index); i < m_all.size(); ++i)
        m_all[i].iIndex = static_cast<int>(i);
    HideLine(index);
    for (int& shown : m_shown)
        if (shown > index)
            --shown;
    return true;
}
