// What the unit has, read once by the screen creator before any screen is built. Menus and
// screens are given it to decide which of their rows exist (CRow::When). A failed read
// counts as absent (false, 0, no instances).
#pragma once

#include <string>
#include <vector>

#include "Qb/Types.h"

struct Capabilities_t {
    bool decoder;
    bool t2mi;
    Qb::uint32 audioDigital;
    Qb::uint32 audioAnalog;
    Qb::uint32 audioDecode;
    bool genlock;
    bool hdOutput;
    bool secondVideo;
    bool scte35Processing;
    Qb::uint32 inputLabels;
    // Index 0: a first card of the type; 1: a second one.
    bool mpegIpRcv[2];
    bool dvbS2In[2];
    bool vsbIn[2];
    bool turboPskIn[2];
    // The slots of those cards, as the subsystem query gives them (".4", ".5").
    std::vector<std::string> mpegIpRcvSlots;
    std::vector<std::string> dvbS2InSlots;
    std::vector<std::string> vsbInSlots;
    std::vector<std::string> turboPskInSlots;
    std::vector<std::string> mpegIpTxSlots;
    bool biss;
    bool multiServiceDescrambling;
    // Per CAM slot, in slot order (".1" top, ".2" bottom).
    std::vector<bool> camSlotMultiService;
    bool camSlot;
    // The CAM slots the unit reports (".1" top, ".2" bottom).
    std::vector<std::string> camSlots;
    bool scte35Service;
    bool esam;
    bool cueTrigger;
    // The cue triggers, as the subsystem query gives them (".1", ".2").
    std::vector<std::string> cueTriggerSlots;
    bool mpegIpTxFec;
    bool inbandControl;
    bool mpegIpTx;
    bool tsInputSrc;
    bool tsOutputSrc;
    bool cardFrame;
};
