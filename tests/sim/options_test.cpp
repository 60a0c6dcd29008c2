#include "sim/options.h"

#include <gtest/gtest.h>

namespace korva::sim {
namespace {

Options Parse(const std::vector<const char*>& arguments) { return ParseOptions(arguments, "/opt/korva"); }

TEST(OptionsTest, WithoutArgumentsTheProgramsFolderAndItsFirstPort) {
  const auto options = Parse({});
  EXPECT_EQ(options.home.installed, "/opt/korva");
  EXPECT_EQ(options.home.own, "/opt/korva");
  EXPECT_EQ(options.link, "/opt/korva/ports/COM1");
  EXPECT_EQ(options.model, "");
  EXPECT_FALSE(options.latency) << "the device's own";
  EXPECT_FALSE(options.fast);
  EXPECT_FALSE(options.system_text);
}

TEST(OptionsTest, EveryOptionIsTaken) {
  const auto options =
      Parse({"--home", "/h", "--model", "QUO", "--fast", "--fault", "late@3", "--fault", "silent", "--sysver",
             "V 2", "--set", "01/02=A=B", "--trace", "--list", "--help"});
  EXPECT_EQ(options.link, "/h/ports/COM1");
  EXPECT_EQ(options.model, "QUO");
  EXPECT_EQ(options.latency, std::chrono::milliseconds(0)) << "fast";
  ASSERT_EQ(options.faults.size(), 2U);
  EXPECT_EQ(options.faults[0].first, 3);
  EXPECT_EQ(options.system_text, "V 2");
  ASSERT_EQ(options.presets.size(), 1U);
  EXPECT_EQ(options.presets[0].group, "01");
  EXPECT_EQ(options.presets[0].item, "02");
  EXPECT_EQ(options.presets[0].value, "A=B");
  EXPECT_TRUE(options.fast && options.trace && options.list && options.help);
}

TEST(OptionsTest, HelpNamesTheFaultsOfAMemory) {
  for (const char* const name : {"stuck-byte", "wrong-read-back", "refused-address", "silent-access"}) {
    EXPECT_NE(HelpText().find(name), std::string_view::npos) << name;
    EXPECT_NO_THROW(ParseFault(name));
  }
}

TEST(OptionsTest, LatencyAndLinkAsToldWinOverTheDefaults) {
  const auto options = Parse({"--latency", "25", "--fast", "--link", "p", "--home", "/h"});
  EXPECT_EQ(options.latency, std::chrono::milliseconds(25));
  EXPECT_EQ(options.link, "p");
}

TEST(OptionsTest, BadArgumentIsAnError) {
  for (const auto& bad : std::vector<std::vector<const char*>>{{"--what"},
                                                               {"QUO"},
                                                               {"--home"},
                                                               {"--latency", "-1"},
                                                               {"--latency", "x"},
                                                               {"--latency", "60001"},
                                                               {"--latency", "5ms"},
                                                               {"--fault", "none"},
                                                               {"--set", "0102=x"},
                                                               {"--set", "01/02"},
                                                               {"--set", "1/2=x"}}) {
    EXPECT_THROW(Parse(bad), SetupError) << bad.front() << " " << bad.back();
  }
}

}  // namespace
}  // namespace korva::sim
