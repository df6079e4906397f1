// zorctl: look at and change a running unitd by hand or from scripts.
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <string>
#include <vector>

#include "Link.h"

using Zor::Json;

namespace {

volatile sig_atomic_t g_stop = 0;

void OnSignal(int)
{
    g_stop = 1;
}

const char kUsage[] =
    "Usage: zorctl --socket PATH [--json] [--timeout MS] COMMAND [ARGS]\n"
    "Commands:\n"
    "  get KEY...               read values; KEY is name.instance (unitAlias.0),\n"
    "                           name.% or a bare name (every instance)\n"
    "  set KEY VALUE [--force]  write one value; --force also writes status objects\n"
    "  watch [KEY...]           print changes until interrupted (everything by default)\n"
    "  writes [--since N]       the journal of client writes, refused ones too\n"
    "  subsystems [TYPE...]     fitted subsystems and their instances (all by default)\n"
    "  behave NAME [NUMBER]     read or change a behaviour setting of the unit, e.g.\n"
    "                           updateCompletionCode 2 (the next update fails)\n"
    "Options:\n"
    "  --socket PATH            unitd's socket (default: $UNITD_SOCKET)\n"
    "  --json                   print JSON, one object per line, for scripts\n"
    "  --timeout MS             give up on an answer after MS milliseconds (default 5000)\n";

struct Options_t {
    std::string socket;
    bool json = false;
    int timeoutMs = 5000;
    bool force = false;
    long since = 0;
    std::string command;
    std::vector<std::string> args;
};

int Fail(const std::string& msg)
{
    std::fprintf(stderr, "zorctl: %s\n", msg.c_str());
    return 1;
}

// Sends one request and takes its answer; non-zero (after saying why) when the unit could
// not be reached or refused the request.
int Request(CLink& link, const Json& request, Json& answer)
{
    std::string error;
    if (!link.Ask(request, answer, error)) {
        return Fail(error);
    }
    if (!answer.value("ok", false)) {
        return Fail(answer.value("msg", std::string("refused")));
    }
    return 0;
}

int UsageError(const std::string& msg)
{
    std::fprintf(stderr, "zorctl: %s\n%s", msg.c_str(), kUsage);
    return 2;
}

bool ParseNumber(const std::string& text, long& out)
{
    char* end = nullptr;
    out = std::strtol(text.c_str(), &end, 10);
    return !text.empty() && *end == '\0' && out >= 0;
}

// Returns -1 when the command line is good, else the exit status.
int ParseArgs(int argc, char** argv, Options_t& o)
{
    const char* env = std::getenv("UNITD_SOCKET");
    o.socket = env != nullptr ? env : "";
    for (int i = 1; i < argc; ++i) {
        std::string arg = argv[i];
        auto value = [&](std::string& out) {
            if (i + 1 >= argc) {
                return false;
            }
            out = argv[++i];
            return true;
        };
        std::string text;
        long number = 0;
        if (arg == "-h" || arg == "--help") {
            std::fputs(kUsage, stdout);
            return 0;
        } else if (arg == "--socket") {
            if (!value(o.socket)) {
                return UsageError("--socket needs a path");
            }
        } else if (arg == "--json") {
            o.json = true;
        } else if (arg == "--force") {
            o.force = true;
        } else if (arg == "--timeout" || arg == "--since") {
            if (!value(text) || !ParseNumber(text, number)) {
                return UsageError(arg + " needs a number");
            }
            if (arg == "--since") {
                o.since = number;
            } else {
                o.timeoutMs = number > 0 ? static_cast<int>(number) : 1;
            }
        } else if (arg.size() > 1 && arg[0] == '-') {
            return UsageError("unknown option \"" + arg + "\"");
        } else if (o.command.empty()) {
            o.command = arg;
        } else {
            o.args.push_back(arg);
        }
    }
    if (o.command.empty()) {
        return UsageError("no command");
    }
    if (o.socket.empty()) {
        return UsageError("no socket: use --socket PATH or set UNITD_SOCKET");
    }
    return -1;
}

// "name.1.1" -> name and ".1.1"; a bare name or "name.%" -> ".%".
bool SplitKey(const std::string& key, std::string& name, std::string& instance)
{
    size_t dot = key.find('.');
    name = key.substr(0, dot);
    instance = dot == std::string::npos ? ".%" : key.substr(dot);
    if (instance == ".%" || instance == "%") {
        instance = ".%";
    }
    return !name.empty() && instance.size() > 1;
}

std::string Clock()
{
    std::time_t now = std::time(nullptr);
    std::tm parts{};
    localtime_r(&now, &parts);
    char buf[16];
    std::strftime(buf, sizeof buf, "%H:%M:%S", &parts);
    return buf;
}

std::string Show(const Json& value)
{
    return value.dump(-1, ' ', false, Json::error_handler_t::replace);
}

int Get(CLink& link, const Options_t& o)
{
    if (o.args.empty()) {
        return UsageError("get needs at least one KEY");
    }
    Json keys = Json::array();
    for (const auto& key : o.args) {
        std::string name, inst;
        if (!SplitKey(key, name, inst)) {
            return UsageError("bad key \"" + key + "\"");
        }
        keys.push_back(name + inst);
    }
    Json answer;
    if (int status = Request(link, Json{{"op", "get"}, {"keys", keys}}, answer)) {
        return status;
    }
    const Json& values = answer["values"];
    if (o.json) {
        std::printf("%s\n", Show(values).c_str());
    } else {
        for (auto obj = values.begin(); obj != values.end(); ++obj) {
            for (auto inst = obj.value().begin(); inst != obj.value().end(); ++inst) {
                std::printf("%s%s = %s\n", obj.key().c_str(), inst.key().c_str(), Show(inst.value()).c_str());
            }
        }
    }
    // Name what was asked for and not found, so a typo does not pass for an empty answer.
    std::fflush(stdout);
    int status = 0;
    for (const auto& key : keys) {
        std::string k = key.get<std::string>();
        std::string name = k.substr(0, k.find('.'));
        std::string inst = k.substr(k.find('.'));
        if (!values.contains(name) || (inst != ".%" && !values[name].contains(inst))) {
            std::fprintf(stderr, "zorctl: no such object: %s\n", k.c_str());
            status = 1;
        }
    }
    return status;
}

int Set(CLink& link, const Options_t& o)
{
    std::string name, inst;
    if (o.args.size() != 2 || !SplitKey(o.args[0], name, inst) || inst == ".%") {
        return UsageError("set needs KEY (name.instance) and VALUE");
    }
    // Values go as text, as the panel writes them; the unit converts them to the type.
    Json req = {
        {"op", "set"}, {"client", "zorctl"}, {"name", name}, {"instance", inst}, {"value", o.args[1]}};
    if (o.force) {
        req["force"] = true;
    }
    Json answer;
    std::string error;
    if (!link.Ask(req, answer, error)) {
        return Fail(error);
    }
    bool ok = answer.value("ok", false);
    if (o.json) {
        answer.erase("id");
        std::printf("%s\n", Show(answer).c_str());
        return ok ? 0 : 1;
    }
    if (!ok) {
        return Fail(answer.value("msg", std::string("refused")));
    }
    std::printf("%s%s set\n", name.c_str(), inst.c_str());
    return 0;
}

int Watch(CLink& link, const Options_t& o)
{
    std::vector<std::string> keys = o.args;
    if (keys.empty()) {
        keys.push_back("*");
    }
    for (const auto& key : keys) {
        std::string name, inst;
        if (!SplitKey(key, name, inst)) {
            return UsageError("bad key \"" + key + "\"");
        }
        Json answer;
        std::string error;
        if (!link.Ask(Json{{"op", "subscribe"}, {"name", name}, {"instance", inst}}, answer, error)) {
            return Fail(error);
        }
        if (!answer.value("ok", false)) {
            return Fail(answer.value("msg", std::string("refused")));
        }
    }
    if (!o.json) {
        std::fprintf(stderr, "zorctl: watching; Ctrl-C to stop\n");
    }
    while (!g_stop) {
        Json event;
        bool closed = false;
        if (!link.NextEvent(event, 200, closed)) {
            if (closed) {
                return Fail("unitd closed the connection");
            }
            continue;
        }
        if (o.json) {
            std::printf("%s\n", Show(event).c_str());
        } else {
            std::printf("%s %s%s = %s\n", Clock().c_str(), event.value("name", std::string()).c_str(),
                        event.value("instance", std::string()).c_str(), Show(event["value"]).c_str());
        }
        std::fflush(stdout);
    }
    return 0;
}

int Writes(CLink& link, const Options_t& o)
{
    Json answer;
    if (int status = Request(link, Json{{"op", "writes"}, {"since", o.since}}, answer)) {
        return status;
    }
    if (o.json) {
        answer.erase("id");
        answer.erase("ok");
        std::printf("%s\n", Show(answer).c_str());
        return 0;
    }
    for (const auto& w : answer["writes"]) {
        std::string inst = w.value("instance", std::string());
        if (!inst.empty() && inst[0] != '.') {
            inst = "." + inst;
        }
        std::string outcome = w.value("ok", false) ? "" : "  refused: " + w.value("msg", std::string());
        std::printf("#%u %s %s%s = %s%s\n", w.value("seq", 0u), w.value("client", std::string()).c_str(),
                    w.value("name", std::string()).c_str(), inst.c_str(), Show(w["value"]).c_str(),
                    outcome.c_str());
    }
    return 0;
}

int Subsystems(CLink& link, const Options_t& o)
{
    Json req = {{"op", "subsystems"}};
    if (!o.args.empty()) {
        req["types"] = o.args;
    }
    Json answer;
    if (int status = Request(link, req, answer)) {
        return status;
    }
    const Json& present = answer["present"];
    if (o.json) {
        std::printf("%s\n", Show(present).c_str());
    } else {
        for (auto it = present.begin(); it != present.end(); ++it) {
            std::string list;
            for (const auto& inst : it.value()) {
                list += " " + inst.get<std::string>();
            }
            std::printf("%s:%s\n", it.key().c_str(), list.c_str());
        }
    }
    if (!o.args.empty() && present.empty()) {
        return Fail("none of these subsystems is fitted");
    }
    return 0;
}

int Behave(CLink& link, const Options_t& o)
{
    if (o.args.empty() || o.args.size() > 2) {
        return UsageError("behave needs NAME and optionally a NUMBER");
    }
    Json req = {{"op", "behaviour"}, {"name", o.args[0]}};
    if (o.args.size() == 2) {
        Json value = Json::parse(o.args[1], nullptr, false);
        if (!value.is_number()) {
            return UsageError("behave: \"" + o.args[1] + "\" is not a number");
        }
        req["value"] = value;
    }
    Json answer;
    if (int status = Request(link, req, answer)) {
        return status;
    }
    const Json& value = answer["value"];
    std::printf("%s = %s\n", o.args[0].c_str(), value.is_null() ? "(unset)" : Show(value).c_str());
    return 0;
}

}  // namespace

