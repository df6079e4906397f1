// Command-line options of a controller client process.
#pragma once

#include <string>

namespace Zor {

// Parses -d/--daemon, --pidfile PATH, --controller TARGET (embedded, embedded:FILE,
// unix:PATH; default embedded), -h/--help and -V/--version. Help and version print and exit
// 0; a bad option prints the usage to stderr and exits 2. The most recent instance is the
// process's options, which CZorClient(name) connects by.
class CClientOpts {
public:
    // description and version may be empty (the program name and the SDK version are used).
    CClientOpts(int argc, char** argv, const std::string& description, const std::string& version);
    ~CClientOpts();

    bool IsDaemon() const { return m_bDaemon; }
    const std::string& GetPidFile() const { return m_strPidFile; }
    void SetPidFile(const std::string& path) { m_strPidFile = path; }
    const std::string& GetController() const { return m_strController; }

    // The options of this process, null when none were built.
    static const CClientOpts* Current();

private:
    bool m_bDaemon;
    std::string m_strPidFile;
    std::string m_strController;
};

}  // namespace Zor
