#include "Menus/MenuInputIgmpConfig.h"

#include <cstdio>

#include "Client/TavClient.h"
#include "Lines/GenericLine.h"
#include "ScreenManager/MenuStyle.h"
#include "ScreenManager/ScreenNames.h"
#include "Zor/Param.h"

using namespace ScreenName;

namespace {

constexpr const char* kClearAll = "Clear All";

// Filter rows are indexed by the stream, address type 1 (IPv4), length 4, the address.
std::vector<CRow> Lines(const std::string& rows)
{
    const std::string within = rows + ".";
    return {
        List("Filter Mode: ", "mpegiprcvIgmpFilterMode", kCard, {"Exclude", "Include"}),
        Record("mpegipigmpRowStatus", within.c_str()).Empty("<<No Addresses>>"),
        EditAddress("IP: ", "mpegipigmpRowStatus")
            .Check(IsIgmpSourceAddress, "You are trying to enter an", "invalid IGMP address."),
        EndRecord(),
        AddAddress("Add IP: ", "mpegipigmpRowStatus", rows.c_str())
            .Check(IsIgmpSourceAddress, "You are trying to enter an", "invalid IGMP address."),
        Command(kClearAll, nullptr, nullptr, nullptr),
        Command("Send IGMP Report", "mpegiprcvSendIgmpReport", kCard, "true"),
    };
}

}  // namespace

bool IsIgmpSourceAddress(const std::string& address)
{
    unsigned a = 0, b = 0, c = 0, d = 0;
    char rest = 0;
    if (std::sscanf(address.c_str(), "%u.%u.%u.%u%c", &a, &b, &c, &d, &rest) != 4 || a > 255 || b > 255 ||
        c > 255 || d > 255)
        return false;
    // 0/8 (this network), 127/8 (loopback), 224/4 (multicast), 240/4 (reserved, broadcast).
    return a != 0 && a != 127 && a < 224;
}

CMenuInputIgmpConfig::CMenuInputIgmpConfig(int card, int stream, const std::string& input)
    : CConfigTableScreen(InputsIgmp(card, stream), kInputs, Lines(input + ".1.4")),
      m_strRows(input + ".1.4.")
{
    Table().SetCard(input);
}

std::string CMenuInputIgmpConfig::HandleKey(const KeyPress_t& key)
{
    CGenericLine* pLine = m_pMenu->GetSelectedLine();
    if (key.key == KEY_ENTER && pLine != nullptr && pLine->GetLabel() == kClearAll && !IsEditing()) {
        if (!m_bReadOnly)
            ClearAll();
        return kNoScreen;
    }
    return CConfigTableScreen::HandleKey(key);
}

void CMenuInputIgmpConfig::ClearAll()
{
    if (m_pClient == nullptr || !m_values.IsMap() || !m_values.KeyExists("mpegipigmpRowStatus"))
        return;
    // Each row is destroyed by its row status; the change events take the rows away.
    const Zor::CParam rows = m_values["mpegipigmpRowStatus"];
    for (int i = 0; rows.IsMap() && i < rows.Length(); ++i) {
        const std::string instance = rows.GetKey(i);
        if (instance.compare(0, m_strRows.size(), m_strRows) == 0)
            m_pClient->SendData("mpegipigmpRowStatus", instance, "6");
    }
}
