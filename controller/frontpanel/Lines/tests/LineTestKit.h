// Small helpers shared by the line tests: key events, key sequences, tables of edit steps,
// and a recorder of the writes the controller reports for one object.
#pragma once

#include <algorithm>
#include <condition_variable>
#include <mutex>
#include <string>
#include <vector>

#include "Client/TavClient.h"
#include "KeyPad/KeyPress.h"
#include "Lines/EntryLine.h"
#include "Lines/GenericLine.h"
#include "PanelTest.h"
#include "Zor/Zor.h"

namespace LineTest {

using PanelTest::Key;

// Presses the keys (as PanelTest::KeyCodes reads them: "ERRU", "8R"); returns the last answer.
inline bool Keys(CGenericLine& line, const std::string& keys)
{
    bool editing = line.IsEditing();
    for (int code : PanelTest::KeyCodes(keys))
        editing = line.HandleKey(Key(code));
    return editing;
}

// One step of an edit: its keys, then the value the line reports; when given (0 or 1),
// whether it is still editing (the last key's answer too) and, for an entry line, whether the
// edit was refused.
struct Step {
    const char* keys;
    std::string value;
    int editing = -1;
    int refused = -1;
};

inline void Steps(CGenericLine& line, std::initializer_list<Step> steps)
{
    for (const Step& step : steps) {
        SCOPED_TRACE(std::string("keys \"") + step.keys + "\" to " + step.value);
        const bool answer = Keys(line, step.keys);
        EXPECT_EQ(step.value, line.GetValue());
        if (step.editing >= 0) {
            EXPECT_EQ(step.editing == 1, answer);
            EXPECT_EQ(step.editing == 1, line.IsEditing());
        }
        if (step.refused >= 0) {
            EXPECT_EQ(step.refused == 1, dynamic_cast<CEntryLine&>(line).WasRefused());
        }
    }
}

// Every value the controller reports for name.instance after subscribing. Writes are
// reported in order, so writing a marker value last and waiting for it shows every write
// made before it, with no sleeping.
class CWriteRecorder : public Zor::IManagedEventSink {
public:
    CWriteRecorder(CTavClient* pClient, const std::string& name, const std::string& instance)
        : m_pClient(pClient), m_strName(name), m_strInstance(instance)
    {
        m_pClient->AddEventHandler(name, this, instance);
    }
    ~CWriteRecorder() override { m_pClient->RemoveEventHandler(m_strName, this, m_strInstance); }

    void ManagedEvent(const std::string&, const Zor::COid&, const Zor::CParam& value) override
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_values.push_back(value.ToString(""));
        m_changed.notify_all();
    }

    // The values written before `marker`, which this call writes and waits for. Events come
    // on the client's own thread, so a value written before the recorder existed may still
    // arrive: each marker must be a value not written before in the test. Values after the
    // marker (a clock's tick) are kept for the next call.
    std::vector<std::string> WritesBefore(const std::string& marker)
    {
        m_pClient->SendData(m_strName, m_strInstance, marker);
        std::unique_lock<std::mutex> lock(m_mutex);
        auto at = m_values.end();
        m_changed.wait_for(lock, std::chrono::seconds(5), [&] {
            at = std::find(m_values.begin(), m_values.end(), marker);
            return at != m_values.end();
        });
        std::vector<std::string> before(m_values.begin(), at);
        m_values.erase(m_values.begin(), at == m_values.end() ? at : at + 1);
        return before;
    }

private:
    CTavClient* m_pClient;
    std::string m_strName;
    std::string m_strInstance;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::vector<std::string> m_values;
};

}  // namespace LineTest
