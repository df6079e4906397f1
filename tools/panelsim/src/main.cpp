// panelsim: the panel end of the front panel's socket, interactive or scripted.
#include <signal.h>
#include <unistd.h>

#include <cstring>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include "PanelServer.h"
#include "Script.h"
#include "Terminal.h"

namespace {

const char kDefaultSocket[] = "/var/run/ttyhub.ttyS4.socket";

// Exit statuses: 0 all expectations held, 1 one failed, 2 usage or script error,
// 3 the socket could not be opened.
enum { EXIT_OK = 0, EXIT_FAILED = 1, EXIT_USAGE = 2, EXIT_SOCKET = 3 };

int Usage(const std::string& problem)
{
    if (!problem.empty()) {
        std::cerr << "panelsim: " << problem << "\n";
    }
    std::cerr << "usage: panelsim [--socket PATH] [--script FILE|-] [--dump-on-exit] [--quiet]\n"
                 "  --socket PATH   listen here for the daemon (default "
              << kDefaultSocket
              << ")\n"
                 "  --script FILE   run a script (- for standard input) instead of the terminal panel\n"
                 "  --dump-on-exit  print the screen when leaving\n"
                 "  --quiet         do not report protocol errors and progress\n";
    return EXIT_USAGE;
}

}  // namespace

int main(int argc, char** argv)
{
    std::string socketPath = kDefaultSocket;
    std::string scriptPath;
    bool dumpOnExit = false;
    bool quiet = false;
    for (int i = 1; i < argc; ++i) {
        const std::string arg = argv[i];
        if ((arg == "--socket" || arg == "--script") && i + 1 < argc) {
            (arg == "--socket" ? socketPath : scriptPath) = argv[++i];
        } else if (arg == "--dump-on-exit") {
            dumpOnExit = true;
        } else if (arg == "--quiet") {
            quiet = true;
        } else if (arg == "-h" || arg == "--help") {
            Usage("");
            return EXIT_OK;
        } else {
            return Usage(arg == "--socket" || arg == "--script" ? arg + " needs a value"
                                                                : "unknown argument " + arg);
        }
    }

    std::vector<Panelsim::ScriptStep_t> steps;
    if (!scriptPath.empty()) {
        std::string error;
        bool parsed = false;
        if (scriptPath == "-") {
            parsed = Panelsim::ParseScript(std::cin, steps, error);
        } else {
            std::ifstream file(scriptPath);
            if (!file) {
                std::cerr << "panelsim: cannot read " << scriptPath << ": " << std::strerror(errno) << "\n";
                return EXIT_USAGE;
            }
            parsed = Panelsim::ParseScript(file, steps, error);
        }
        if (!parsed) {
            std::cerr << "panelsim: " << scriptPath << ": " << error << "\n";
            return EXIT_USAGE;
        }
    } else if (!isatty(STDIN_FILENO) || !isatty(STDOUT_FILENO)) {
        return Usage("the terminal panel needs a terminal; use --script for automation");
    }

    signal(SIGPIPE, SIG_IGN);
    Panelsim::CPanelServer server(socketPath);
    std::string error;
    if (!server.Open(error)) {
        std::cerr << "panelsim: " << error << "\n";
        return EXIT_SOCKET;
    }

    int status = EXIT_OK;
    if (!scriptPath.empty()) {
        status = Panelsim::RunScript(server, steps, quiet, std::cout, std::cerr);
    } else {
        status = Panelsim::RunTerminal(server);
    }
    if (dumpOnExit) {
        std::cout << server.Model().Dump() << std::flush;
    }
    return status;
}