int main(int argc, char** argv)
{
    Options_t o;
    int status = ParseArgs(argc, argv, o);
    if (status >= 0) {
        return status;
    }
    typedef int (*Command)(CLink&, const Options_t&);
    const std::pair<const char*, Command> commands[] = {
        {"get", Get},      {"set", Set}, {"watch", Watch}, {"writes", Writes}, {"subsystems", Subsystems},
        {"behave", Behave}};
    Command run = nullptr;
    for (const auto& c : commands) {
        if (o.command == c.first) {
            run = c.second;
        }
    }
    if (run == nullptr) {
        return UsageError("unknown command \"" + o.command + "\"");
    }
    // Argument counts are checked before any connection is made.
    if ((o.command == "get" && o.args.empty()) || (o.command == "set" && o.args.size() != 2)) {
        return UsageError(o.command == "get" ? "get needs at least one KEY" : "set needs KEY and VALUE");
    }
    struct sigaction sa;
    std::memset(&sa, 0, sizeof sa);
    sa.sa_handler = OnSignal;
    sigaction(SIGINT, &sa, nullptr);
    sigaction(SIGTERM, &sa, nullptr);
    signal(SIGPIPE, SIG_IGN);
    CLink link(o.socket, o.timeoutMs);
    std::string error;
    if (!link.Connect(error)) {
        return Fail(error);
    }
    try {
        return run(link, o);
    } catch (const std::exception& e) {
        return Fail(std::string("unexpected answer from unitd: ") + e.what());
    }
}
