#include "ScreenManager/TableScreen.h"

#include "Lines/GenericLine.h"
#include "ScreenManager/MenuStyle.h"
#include "Zor/Param.h"

namespace {

const Zor::CParam& ValueOf(const Zor::CParam& values, const std::string& object, const std::string& instance)
{
    static const Zor::CParam kNull;
    if (!values.IsMap() || !values.KeyExists(object))
        return kNull;
    const Zor::CParam& instances = values[object];
    if (!instances.IsMap() || !instances.KeyExists(instance))
        return kNull;
    return instances[instance];
}

}  // namespace

CLineTable::CLineTable(std::vector<CLineSpec> specs, bool editable)
    : m_specs(std::move(specs)), m_bEditable(editable), m_bMade(false)
{
}

std::string CLineTable::Resolve(const std::string& instance) const
{
    return instance == kCard ? m_strCard : instance;
}

std::vector<std::string> CLineTable::Requests() const
{
    std::vector<std::string> keys;
    for (const CLineSpec& spec : m_specs) {
        if (spec.object.empty())
            continue;
        std::string instance = Resolve(spec.instance);
        if (instance.empty())
            continue;  // a card row of a screen that was given no card
        keys.push_back(spec.object + instance);
    }
    return keys;
}

std::vector<std::vector<std::string>> CLineTable::EachInstances(const Zor::CParam& values) const
{
    std::vector<std::vector<std::string>> each;
    for (const CLineSpec& spec : m_specs) {
        if (spec.instance != kEach)
            continue;
        std::vector<std::string> instances;
        if (values.IsMap() && values.KeyExists(spec.object)) {
            const Zor::CParam& found = values[spec.object];
            for (int i = 0; found.IsMap() && i < found.Length(); ++i)
                instances.push_back(found.GetKey(i));
        }
        each.push_back(instances);
    }
    return each;
}

bool CLineTable::Make(CMenuStyle& style, const Zor::CParam& values)
{
    std::vector<std::vector<std::string>> each = EachInstances(values);
    if (m_bMade && each == m_each)
        return false;

    style.GetLines().Clear();
    style.GetCursor().SetItemCount(0);
    m_made.clear();
    size_t eachRow = 0;
    for (const CLineSpec& spec : m_specs) {
        std::vector<std::string> instances;
        if (spec.instance == kEach)
            instances = each[eachRow++];
        else
            instances.push_back(Resolve(spec.instance));
        for (const std::string& instance : instances) {
            CGenericLine* pLine = spec.MakeLine(m_bEditable);
            // Editable lines read their object at every redraw and write it on ENTER; text
            // rows are filled from the cache instead.
            if (!spec.object.empty() && !instance.empty() && !spec.IsText(m_bEditable) &&
                spec.kind != CLineSpec::KIND_TARGET && spec.kind != CLineSpec::KIND_HEADING)
                pLine->BindObject(spec.object, instance);
            std::string label = spec.LabelFor(instance);
            if (!style.AppendLine(pLine, label.c_str(), spec.target)) {
                delete pLine;
                continue;
            }
            m_made.push_back(Made_t{&spec, instance, pLine});
        }
    }
    m_each = each;
    m_bMade = true;
    return true;
}

void CLineTable::Fill(const Zor::CParam& values, bool all)
{
    for (const Made_t& made : m_made) {
        const CLineSpec& spec = *made.pSpec;
        if (spec.object.empty())
            continue;
        const Zor::CParam& value = ValueOf(values, spec.object, made.instance);
        if (spec.IsText(m_bEditable))
            made.pLine->SetValue(spec.Shown(value));
        else if (all && !value.IsNull())
            made.pLine->SetValue(value.ToString(""));
    }
}

void CLineTable::ApplyLockMode(bool readOnly)
{
    for (const Made_t& made : m_made) {
        if (!made.pLine->IsSelectable())
            continue;
        made.pLine->SetEnabled(!readOnly);
        made.pLine->SetReadOnly(readOnly || made.pSpec->readOnly);
    }
}

CGenericLine* CLineTable::Find(const std::string& object, const std::string& instance) const
{
    for (const Made_t& made : m_made)
        if (made.pSpec->object == object && made.instance == instance)
            return made.pLine;
    return nullptr;
}

// --- Settings pages ---

CConfigTableScreen::CConfigTableScreen(const std::string& title, const std::string& parent,
                                       std::vector<CLineSpec> lines, const std::string& style)
    : CTavConfigScreen(style), m_table(std::move(lines), true)
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
    m_table.Fill(m_values, true);
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
        m_values[name][instance.OidStr()] = value;
        m_table.Fill(m_values, false);
        PushToMenu();
        m_pMenu->Redraw(1);
    });
}

// --- Status pages ---

CStatusTableScreen::CStatusTableScreen(const std::string& title, const std::string& parent,
                                       std::vector<CLineSpec> lines, const std::string& style)
    : CTavStatusScreen(style), m_table(std::move(lines), false)
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

void CStatusTableScreen::UpdateLines(int mode)
{
    m_table.Fill(m_values, false);
    CTavStatusScreen::UpdateLines(mode);
}
