// Replays every seed and every regression input through its fuzz target's entry point, so
// that a finding, once fixed, stays fixed in the ordinary test run. Inputs named in
// regressions/OPEN are findings whose fix is still pending: they are skipped (and named)
// unless FUZZ_REPLAY_OPEN is set in the environment.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "FuzzSupport.h"
#include "Targets.h"

namespace {

typedef int (*Entry)(const uint8_t*, size_t);

struct Target_t {
    const char* name;
    Entry entry;
};

const Target_t kTargets[] = {
    {"keypad_stream", Fuzz::KeypadStream},
    {"display_text", Fuzz::DisplayText},
    {"panel_decoder", Fuzz::PanelDecoder},
    {"unitd_request", Fuzz::UnitdRequest},
    {"zor_oid", Fuzz::ZorOid},
    {"zor_param", Fuzz::ZorParam},
};

// The files of a folder but its README, sorted; none when there is no such folder.
std::vector<std::string> FilesIn(const std::string& dir)
{
    std::vector<std::string> files;
    std::error_code ec;
    for (const auto& entry : std::filesystem::directory_iterator(dir, ec))
        if (entry.path().filename() != "README")
            files.push_back(entry.path().filename().string());
    std::sort(files.begin(), files.end());
    return files;
}

std::string ReadFile(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

// "target/file" of every open finding: the first word of each line that is not a comment.
std::set<std::string> OpenFindings()
{
    std::set<std::string> open;
    std::istringstream lines(ReadFile(std::string(FUZZ_DIR) + "/regressions/OPEN"));
    std::string first;
    for (std::string line; std::getline(lines, line);)
        if (std::istringstream(line) >> first && first[0] != '#')
            open.insert(first);
    return open;
}

[[noreturn]] void Throw(const std::string& message)
{
    throw std::runtime_error(message);
}

class Replay : public ::testing::TestWithParam<Target_t> {
protected:
    void SetUp() override { Fuzz::SetFailHandler(Throw); }
    void TearDown() override { Fuzz::SetFailHandler(nullptr); }

    // Runs every file of corpus/<target> or regressions/<target>; returns how many ran.
    int RunAll(const std::string& kind)
    {
        const Target_t& target = GetParam();
        const std::string dir = std::string(FUZZ_DIR) + "/" + kind + "/" + target.name;
        const std::set<std::string> open = OpenFindings();
        const bool runOpen = std::getenv("FUZZ_REPLAY_OPEN") != nullptr;
        int count = 0;
        for (const std::string& file : FilesIn(dir)) {
            if (!runOpen && open.count(std::string(target.name) + "/" + file) != 0) {
                std::cout << "open finding, not replayed: " << kind << "/" << target.name << "/" << file
                          << "\n";
                continue;
            }
            const std::string bytes = ReadFile(dir + "/" + file);
            testing::internal::CaptureStdout();  // the keypad prints every key report
            try {
                target.entry(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size());
            } catch (const std::exception& e) {
                ADD_FAILURE() << kind << "/" << target.name << "/" << file << ": " << e.what();
            } catch (...) {
                ADD_FAILURE() << kind << "/" << target.name << "/" << file << ": unknown exception";
            }
            testing::internal::GetCapturedStdout();
            ++count;
        }
        return count;
    }
};

TEST_P(Replay, SeedsAndRegressions)
{
    EXPECT_GT(RunAll("corpus"), 0) << "every target has seeds";
    RunAll("regressions");
}

INSTANTIATE_TEST_SUITE_P(Fuzz, Replay, ::testing::ValuesIn(kTargets),
                         [](const ::testing::TestParamInfo<Target_t>& info) {
                             return std::string(info.param.name);
                         });

}  // namespace
