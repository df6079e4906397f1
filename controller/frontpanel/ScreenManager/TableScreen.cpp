#include "ScreenManager/TableScreen.h"

#include <algorithm>

#include "Lines/EntryLine.h"
#include "Lines/GenericLine.h"
#include "Lines/GenericList.h"
#include "Lines/GenericDummyLine.h"
#include "Lines/GenericLongList.h"
#include "Qb/Thread.h"
#include "ScreenManager/MenuStyle.h"
#include "ScreenManager/PanelMessage.h"
#include "Zor/Oid.h"
#include "Zor/Param.h"

void WrapRefusal(const std::string& message, std::string rows[2])
{
    // "name: reason": the reason alone, word-wrapped over two panel rows, the rest cut.
    size_t colon = message.find(": ");
    std::string text = colon == std::string::npos ? message : message.substr(colon + 2);
    const size_t width = 30;
    size_t row = 0;
    size_t at = 0;
    rows[0].clear();
    rows[1].clear();
    while (at < text.size() && row < 2) {
        size_t end = text.find(' ', at);
        std::string word = text.substr(at, end == std::string::npos ? std::string::npos : end - at);
        at = end == std::string::npos ? text.size() : end + 1;
        if (!rows[row].empty() && rows[row].size() + 1 + word.size() > width)
            ++row;
        if (row >= 2)
            break;
        rows[row] += (rows[row].empty() ? "" : " ") + word.substr(0, width);
    }
}

void EraseInstance(Zor::CParam& values, const std::string& object, const std::string& instance)
{
    if (!values.IsMap() || !values.KeyExists(object))
        return;
    const Zor::CParam& old = values[object];
    Zor::CParam kept(Zor::PT_MAP);
    for (int i = 0; old.IsMap() && i < old.Length(); ++i)
        if (old.GetKey(i) != instance)
            kept[old.GetKey(i)] = old[old.GetKey(i)];
    values[object] = kept;
}

CLineTable::CLineTable(std::vector<CRow> rows, bool editable)
    : m_owned(std::move(rows)), m_bEditable(editable), m_bMade(false)
{
    Keep(m_owned.data(), m_owned.size());
}

CLineTable::CLineTable(const CRow* pRows, size_t count, bool editable) : m_bEditable(editable), m_bMade(false)
{
    Keep(pRows, count);
}

void CLineTable::Keep(const CRow* pRows, size_t count)
{
    // Rows for hardware this unit lacks are never made.
    for (size_t i = 0; i < count; ++i)
        if (pRows[i].present)
            m_rows.push_back(&pRows[i]);
}

std::string CLineTable::Resolve(const std::string& instance) const
{
    return instance == kCard ? m_strCard : instance;
}

std::vector<std::string> CLineTable::Requests() const
{
    std::vector<std::string> keys;
    auto add = [&keys](const std::string& key) {
        for (const std::string& known : keys)
            if (known == key)
                return;
        keys.push_back(key);
    };
    for (const CRow* pRow : m_rows) {
        const CRow& row = *pRow;
        if (row.kind == CRow::KIND_RECORD) {
            add(row.object + kEach);
            continue;
        }
        for (const auto& read : row.Reads()) {
            std::string instance = Resolve(read.second);
            if (instance.empty())
                continue;  // a card row of a screen that was given no card
            add(read.first + instance);
        }
    }
    return keys;
}

bool CLineTable::IsPattern(const std::string& object) const
{
    for (const std::string& key : Requests())
        if (key == object + kEach)
            return true;
    return false;
}

std::vector<std::string> CLineTable::InstancesOf(const CRow& row, const Zor::CParam& values) const
{
    std::vector<std::string> instances;
    if (!values.IsMap() || !values.KeyExists(row.object))
        return instances;
    // A record may be limited to the instances under a card (or a fixed prefix).
    std::string within = row.kind == CRow::KIND_RECORD ? Resolve(row.instance) : std::string();
    const Zor::CParam& found = values[row.object];
    for (int i = 0; found.IsMap() && i < found.Length(); ++i) {
        std::string instance = found.GetKey(i);
        if (within.empty() || instance.compare(0, within.size(), within) == 0)
            instances.push_back(instance);
    }
    // In oid order, as a read lists them, also after an event brought a new one.
    std::stable_sort(instances.begin(), instances.end(),
                     [](const std::string& a, const std::string& b) { return Zor::COid(a) < Zor::COid(b); });
    return instances;
}

