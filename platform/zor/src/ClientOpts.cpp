#include "Zor/ClientOpts.h"

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace Zor {

namespace {

const char kSdkVersion[] = "1.0.0";

std::atomic<const CClientOpts*> s_current{nullptr};

std::string BaseName(const char* path)
{
    if (path == nullptr || *path == '\0') {
        return "zorclient";
    }
    const char* slash = std::strrchr(path, '/');
    return slash != nullptr ? slash + 1 : path;
}

void PrintUsage(FILE* out, const std::string& prog, const std::string& description)
{
    std::fprintf(out,
                 "%s%s"
                 "Usage: %s [options]\n"
                 "  -d, --daemon            run in the background\n"
                 "      --pidfile PATH      pid file\n"
                 "      --controller TARGET embedded (built-in unit), embedded:FILE (a unit file)\n"
                 "                          or unix:PATH (a unitd socket); default embedded\n"
                 "  -h, --help              show this help\n"
                 "  -V, --version           show the version\n",
                 description.c_str(), description.empty() ? "" : "\n", prog.c_str());
}

bool ValidTarget(const std::string& t)
{
    return t == "embedded" || (t.compare(0, 9, "embedded:") == 0 && t.size() > 9) ||
           (t.compare(0, 5, "unix:") == 0 && t.size() > 5);
}

}  // namespace

CClientOpts::CClientOpts(int argc, char** argv, const std::string& description, const std::string& version)
    : m_bDaemon(false), m_strController("embedded")
{
    const std::string prog = BaseName(argc > 0 ? argv[0] : nullptr);
    m_strPidFile = "/var/run/" + prog + ".pid";
    auto fail = [&](const std::string& msg) {
        std::fprintf(stderr, "%s: %s\n", prog.c_str(), msg.c_str());
        PrintUsage(stderr, prog, "");
        std::exit(2);
    };
    for (int i = 1; i < argc; ++i) {
        std::string arg = argv[i] != nullptr ? argv[i] : "";
        std::string value;
        bool hasValue = false;
        size_t eq = arg.find('=');
        if (arg.compare(0, 2, "--") == 0 && eq != std::string::npos) {
            value = arg.substr(eq + 1);
            arg = arg.substr(0, eq);
            hasValue = true;
        }
        auto takeValue = [&]() {
            if (!hasValue) {
                if (i + 1 >= argc || argv[i + 1] == nullptr) {
                    fail("option " + arg + " needs a value");
                }
                value = argv[++i];
            }
        };
        if (arg == "-d" || arg == "--daemon") {
            m_bDaemon = true;
        } else if (arg == "--pidfile") {
            takeValue();
            m_strPidFile = value;
        } else if (arg == "--controller") {
            takeValue();
            if (!ValidTarget(value)) {
                fail("bad controller \"" + value + "\" (embedded, embedded:FILE or unix:PATH)");
            }
            m_strController = value;
        } else if (arg == "-h" || arg == "--help") {
            PrintUsage(stdout, prog, description);
            std::exit(0);
        } else if (arg == "-V" || arg == "--version") {
            std::printf("%s %s\n", prog.c_str(), version.empty() ? kSdkVersion : version.c_str());
            std::exit(0);
        } else {
            fail("unknown option \"" + arg + "\"");
        }
        if (hasValue && arg != "--pidfile" && arg != "--controller") {
            fail("option " + arg + " takes no value");
        }
    }
    s_current = this;
}

CClientOpts::~CClientOpts()
{
    const CClientOpts* self = this;
    s_current.compare_exchange_strong(self, nullptr);
}

const CClientOpts* CClientOpts::Current()
{
    return s_current;
}

}  // namespace Zor
