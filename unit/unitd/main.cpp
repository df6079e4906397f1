// unitd: serves one virtual unit on a Unix stream socket.
#include <csignal>
#include <cstdio>
#include <cstring>
#include <string>

#include "Server.h"

namespace {

Unit::CUnitServer* g_pServer = nullptr;

void OnStop(int)
{
    if (g_pServer != nullptr) {
        g_pServer->Stop();
    }
}

int Usage(FILE* out, int status)
{
    std::fprintf(out,
                 "Usage: unitd --unit FILE --socket PATH\n"
                 "Serves the virtual unit described by FILE on the Unix socket PATH,\n"
                 "one JSON request or answer per line. SIGTERM or SIGINT stops it.\n");
    return status;
}

}  // namespace

int main(int argc, char** argv)
{
    std::string unitFile, socketPath;
    for (int i = 1; i < argc; ++i) {
        std::string arg = argv[i];
        if ((arg == "--unit" || arg == "--socket") && i + 1 < argc) {
            (arg == "--unit" ? unitFile : socketPath) = argv[++i];
        } else if (arg.compare(0, 7, "--unit=") == 0) {
            unitFile = arg.substr(7);
        } else if (arg.compare(0, 9, "--socket=") == 0) {
            socketPath = arg.substr(9);
        } else if (arg == "-h" || arg == "--help") {
            return Usage(stdout, 0);
        } else {
            std::fprintf(stderr, "unitd: unknown or incomplete option \"%s\"\n", arg.c_str());
            return Usage(stderr, 2);
        }
    }
    if (unitFile.empty() || socketPath.empty()) {
        std::fprintf(stderr, "unitd: --unit and --socket are required\n");
        return Usage(stderr, 2);
    }
    std::string error;
    std::shared_ptr<Unit::CVirtualUnit> unit = Unit::CVirtualUnit::LoadFile(unitFile, error);
    if (!unit) {
        std::fprintf(stderr, "unitd: %s\n", error.c_str());
        return 1;
    }
    int status = 0;
    {
        Unit::CUnitServer server(unit);
        if (!server.Listen(socketPath, error)) {
            std::fprintf(stderr, "unitd: %s\n", error.c_str());
            return 1;
        }
        g_pServer = &server;
        struct sigaction sa;
        std::memset(&sa, 0, sizeof sa);
        sa.sa_handler = OnStop;
        sigaction(SIGTERM, &sa, nullptr);
        sigaction(SIGINT, &sa, nullptr);
        signal(SIGPIPE, SIG_IGN);
        std::fprintf(stderr, "unitd: serving %s on %s\n", unitFile.c_str(), socketPath.c_str());
        status = server.Run();
        signal(SIGTERM, SIG_DFL);
        signal(SIGINT, SIG_DFL);
        g_pServer = nullptr;
    }
    std::fprintf(stderr, "unitd: stopped\n");
    return status;
}
