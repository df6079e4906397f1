#include "ScreenManager/TavScreenCreator.h"

#include "Client/TavClient.h"
#include "Menus/MenuActiveErrors.h"
#include "Menus/MenuHome.h"
#include "Menus/MenuMain.h"
#include "Qb/Str.h"
#include "ScreenManager/ScreenNames.h"
#include "ScreenManager/TavScreenManager.h"

using namespace ScreenName;

CTavScreenCreator::CTavScreenCreator() : m_pManager(nullptr), m_pClient(nullptr), m_caps() {}

CTavScreenCreator::~CTavScreenCreator() {}

void CTavScreenCreator::CreateScreens(CTavScreenManager* pManager, CTavClient* pClient)
{
    m_pManager = pManager;
    m_pClient = pClient;
    if (m_pManager == nullptr)
        return;
    ProbeCapabilities();
    // The manager keeps the first screen added under a name: the order matters.
    AddHome();
    BuildMainMenu();
    BuildInputScreens();
    BuildConditionalAccess();
    if (m_caps.t2mi)
        BuildT2Mi();
    if (m_caps.decoder) {
        BuildAudioProcessing();
        BuildDecoding();
        BuildProcessing();
        BuildBasebandOutputs();
    }
    BuildTransportStreamOutputs();
    BuildAdmin();
    AddActiveErrors();
}

bool CTavScreenCreator::Present(const std::string& subsystem)
{
    return !Instances(subsystem).empty();
}

std::vector<std::string> CTavScreenCreator::Instances(const std::string& subsystem)
{
    std::vector<std::string> slots;
    const Zor::CParam found = m_pClient->QuerySubsystem(subsystem);
    const Zor::CParam& instances = found[subsystem];
    for (int i = 0; !instances.IsNull() && i < instances.Length(); ++i)
        slots.push_back(instances.IsMap() ? instances.GetKey(i) : instances[i].ToString(""));
    return slots;
}

bool CTavScreenCreator::IsTrue(const char* name, const char* instance)
{
    return m_pClient->GetData(name, instance) == "true";
}

Qb::uint32 CTavScreenCreator::Number(const char* name, const char* instance)
{
    return Qb::Str::ToUInt32(m_pClient->GetData(name, instance), 0);
}

void CTavScreenCreator::ProbeCapabilities()
{
    m_caps = Capabilities_t();
    if (m_pClient == nullptr)
        return;
    // In this order: the decoder first, and what only a decoder has only with it.
    m_caps.decoder = m_pClient->HasValue(kZorClientName, "subsystemDescription.1.2");
    if (m_caps.decoder) {
        m_caps.audioDigital = Number("avssconfigAudioCountDigital", ".1.1");
        m_caps.audioAnalog = Number("avssconfigAudioCountAnalog", ".1.1");
        m_caps.audioDecode = Number("avssconfigAudioDecodeCount", ".1.1");
        m_caps.genlock = IsTrue("avssconfigGenlockAvail", ".1.1");
        m_caps.hdOutput = IsTrue("avssconfigHdOutputAvail", ".1.1");
        m_caps.secondVideo = IsTrue("avssconfigSecondVidAvail", ".1.1");
        m_caps.cardFrame = Present("CardFrame");
    }
    m_caps.t2mi = Present("T2Mi");

    Zor::CParam labels(Zor::PT_LIST);
    labels.AddParam(Zor::CParam::String("tsinputsrcLabel.%"));
    Zor::CRet ret = m_pClient->GetValues(kZorClientName, labels);
    if (ret.Success())
        m_caps.inputLabels = static_cast<Qb::uint32>(ret.Val()["tsinputsrcLabel"].Length());

    // Slots are taken from the query, never assumed: a unit may have its one card anywhere.
    struct Card_t {
        const char* type;
        bool* flags;
        std::vector<std::string>* slots;
    };
    const Card_t cards[] = {{"MpegIpRcv", m_caps.mpegIpRcv, &m_caps.mpegIpRcvSlots},
                            {"DvbS2In", m_caps.dvbS2In, &m_caps.dvbS2InSlots},
                            {"VsbIn", m_caps.vsbIn, &m_caps.vsbInSlots},
                            {"TurboPskIn", m_caps.turboPskIn, &m_caps.turboPskInSlots}};
    for (const Card_t& card : cards) {
        *card.slots = Instances(card.type);
        card.flags[0] = card.slots->size() >= 1;
        card.flags[1] = card.slots->size() >= 2;
    }

    m_caps.biss = IsTrue("tsssconfigBiss", ".1.1");
    m_caps.camSlots = Instances("CamSlot");
    m_caps.camSlot = !m_caps.camSlots.empty();
    m_caps.multiServiceDescrambling = IsTrue("tsssconfigMultiServiceDescrambling", ".1.1");
    if (m_caps.multiServiceDescrambling) {
        Zor::CParam request(Zor::PT_LIST);
        request.AddParam(Zor::CParam::String("camslotMultiService.%"));
        Zor::CRet slots = m_pClient->GetValues(kZorClientName, request);
        const Zor::CParam& bySlot = slots.Val()["camslotMultiService"];
        for (int i = 0; i < bySlot.Length(); ++i)
            m_caps.camSlotMultiService.push_back(bySlot[bySlot.GetKey(i)].ToBool(false));
    }
    m_caps.scte35Service = Present("Scte35Srv");
    m_caps.scte35Processing = IsTrue("avssconfigScte35ProcessingAvail", ".1.1");
    m_caps.esam = Present("Esam");
    m_caps.cueTriggerSlots = Instances("DpiCueTrigger");
    m_caps.cueTrigger = !m_caps.cueTriggerSlots.empty();
    m_caps.mpegIpTxFec = Present("MpegIpTxFec");
    m_caps.inbandControl = Present("InbandControl");
    // Not needed by the probes above, asked last.
    m_caps.mpegIpTxSlots = Instances("MpegIpTx");
    m_caps.mpegIpTx = !m_caps.mpegIpTxSlots.empty();
    m_caps.tsInputSrc = Present("TsInputSrc");
    m_caps.tsOutputSrc = Present("TsOutputSrc");
}

void CTavScreenCreator::Add(CScreen* pScreen, const std::string& name)
{
    m_pManager->AddScreen(pScreen, name);
}

void CTavScreenCreator::AddHome()
{
    Add(new CMenuHome(m_caps.decoder), kHome);
}

void CTavScreenCreator::BuildMainMenu()
{
    Add(new CMenuMain(m_caps), kMainMenu);
}

void CTavScreenCreator::AddActiveErrors()
{
    Add(new CMenuActiveErrors(), kActiveErrors);
}
