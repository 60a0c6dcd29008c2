#include "sim/sim_home.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace korva::sim {
namespace {

namespace fs = std::filesystem;

/// A folder in which the simulator can be laid down in both ways, and a user's home.
class SimHomeTest : public testing::Test {
 protected:
  SimHomeTest() {
    setenv("HOME", (root_ / "me").c_str(), 1);
    unsetenv("XDG_DATA_HOME");
  }
  void TearDown() override { fs::remove_all(root_); }
  static void Lay(const fs::path& folder) { fs::create_directories(folder / "system"); }

  fs::path root_ = fs::path(testing::TempDir()) /
                   ("sim_home_" + std::string(testing::UnitTest::GetInstance()->current_test_info()->name()));
};

TEST_F(SimHomeTest, FilesLieBesideASimulatorThatIsNotInstalled) {
  Lay(root_ / "bin");
  Lay(root_ / "share" / "korva");
  const auto beside = FindSimHome(root_ / "bin", {});
  EXPECT_EQ(beside.installed, root_ / "bin");
  EXPECT_EQ(beside.own, root_ / "bin");
  const auto named = FindSimHome(root_ / "bin", "/mine");
  EXPECT_EQ(named.installed, "/mine");
  EXPECT_EQ(named.own, "/mine");
}

TEST_F(SimHomeTest, AnInstalledSimulatorPutsItsPortIntoTheUsersOwnFolder) {
  Lay(root_ / "share" / "korva");
  const auto home = FindSimHome(root_ / "bin", {});
  EXPECT_EQ(home.installed, root_ / "share" / "korva");
  EXPECT_EQ(home.own, root_ / "me" / ".local" / "share" / "korva");

  setenv("XDG_DATA_HOME", "/else", 1);
  EXPECT_EQ(FindSimHome(root_ / "bin", {}).own, "/else/korva");
  setenv("XDG_DATA_HOME", "no/full/path", 1);
  EXPECT_EQ(FindSimHome(root_ / "bin", {}).own, root_ / "me" / ".local" / "share" / "korva");
}

TEST_F(SimHomeTest, AFolderOfThatNameWhereItIsStartedIsNotTheSimulators) {
  Lay(root_ / "share" / "korva");
  Lay(root_);
  const auto before = fs::current_path();
  fs::current_path(root_);
  EXPECT_EQ(FindSimHome(root_ / "bin", {}).installed, root_ / "share" / "korva");
  fs::current_path(before);
}

TEST_F(SimHomeTest, AFolderNamedToAnInstalledSimulatorMayHaveSystemFilesOfItsOwn) {
  Lay(root_ / "share" / "korva");
  const auto without = FindSimHome(root_ / "bin", root_ / "mine");
  EXPECT_EQ(without.installed, root_ / "share" / "korva");
  EXPECT_EQ(without.own, root_ / "mine");

  Lay(root_ / "mine");
  EXPECT_EQ(FindSimHome(root_ / "bin", root_ / "mine").installed, root_ / "mine");
}

}  // namespace
}  // namespace korva::sim