std::vector<std::vector<std::string>> CLineTable::Shape(const Zor::CParam& values) const
{
    std::vector<std::vector<std::string>> shape;
    bool inRecord = false;
    for (const CRow* pRow : m_rows) {
        const CRow& row = *pRow;
        if (row.kind == CRow::KIND_RECORD) {
            inRecord = true;
            shape.push_back(InstancesOf(row, values));
        } else if (row.kind == CRow::KIND_END_RECORD) {
            inRecord = false;
        } else if (!inRecord && row.instance == kEach) {
            shape.push_back(InstancesOf(row, values));
        }
    }
    return shape;
}

void CLineTable::MakeLine(CMenuStyle& style, const CRow& row, const std::string& instance,
                          const Zor::CParam& values)
{
    CGenericLine* pLine = row.MakeLine(m_bEditable);
    // Editable lines read their object at every redraw and write it on ENTER; text rows
    // are filled from the cache instead.
    const bool adds = row.kind == CRow::KIND_ADD_ADDRESS || row.kind == CRow::KIND_ADD_ROW;
    std::string bound = adds ? Resolve(row.instance) : instance;
    if (row.IsBound(m_bEditable) && !bound.empty())
        pLine->BindObject(row.object, bound);
    std::string label = row.LabelFor(CRowValues(values, m_strCard, instance));
    if (!style.AppendLine(pLine, label.c_str(), row.target)) {
        delete pLine;
        return;
    }
    m_made.push_back(Made_t{&row, instance, pLine, {}});
    // A two-row list keeps its second row in the next slot, shown and hidden with it.
    CGenericLongList* pTwoRows = dynamic_cast<CGenericLongList*>(pLine);
    CGenericLine* pSecondRow = pTwoRows != nullptr ? pTwoRows->TakeDummyLine() : nullptr;
    if (pSecondRow != nullptr && !style.AppendLine(pSecondRow, "", std::string()))
        delete pSecondRow;
}

bool CLineTable::Make(CMenuStyle& style, const Zor::CParam& values)
{
    std::vector<std::vector<std::string>> shape = Shape(values);
    if (m_bMade && shape == m_shape)
        return false;

    style.GetLines().Clear();
    style.GetCursor().SetItemCount(0);
    m_made.clear();
    size_t group = 0;
    for (size_t i = 0; i < m_rows.size(); ++i) {
        const CRow& row = *m_rows[i];
        if (row.kind == CRow::KIND_RECORD) {
            size_t end = i + 1;
            while (end < m_rows.size() && m_rows[end]->kind != CRow::KIND_END_RECORD)
                ++end;
            const std::vector<std::string>& records = shape[group++];
            if (records.empty() && !row.missing.empty()) {
                MakeLine(style, row, std::string(), values);  // the record row itself: a heading
                m_made.back().pLine->SetLabel(row.missing.c_str());
            }
            for (const std::string& record : records)
                for (size_t r = i + 1; r < end; ++r)
                    MakeLine(style, *m_rows[r], m_rows[r]->instance == kEach ? record : Resolve(m_rows[r]->instance),
                             values);
            i = end;  // past the end row
            continue;
        }
        if (row.instance == kEach) {
            for (const std::string& instance : shape[group])
                MakeLine(style, row, instance, values);
            ++group;
            continue;
        }
        MakeLine(style, row, Resolve(row.instance), values);
    }
    m_shape = shape;
    m_bMade = true;
    return true;
}

