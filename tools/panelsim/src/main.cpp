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
#ifdef PANELSIM_WEB
#include "WebPanel.h"
#endif

namespace {

const char kDefaultSocket[] = "/var/run/ttyhub.ttyS4.socket";

// Exit statuses: 0 all expectations held, 1 one failed, 2 usage or script error,
// 3 the socket could not be opened.
enum { EXIT_OK = 0, EXIT_FAILED = 1, EXIT_USAGE = 2, EXIT_SOCKET = 3 };

// With only the web panel: serves the daemon and the pages until a signal asks to stop.
int RunHeadless(Panelsim::CPanelServer& server)
{
    Panelsim::CatchStopSignals();
    while (!Panelsim::StopRequested()) {
        server.Poll(500);
    }
    return 0;
}

int Usage(const std::string& problem)
{
    if (!problem.empty()) {
        std::cerr << "panelsim: " << problem << "\n";
    }
    std::cerr << "usage: panelsim [--socket PATH] [--web [ADDRESS:]PORT] [--script FILE|-] [--dump-on-exit] [--quiet]\n"
                 "  --socket PATH   listen here for the daemon (default "
              << kDefaultSocket
              << ")\n"
                 "  --web [ADDRESS:]PORT  also serve the panel to web browsers (address 127.0.0.1 if none;\n"
                 "                  whoever reaches the page controls the unit); without a terminal,\n"
                 "                  the web panel alone\n"
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
    std::string web;
    bool dumpOnExit = false;
    bool quiet = false;
    for (int i = 1; i < argc; ++i) {
        const std::string arg = argv[i];
        if ((arg == "--socket" || arg == "--script" || arg == "--web") && i + 1 < argc) {
            (arg == "--socket" ? socketPath : arg == "--web" ? web : scriptPath) = argv[++i];
        } else if (arg == "--dump-on-exit") {
            dumpOnExit = true;
        } else if (arg == "--quiet") {
            quiet = true;
        } else if (arg == "-h" || arg == "--help") {
            Usage("");
            return EXIT_OK;
        } else {
            return Usage(arg == "--socket" || arg == "--script" || arg == "--web" ? arg + " needs a value"
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
    }
    const bool terminal = scriptPath.empty() && isatty(STDIN_FILENO) && isatty(STDOUT_FILENO);
    if (scriptPath.empty() && !terminal && web.empty()) {
        return Usage("the terminal panel needs a terminal; use --script or --web for automation");
    }
#ifndef PANELSIM_WEB
    if (!web.empty()) {
        std::cerr << "panelsim: this build has no web panel (cpp-httplib was not found)\n";
        return EXIT_USAGE;
    }
#endif

    signal(SIGPIPE, SIG_IGN);
    Panelsim::CPanelServer server(socketPath);
    std::string error;
    if (!server.Open(error)) {
        std::cerr << "panelsim: " << error << "\n";
        return EXIT_SOCKET;
    }

#ifdef PANELSIM_WEB
    // Its threads stop before the server it watches goes away.
    Panelsim::CWebPanel webPanel(!terminal);
    if (!web.empty()) {
        if (!webPanel.Start(web, error)) {
            std::cerr << "panelsim: " << error << "\n";
            return EXIT_SOCKET;
        }
        server.SetWatcher(&webPanel);
        std::cout << "panelsim: web panel on " << webPanel.Url() << std::endl;
    }
#endif

    int status = EXIT_OK;
    if (!scriptPath.empty()) {
        status = Panelsim::RunScript(server, steps, quiet, std::cout, std::cerr);
    } else if (terminal) {
        status = Panelsim::RunTerminal(server);
    } else {
        status = RunHeadless(server);
    }
    if (dumpOnExit) {
        std::cout << server.Model().Dump() << std::flush;
    }
    return status;
}
