// zorctl's connection to unitd: one request line out, its answer back; events set aside.
#pragma once

#include <deque>
#include <string>

#include "ZorJson/ParamJson.h"

class CLink {
public:
    CLink(const std::string& path, int timeoutMs);
    ~CLink();
    CLink(const CLink&) = delete;
    CLink& operator=(const CLink&) = delete;

    // False with the reason when unitd cannot be reached.
    bool Connect(std::string& error);
    // Sends the request (an id is added) and waits for its answer; false with the reason
    // when the link fails or the answer does not come in time.
    bool Ask(Zor::Json request, Zor::Json& answer, std::string& error);
    // The next event, waiting at most timeoutMs (-1: no limit); false on time-out, and
    // with closed set when unitd went away.
    bool NextEvent(Zor::Json& event, int timeoutMs, bool& closed);

private:
    // One line, or false on time-out or when the link closed (closed then set).
    bool ReadLine(std::string& line, int timeoutMs, bool& closed);

    std::string m_strPath;
    int m_iTimeoutMs;
    int m_fd;
    unsigned m_uNextId;
    std::string m_buffer;
    std::deque<Zor::Json> m_events;
};
