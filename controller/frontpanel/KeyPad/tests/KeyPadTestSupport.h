// Doubles for the keypad tests: a recording handler, the captured log, and a keypad whose
// clock and thread starts the test controls.
#pragma once

#include <gtest/gtest.h>

#include <atomic>
#include <condition_variable>
#include <log4cpp/Category.hh>
#include <log4cpp/OstreamAppender.hh>
#include <log4cpp/PatternLayout.hh>
#include <mutex>
#include <sstream>
#include <string>
#include <vector>

#include "Client/TavClient.h"
#include "KeyPad/TavKeyPad.h"
#include "PanelEnd.h"
#include "Zor/ZorClient.h"

// Records events as text, "KEY LEFT Down," or "COMBO_DOWN 13," (the keys down), with a "+"
// before the comma when the event carried the hold flag.
class CRecorder : public CEventHandler {
public:
    bool HandleEvent(int id, void* b, void* c) override
    {
        std::string text = id == KEYPAD_EVENT_COMBO_DOWN ? "COMBO_DOWN " : "COMBO_UP ";
        if (id == KEYPAD_EVENT_KEY) {
            const KeyPress_t& press = *static_cast<KeyPress_t*>(b);
            text = std::string("KEY ") + CTavKeyPad::KeyName(press.key) + " " +
                   CTavKeyPad::StateName(press.state);
        } else {
            for (const auto& entry : *static_cast<KeyStateTable_t*>(b))
                text += entry.second == KEY_STATE_DOWN ? std::to_string(entry.first) : "";
        }
        std::lock_guard<std::mutex> lock(m_mutex);
        m_strEvents += text + (*static_cast<bool*>(c) ? "+," : ",");
        ++m_iCount;
        m_cond.notify_all();
        return true;
    }
    std::string Events()
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        return m_strEvents;
    }
    // Waits until count events came, or until the events end with last when it is given.
    bool WaitFor(int count, const std::string& last = "")
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        return m_cond.wait_for(lock, std::chrono::seconds(5), [&] {
            return last.empty()
                       ? m_iCount >= count
                       : m_strEvents.size() >= last.size() &&
                             m_strEvents.compare(m_strEvents.size() - last.size(), last.size(), last) == 0;
        });
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_cond;
    std::string m_strEvents;
    int m_iCount = 0;
};

// The keypad's log lines, debug and up, while it lives. Read it only while no keypad
// thread runs.
class CLogCapture {
public:
    CLogCapture() : m_rCategory(log4cpp::Category::getInstance("tav.frontpanel.input"))
    {
        log4cpp::PatternLayout* layout = new log4cpp::PatternLayout();
        layout->setConversionPattern("%m%n");
        m_pAppender = new log4cpp::OstreamAppender("keypad-test", &m_text);
        m_pAppender->setLayout(layout);
        m_rCategory.setPriority(log4cpp::Priority::DEBUG);
        m_rCategory.addAppender(m_pAppender);
    }
    ~CLogCapture() { m_rCategory.removeAppender(m_pAppender); }
    std::string Text() { return m_text.str(); }

private:
    log4cpp::Category& m_rCategory;
    log4cpp::Appender* m_pAppender;
    std::ostringstream m_text;
};

// A keypad over a bare unit, with a settable clock and a thread start that can fail.
class CTestKeyPad : public CTavKeyPad {
public:
    explicit CTestKeyPad(const std::string& socketPath, bool fakeClock = true)
        : CTavKeyPad(m_socket, &m_db),
          m_zor("zor.fp", "embedded:" + std::string(__FILE__).substr(0, std::string(__FILE__).rfind('/')) +
                              "/keypad-unit.json"),
          m_db(&m_zor),
          m_socket(Qb::CLocalSocketAddress(socketPath)),
          m_now(1000),
          m_bFakeClock(fakeClock)
    {
    }
    ~CTestKeyPad() override { StopAndJoin(); }

    using CTavKeyPad::CheckHold;
    using CTavKeyPad::CurrentKey;
    using CTavKeyPad::DispatchNext;
    using CTavKeyPad::IsHolding;
    using CTavKeyPad::KeyStates;
    using CTavKeyPad::QueuedEvents;
    using CTavKeyPad::StopAndJoin;

    Zor::CZorClient m_zor;
    CTavClient m_db;
    Qb::CStreamSocket m_socket;
    std::atomic<Qb::uint32> m_now;
    bool m_bFakeClock;
    int m_iFailStart = -1;  // which start fails: 0 the watcher, 1 the read thread
    int m_iStarts = 0;

protected:
    Qb::uint32 NowMs() override { return m_bFakeClock ? m_now.load() : CTavKeyPad::NowMs(); }
    bool StartThread(Qb::CThread& thread) override
    {
        return m_iStarts++ == m_iFailStart ? false : CTavKeyPad::StartThread(thread);
    }
};