void CLineTable::Fill(CMenuStyle& style, const Zor::CParam& values, bool all)
{
    for (Made_t& made : m_made) {
        const CRow& row = *made.pRow;
        CRowValues v(values, m_strCard, made.instance);
        if (row.kind == CRow::KIND_RECORD) {  // the empty-list text
            if (!row.shownWhen.empty())
                style.SetLineHidden(made.pLine, !row.IsShown(v));
            continue;
        }
        if (!row.labels.empty())
            made.pLine->SetLabel(row.LabelFor(v).c_str());
        if (!row.shownWhen.empty())
            style.SetLineHidden(made.pLine, !row.IsShown(v));
        if (row.IsText(m_bEditable) && (!row.object.empty() || row.compute)) {
            made.pLine->SetValue(row.ShownFor(v));
            continue;
        }
        if (!row.IsBound(m_bEditable))
            continue;
        if (!row.fromObject.empty()) {
            std::vector<std::pair<std::string, std::string>> entries = row.EntriesFrom(v, m_strCard);
            CGenericList* pList = dynamic_cast<CGenericList*>(made.pLine);
            if (pList != nullptr && entries != made.entries) {
                pList->ClearEntries();
                for (const auto& entry : entries)
                    pList->AddEntry(entry.first, entry.second);
                if (!row.unknown.empty())
                    pList->AddEntry(row.unknown, "");  // the entry for any other value
                made.entries = entries;
                all = true;  // choose the current value among the new entries
            }
        }
        if (!row.suffixWhen.empty())
            made.pLine->SetSuffix((row.unit + row.SuffixFor(v)).c_str());
        const Zor::CParam& value = v.Param(row.object, made.instance);
        if (all && !value.IsNull())
            made.pLine->SetValue(value.ToString(""));
    }
}

void CLineTable::ApplyLockMode(bool readOnly)
{
    for (const Made_t& made : m_made) {
        if (!made.pLine->IsSelectable())
            continue;
        made.pLine->SetEnabled(!readOnly);
        made.pLine->SetReadOnly(readOnly || made.pRow->readOnly);
    }
}

CGenericLine* CLineTable::Find(const std::string& object, const std::string& instance) const
{
    for (const Made_t& made : m_made)
        if (made.pRow->object == object && made.instance == instance)
            return made.pLine;
    return nullptr;
}

bool CLineTable::Update(CMenuStyle& style, const Zor::CParam& values)
{
    const CGenericLine* pSelected = style.GetSelectedLine();
    const Made_t* pWas = nullptr;
    for (const Made_t& made : m_made)
        if (made.pLine == pSelected)
            pWas = &made;
    const CRow* pRow = pWas != nullptr ? pWas->pRow : nullptr;
    const std::string instance = pWas != nullptr ? pWas->instance : std::string();
    const bool made = Make(style, values);
    Fill(style, values, false);
    if (made && pRow != nullptr)
        for (const Made_t& again : m_made)
            if (again.pRow == pRow && again.instance == instance)
                style.SelectLine(again.pLine);
    return made;
}

const CRow* CLineTable::RowOf(const CGenericLine* pLine) const
{
    for (const Made_t& made : m_made)
        if (made.pLine == pLine)
            return made.pRow;
    return nullptr;
}

// --- Settings pages ---

CConfigTableScreen::CConfigTableScreen(const std::string& title, const std::string& parent, std::vector<CRow> lines,
                                       const std::string& style)
    : CTavConfigScreen(style), m_table(std::move(lines), true)
{
    Name(title, parent);
}

CConfigTableScreen::CConfigTableScreen(const std::string& title, const std::string& parent, const CRow* pLines,
                                       size_t count, const std::string& style)
    : CTavConfigScreen(style), m_table(pLines, count, true)
{
    Name(title, parent);
}

void CConfigTableScreen::Name(const std::string& title, const std::string& parent)
{
    m_pMenu->SetTitle(title);
    m_pMenu->SetParentScreen(parent);
    SetMenuNameText(title);
}

void CConfigTableScreen::BuildLines()
{
    for (const std::string& key : m_table.Requests())
        AddRequest(key);
    m_table.Make(*m_pMenu, m_values);
}

void CConfigTableScreen::AfterLoad()
{
    // New lines (the instances of a kEach row changed) have not seen the lock mode yet.
    if (m_table.Make(*m_pMenu, m_values))
        m_iLockMode = 0;
    PushToMenu();
    m_table.Fill(*m_pMenu, m_values, true);
}

void CConfigTableScreen::SubscribeAll()
{
    SubscribeKeys(m_table.Requests());
}

