#include "Menus/MenuMain.h"

#include <string>

#include "Lines/GenericDisplayLine.h"
#include "ScreenManager/MenuStyle.h"

namespace {

struct Section_t {
    const char* label;
    const char* screen;
};

// In menu order; "T2MI" only on units with the T2-MI subsystem.
const Section_t kSections[] = {
    {"Inputs", "Input Settings"},
    {"T2MI", "T2-MI Status"},
    {"Conditional Access", "Conditional Access"},
    {"Decoding", "Decoding"},
    {"Processing", "Processing"},
    {"Baseband Outputs", "Baseband Outputs"},
    {"Transport Stream Outputs", "Transport Stream Outputs"},
    {"Admin", "Admin"},
    {"Active Errors", "Active Errors"},
};

}  // namespace

CMenuMain::CMenuMain(bool t2mi) : CScreen("Menu Style Basic"), m_bT2Mi(t2mi)
{
    m_pMenu->SetTitle("Main Menu");
    m_pMenu->SetParentScreen("Home");
    for (const Section_t& section : kSections) {
        CGenericLine* pLine = new CGenericDisplayLine();
        m_pMenu->AppendLine(pLine, section.label, section.screen);
        m_sections.push_back(pLine);  // owned by the style's lines
    }
    ShowSection("T2MI", m_bT2Mi);
}

CMenuMain::~CMenuMain() {}

void CMenuMain::SetDecoderPresent(bool present)
{
    ShowSection("Decoding", present);
    ShowSection("Processing", present);
    ShowSection("Baseband Outputs", present);
}

void CMenuMain::SetConditionalAccessPresent(bool present)
{
    ShowSection("Conditional Access", present);
}

void CMenuMain::ShowSection(const char* label, bool shown)
{
    for (size_t i = 0; i < m_sections.size(); ++i)
        if (std::string(kSections[i].label) == label)
            m_pMenu->SetLineHidden(m_sections[i], !shown);
}
