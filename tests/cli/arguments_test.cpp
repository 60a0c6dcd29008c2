#include "cli/arguments.h"

#include <gtest/gtest.h>

#include <vector>

namespace korva::cli {
namespace {

struct Result {
  std::optional<Arguments> arguments;
  std::string problem;
};

Result Parse(const std::vector<const char*>& words) {
  Result result;
  result.arguments = ParseArguments(words, result.problem);
  return result;
}

TEST(Arguments, OfAnEmptyCommandLineReadStandardInputInTheProgramsOwnFolder) {
  const auto arguments = Parse({}).arguments.value();
  EXPECT_EQ(arguments.home, std::nullopt);
  EXPECT_EQ(arguments.script, std::nullopt);
  EXPECT_FALSE(arguments.line);
  EXPECT_FALSE(arguments.keep_going);
  EXPECT_FALSE(arguments.help);
}

TEST(Arguments, NameTheFolderAndTheScriptInAnyOrder) {
  for (const auto& words : {std::vector{"--home", "/k", "a.txt"}, std::vector{"a.txt", "--home", "/k"}}) {
    const auto arguments = Parse(words).arguments.value();
    EXPECT_EQ(arguments.home, "/k");
    EXPECT_EQ(arguments.script, "a.txt");
  }
}

TEST(Arguments, TakeALoneDashForStandardInput) {
  EXPECT_EQ(Parse({"-"}).arguments.value().script, std::nullopt);
}

TEST(Arguments, SwitchTheTrafficAndTheGoingOnBehindAWrongLineOn) {
  const auto arguments = Parse({"--line", "--keep-going"}).arguments.value();
  EXPECT_TRUE(arguments.line);
  EXPECT_TRUE(arguments.keep_going);
}

TEST(Arguments, MakeTheExitStatusTellOfRefusalsOnDemand) {
  EXPECT_FALSE(Parse({}).arguments.value().strict);
  EXPECT_TRUE(Parse({"--strict"}).arguments.value().strict);
}

TEST(Arguments, AskForHelp) { EXPECT_TRUE(Parse({"--help"}).arguments.value().help); }

TEST(Arguments, ThatAreUnknownOrTooManyOrLackTheirValueAreNamed) {
  EXPECT_EQ(Parse({"--lime"}).arguments.has_value(), false);
  EXPECT_EQ(Parse({"--lime"}).problem, "unknown option \"--lime\"");
  EXPECT_EQ(Parse({"--home"}).problem, "--home needs a folder");
  EXPECT_EQ(Parse({"a", "b"}).problem, "more than one script");
  EXPECT_EQ(Parse({"-", "b"}).problem, "more than one script");
}

}  // namespace
}  // namespace korva::cli