void CConfigTableScreen::ApplyLockMode(bool readOnly)
{
    // The table reaches the lines a screen has hidden, which the base's walk does not.
    m_table.ApplyLockMode(readOnly);
}

void CConfigTableScreen::OnManagedEvent(const std::string& name, const Zor::COid& instance,
                                        const Zor::CParam& value)
{
    RunOnViewFromEvent([&]() {
        if (!m_values.IsMap())
            m_values.Clear(Zor::PT_MAP);
        // A destroyed table row (row status 6) leaves its record.
        // (The cheap tests first: this runs for every event.)
        const bool destroyed = name.size() > 9 && name.compare(name.size() - 9, 9, "RowStatus") == 0 &&
                               value.ToString("") == "6" && m_table.IsPattern(name);
        if (destroyed)
            EraseInstance(m_values, name, instance.OidStr());
        else
            m_values[name][instance.OidStr()] = value;
        if (m_table.Update(*m_pMenu, m_values))
            m_table.ApplyLockMode(m_bReadOnly);
        PushToMenu();
        m_pMenu->Redraw(1);
    });
}

std::string CConfigTableScreen::HandleKey(const KeyPress_t& key)
{
    CGenericLine* pLine = m_pMenu->GetSelectedLine();
    if (pLine != nullptr)
        pLine->ClearRefusal();
    std::string next = CTavConfigScreen::HandleKey(key);
    // A value the unit refused: say why (its words, over two rows), nothing changed.
    if (pLine != nullptr && !pLine->GetRefusal().empty()) {
        std::string rows[2];
        WrapRefusal(pLine->GetRefusal(), rows);
        pLine->ClearRefusal();
        ShowMessage(rows[0], rows[1]);
        return next;
    }
    // An address the row's own rule refused: say why, nothing was written.
    const CRow* pRow = pLine != nullptr ? m_table.RowOf(pLine) : nullptr;
    CEntryLine* pEntry = dynamic_cast<CEntryLine*>(pLine);
    if (pRow != nullptr && pRow->check && pEntry != nullptr && key.key == KEY_ENTER && pEntry->WasRefused())
        ShowMessage(pRow->checkLine1, pRow->checkLine2);
    return next;
}

void CConfigTableScreen::Pause(Qb::uint32 ms)
{
    Qb::CThread::Sleep(ms);
}

void CConfigTableScreen::ShowMessage(const std::string& line1, const std::string& line2, bool redraw)
{
    PushToMenu();
    DrawPanelMessage(m_pDisplay, line1, line2);
    Pause(kPanelMessageMs);
    if (!redraw)
        return;
    PushToMenu();
    m_pMenu->Redraw(2);
}

// --- Status pages ---

CStatusTableScreen::CStatusTableScreen(const std::string& title, const std::string& parent, std::vector<CRow> lines,
                                       const std::string& style)
    : CTavStatusScreen(style), m_table(std::move(lines), false)
{
    Name(title, parent);
}

CStatusTableScreen::CStatusTableScreen(const std::string& title, const std::string& parent, const CRow* pLines,
                                       size_t count, const std::string& style)
    : CTavStatusScreen(style), m_table(pLines, count, false)
{
    Name(title, parent);
}

void CStatusTableScreen::Name(const std::string& title, const std::string& parent)
{
    m_pMenu->SetTitle(title);
    m_pMenu->SetParentScreen(parent);
}

void CStatusTableScreen::BuildLines()
{
    for (const std::string& key : m_table.Requests())
        AddRequest(key);
    m_table.Make(*m_pMenu, m_values);
}

void CStatusTableScreen::AfterLoad()
{
    if (m_table.Make(*m_pMenu, m_values))
        m_iLockMode = 0;
    PushToMenu();
}

void CStatusTableScreen::SubscribeAll()
{
    SubscribeKeys(m_table.Requests());
}

void CStatusTableScreen::UpdateLines(int mode)
{
    // A new or removed instance (an alarm raised, a row added) makes the rows again.
    if (m_table.Update(*m_pMenu, m_values)) {
        m_table.ApplyLockMode(m_bReadOnly);
        mode = mode < 1 ? 1 : mode;
    }
    CTavStatusScreen::UpdateLines(mode);
}
