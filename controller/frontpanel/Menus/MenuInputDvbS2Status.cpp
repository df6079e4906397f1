#include "Menus/MenuInputDvbS2Status.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

namespace {

bool Unlocked(const CRowValues& v)
{
    return v("dvbs2instatusConnRcvLock", kCard) != "Locked";
}

bool DvbS2(const CRowValues& v)
{
    return v("dvbs2instatusConnStandardType", kCard) == "DVB-S2";
}

// The measure and its name follow the standard received: C/N and packet error rate for
// DVB-S2, Eb/No and bit error rate for DVB-S. Without lock there is nothing to measure.
std::string Quality(const CRowValues& v)
{
    if (Unlocked(v))
        return "Signal Quality Metric: --";
    std::string value;
    if (!FormatNumber("%.1f", v("dvbs2instatusConnSigQualMetric", kCard), 1.0, &value))
        return "Signal Quality Metric: ";
    return (DvbS2(v) ? "C/N: " : "Eb/No: ") + value + " dB";
}

std::string ErrorRate(const CRowValues& v)
{
    if (Unlocked(v))
        return "Error Rate: --";
    std::string value;
    if (!FormatNumber("%1.1E", v("dvbs2instatusConnErrorRate", kCard), 1.0, &value))
        return "Error Rate: ";
    return (DvbS2(v) ? "PER: " : "BER: ") + value;
}

const CRow kLines[] = {
    Text("Port: ", "dvbs2instatusActivePort", kCard),
    Text("Receiver Lock: ", "dvbs2instatusConnRcvLock", kCard).Missing("Unlocked"),
    Text("DVB Mode: ", "dvbs2instatusConnStandardType", kCard),
    Text("Bitrate: ", "tsinputsrcTsBitrate", kCard, "%.3f").Scale(1e-6).Unit(" Mbps"),
    Text("Modulation: ", "dvbs2instatusConnModulation", kCard),
    Text("FEC: ", "dvbs2instatusConnFEC", kCard),
    Text("Level: ", "dvbs2instatusConnLevel", kCard, "%.1f").Unit(" dBm"),
    Text("Pilots: ", "dvbs2instatusConnPilots", kCard),
    Text("Frame Length: ", "dvbs2instatusConnFrameLength", kCard),
    Text("Spectrum: ", "dvbs2instatusConnSpectrum", kCard),
    Text("Tuning Frequency: ", "dvbs2instatusTuningFreq", kCard, "%.1f").Unit(" MHz"),
    Text("Locked Frequency: ", "dvbs2instatusConnLockedFreq", kCard, "%.1f").Unit(" MHz"),
    Text("Locked Symbol Rate: ", "dvbs2instatusConnSymbolRate", kCard, "%.1f").Unit(" MSps"),
    Text("TS Sync: ", "dvbs2instatusConnTSPresence", kCard),
    Show("", kCard,
         {"dvbs2instatusConnSigQualMetric", "dvbs2instatusConnRcvLock", "dvbs2instatusConnStandardType"}, Quality),
    Show("", kCard, {"dvbs2instatusConnErrorRate", "dvbs2instatusConnRcvLock", "dvbs2instatusConnStandardType"},
         ErrorRate),
    Text("Link Margin: ", "dvbs2instatusConnLinkMargin", kCard, "%.1f").Unit(" dB"),
};

}  // namespace

CMenuInputDvbS2Status::CMenuInputDvbS2Status(int card, const std::string& slot)
    : CStatusTableScreen(InputsDvbS2Status(card), InputsDvbS2(card), kLines)
{
    Table().SetCard(slot + ".1");
}
