// The daemon's one gateway to the unit controller: every read, write and subscription of a
// managed object goes through here, always under the client name "zor.fp".
#pragma once

#include <string>

#include "Client/Globals.h"
#include "Qb/WakeUpTimer.h"
#include "Zor/Zor.h"

class CTavClient {
public:
    // pClient is not owned; it must outlive this object.
    explicit CTavClient(Zor::CZorClient* pClient);
    virtual ~CTavClient();

    // Reads name.instance as text; empty text when unknown or unreadable.
    std::string GetData(const char* name, const char* instance);
    std::string GetData(const std::string& name, const std::string& instance);

    bool SendData(const std::string& name, const std::string& instance, const std::string& value);
    std::string SendDataMsg(const std::string& name, const std::string& instance, const std::string& value);
    Zor::CRet SendOp(const std::string& client, const std::string& name, const Zor::COid& instance,
                     const std::string& value);
    // Sends even when name or instance is empty (after printing an error); true unless it
    // printed that error, whatever the controller answered.
    bool SendDataChecked(const std::string& name, const std::string& instance, const std::string& value);
    Zor::CRet SendTxn(const std::string& client, const Zor::CTxn& txn);

    Zor::CRet GetValue(const std::string& client, const std::string& key);
    bool HasValue(const std::string& client, const std::string& key);
    Zor::CRet GetValues(const std::string& client, const Zor::CParam& request);
    // Null when the unit has no subsystem of that type.
    Zor::CParam QuerySubsystem(const std::string& type);

    Zor::CRet AddEventHandler(const std::string& name, Zor::IManagedEventSink* pSink,
                              const std::string& instance);
    Zor::CRet RemoveEventHandler(const std::string& name, Zor::IManagedEventSink* pSink,
                                 const std::string& instance);

    void AttachThread();
    void DetachThread();

    Qb::CWakeUpTimer& GetWakeUpTimer() { return m_timer; }
    Zor::CZorClient* GetZorClient() { return m_pClient; }

private:
    Zor::CZorClient* m_pClient;
    Qb::CWakeUpTimer m_timer;
};
