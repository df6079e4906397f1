#include "Menus/MenuInputPortSelect.h"

namespace {

std::vector<CRow> Lines(const char* activePort, int ports)
{
    std::vector<CRow> rows;
    for (int port = 1; port <= ports; ++port) {
        const std::string number = std::to_string(port);
        const std::string label = "Port " + number;
        rows.push_back(Command(label.c_str(), activePort, kCard, number.c_str())
                           .SuffixWhen(activePort, kCard, number.c_str(), " (Selected)"));
    }
    return rows;
}

}  // namespace

CMenuInputPortSelect::CMenuInputPortSelect(const std::string& title, const std::string& parent,
                                           const char* activePort, const std::string& card, int ports)
    : CConfigTableScreen(title, parent, Lines(activePort, ports))
{
    Table().SetCard(card);
}
