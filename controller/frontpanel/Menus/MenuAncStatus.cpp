#include "Menus/MenuAncStatus.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

namespace {

const char kPresent[] = "Present";

std::string Afd(const CRowValues& v)
{
    const std::string presence = v("ancdecoderAfdPresence");
    return presence == kPresent ? "Code " + v("ancdecoderAfdCode") : presence;
}

std::string Smpte2038(const CRowValues& v)
{
    const bool vanc = v("ancdecoderSmpte2038VancPresence") == kPresent;
    const bool hanc = v("ancdecoderSmpte2038HancPresence") == kPresent;
    if (vanc || hanc)
        return vanc && hanc ? "VANC+HANC" : vanc ? "VANC" : "HANC";
    return v("ancdecoderSmpte2038VancPresence");
}

const CRow kLines[] = {
    Show("AFD: ", ".1.1", {"ancdecoderAfdPresence", "ancdecoderAfdCode"}, Afd),
    Show("SMPTE2038: ", ".1.1", {"ancdecoderSmpte2038VancPresence", "ancdecoderSmpte2038HancPresence"}, Smpte2038),
    Text("EN301775: ", "ancdecoderEn301775Presence", ".1.1"),
    Text("SCTE127: ", "ancdecoderScte127Presence", ".1.1"),
    Text("TTX Subs: ", "ancdecoderOp47Presence", ".1.1"),
    Text("AMOL: ", "ancdecoderAmolPresence", ".1.1"),
    Text("TVG2X: ", "ancdecoderTvg2xPresence", ".1.1"),
    Text("CC: ", "ancdecoderCcPresence", ".1.1"),
    Text("Teletext: ", "ancdecoderTeletextPresence", ".1.1"),
    Text("VPS: ", "ancdecoderVpsPresence", ".1.1"),
    Text("WSS: ", "ancdecoderWssPresence", ".1.1"),
    Text("Inv TTX: ", "ancdecoderInvTeletextPresence", ".1.1"),
    Text("RDD11: ", "ancdecoderRdd11Presence", ".1.1"),
    Text("Time Code: ", "ancdecoderSysTimecodePresence", ".1.1"),
};

}  // namespace

CMenuAncStatus::CMenuAncStatus() : CStatusTableScreen("Ancillary Status", kDecoding, kLines, "Menu Style Long List") {}
