// Comparison of a panel dump with its reviewed golden file, tests/golden/<name>.txt.
// A missing file is written and the comparison fails until a person has reviewed it;
// FP_UPDATE_GOLDEN=1 in the environment rewrites every compared file instead.
#pragma once

#include <gtest/gtest.h>

#include <string>

namespace PanelTest {

std::string GoldenPath(const std::string& name);
::testing::AssertionResult MatchesGolden(const std::string& name, const std::string& actual);
// Expected and actual panels side by side, differing lines marked.
std::string SideBySide(const std::string& expected, const std::string& actual);

}  // namespace PanelTest
