#include "Menus/MenuDvbCiConfigurePidMultiSrv.h"

#include <map>

#include "Lines/GenericDisplayLine.h"
#include "Lines/GenericHexNumLine.h"
#include "Menus/MenuConditionalAccess.h"
#include "Qb/Str.h"
#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

namespace {

const char* const kNoService = "65535";

// The streams of the service information: PID object, service object, stream kind.
struct Streams_t {
    const char* pid;
    const char* service;
    const char* kind;
};
const Streams_t kStreams[] = {
    {"sivideoPid", "sivideoSrvNum", "video"},         {"siaudioPid", "siaudioSrvNum", "audio"},
    {"sidvbsubtitlesPid", "sidvbsubtitlesSrvNum", "subtitles"}, {"sivbiPid", "sivbiSrvNum", "vbi"},
    {"siotherPid", "siotherSrvNum", "other"},
};

std::string At(const Zor::CParam& read, const std::string& object, const std::string& instance)
{
    if (!read.IsMap() || !read.KeyExists(object) || !read[object].IsMap() || !read[object].KeyExists(instance))
        return std::string();
    return read[object][instance].ToString("");
}

}  // namespace

std::string ProgramOfPid(const Zor::CParam& read, const std::string& pid)
{
    for (const Streams_t& streams : kStreams) {
        if (!read.IsMap() || !read.KeyExists(streams.pid))
            continue;
        const Zor::CParam& pids = read[streams.pid];
        for (int i = 0; pids.IsMap() && i < pids.Length(); ++i)
            if (pids[pids.GetKey(i)].ToString("") == pid)
                return At(read, streams.service, pids.GetKey(i));
    }
    return kNoService;
}

std::string StreamText(const Zor::CParam& read, const std::string& pid)
{
    std::string text = CaText::Pid(pid);
    for (const Streams_t& streams : kStreams) {
        if (!read.IsMap() || !read.KeyExists(streams.pid))
            continue;
        const Zor::CParam& pids = read[streams.pid];
        for (int i = 0; pids.IsMap() && i < pids.Length(); ++i) {
            const std::string row = pids.GetKey(i);
            if (pids[row].ToString("") != pid)
                continue;
            const std::string kind = streams.kind;
            if (kind == "video")
                return text + CaText::VideoType(Qb::Str::ToInt32(At(read, "sivideoType", row), 0));
            if (kind == "audio")
                return text + CaText::AudioType(Qb::Str::ToInt32(At(read, "siaudioType", row), 0)) + " " +
                       At(read, "siaudioLanguage", row);
            if (kind == "subtitles")
                return text + " DVB Subtitles";
            if (kind == "vbi")
                return text + " VBI";
            return text + " " + CaText::OtherType(At(read, "siotherStreamTypeDesc", row));
        }
    }
    return text;
}

CMenuDvbCiConfigurePidMultiSrv::CMenuDvbCiConfigurePidMultiSrv(int slot, const std::string& instance)
    : CMenuDvbCiStaged(CaDvbCiConfigPids(slot), CaDvbCiSlot(slot), "camselectedpid", instance, "Menu Style Basic")
{
}

void CMenuDvbCiConfigurePidMultiSrv::MakeLines()
{
    // Grouped by service in program number order, PIDs of no service last.
    std::map<Qb::uint32, std::vector<int>> byService;
    for (size_t i = 0; i < m_selections.size(); ++i)
        byService[Qb::Str::ToUInt32(m_selections[i].program, 65535)].push_back(static_cast<int>(i));
    for (const auto& service : byService) {
        CGenericLine* pHeading = new CGenericDisplayLine();
        pHeading->SetSelectable(false);
        const std::string heading =
            service.first == 65535 ? std::string("No Associated Service:") : Qb::Str::Format("Srv %u:", service.first);
        AddOwn(pHeading, heading.c_str());
        for (int index : service.second) {
            const Selection_t& selection = m_selections[static_cast<size_t>(index)];
            std::string text = " " + StreamText(m_read, selection.pid);
            if (!selection.present)
                text += " (Not Present)";
            AddSelection(index, text);
        }
    }
    CGenericHexNumLine* pAdd = new CGenericHexNumLine(4, 0x1FFF);
    pAdd->SetDecimalTransfer(true);
    pAdd->SetValue("0");
    AddOwn(pAdd, "Add PID: ");
    AddApply();
}

void CMenuDvbCiConfigurePidMultiSrv::OnOwnLine(CGenericLine* pLine, bool wasEditing)
{
    if (!wasEditing || IsEditing())
        return;
    const std::string pid = pLine->GetValue();  // decimal, as the controller keeps it
    const std::string program = ProgramOfPid(m_read, pid);
    Message(" Adding PID...", "");
    // A PID the stream does not carry is selected all the same, and shown as such.
    if (Select(program, pid) && program == kNoService)
        m_selections.back().present = false;
}
