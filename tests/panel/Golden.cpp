#include "Golden.h"

#include <cstdlib>
#include <cstring>
#include <fstream>
#include <sstream>
#include <vector>

namespace PanelTest {

namespace {

bool UpdateRequested()
{
    const char* value = std::getenv("FP_UPDATE_GOLDEN");
    return value != nullptr && std::strcmp(value, "1") == 0;
}

std::vector<std::string> Lines(const std::string& text)
{
    std::vector<std::string> lines;
    std::istringstream in(text);
    std::string line;
    while (std::getline(in, line))
        lines.push_back(line);
    return lines;
}

bool Write(const std::string& path, const std::string& text)
{
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out << text;
    return static_cast<bool>(out);
}

}  // namespace

std::string GoldenPath(const std::string& name)
{
    return std::string(FP_GOLDEN_DIR) + "/" + name + ".txt";
}

std::string SideBySide(const std::string& expected, const std::string& actual)
{
    const std::vector<std::string> left = Lines(expected);
    const std::vector<std::string> right = Lines(actual);
    size_t width = std::strlen("expected");
    for (const std::string& line : left)
        width = std::max(width, line.size());
    std::ostringstream out;
    out << "  " << std::string("expected") + std::string(width - 8, ' ') << "   actual\n";
    for (size_t i = 0; i < std::max(left.size(), right.size()); ++i) {
        const std::string l = i < left.size() ? left[i] : "";
        const std::string r = i < right.size() ? right[i] : "";
        out << (l == r ? "  " : "! ") << l << std::string(width - l.size(), ' ') << (l == r ? "   " : " ! ")
            << r << '\n';
    }
    return out.str();
}

::testing::AssertionResult MatchesGolden(const std::string& name, const std::string& actual)
{
    const std::string path = GoldenPath(name);
    if (UpdateRequested()) {
        if (!Write(path, actual))
            return ::testing::AssertionFailure() << "cannot write golden file " << path;
        return ::testing::AssertionSuccess();
    }
    std::ifstream in(path, std::ios::binary);
    if (!in) {
        if (!Write(path, actual))
            return ::testing::AssertionFailure()
                   << "golden file " << path << " is missing and cannot be written";
        return ::testing::AssertionFailure()
               << "golden file " << path << " was missing and has been written; review it, then run again:\n"
               << actual;
    }
    std::stringstream expected;
    expected << in.rdbuf();
    if (expected.str() == actual)
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure()
           << "panel differs from " << path << " (FP_UPDATE_GOLDEN=1 rewrites it):\n"
           << SideBySide(expected.str(), actual);
}

}  // namespace PanelTest
