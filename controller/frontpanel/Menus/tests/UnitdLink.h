// A unitd of the test's own (a child process serving a unit file on a socket in a temporary
// folder) and a line-protocol link to it, for forced writes and the write journal.
#pragma once

#include <sys/types.h>

#include <nlohmann/json.hpp>
#include <string>

namespace MenusTest {

class CUnitd {
public:
    CUnitd();
    ~CUnitd();
    CUnitd(const CUnitd&) = delete;
    CUnitd& operator=(const CUnitd&) = delete;

    // The unitd program: $FP_UNITD, else the one of this build tree; empty when not built.
    static std::string ProgramPath();
    // A unit file of unit/units.
    static std::string UnitPath(const std::string& name);

    // Starts unitd and waits until its socket answers.
    bool Start(const std::string& unitFile, std::string* error);
    // The SDK's controller target ("unix:<socket>").
    std::string Target() const { return "unix:" + m_strSocket; }

    nlohmann::json Request(nlohmann::json request, int timeoutMs = 10000);
    // A write as another manager would make it; forced writes also reach status objects.
    nlohmann::json Set(const std::string& name, const std::string& instance, const nlohmann::json& value,
                       bool force = true);
    // The journal entries since `since` that name the object.
    nlohmann::json WritesOf(const std::string& name, int since = 0);
    // The journal's next sequence number.
    int NextWrite();

private:
    bool ReadLine(std::string* pLine, long long deadlineMs);

    std::string m_strDir;
    std::string m_strSocket;
    pid_t m_pid;
    int m_iFd;
    int m_iNextId;
    std::string m_pending;
};

}  // namespace MenusTest
