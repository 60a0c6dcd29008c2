#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "platform/qt/program_home.h"

namespace korva {
namespace {

namespace fs = std::filesystem;

/// A folder in which programs can be laid down in both ways.
struct ProgramHomeTest : testing::Test {
  static void Lay(const fs::path& folder) { fs::create_directories(folder / "system"); }

  QTemporaryDir folder;
  fs::path root = folder.path().toStdString();
  fs::path users = root / "me" / "korva";
};

TEST_F(ProgramHomeTest, FilesLieBesideAProgramThatIsNotInstalled) {
  const ProgramHome none = FindHome(root / "bin", users, {});
  EXPECT_EQ(none.installed, root / "bin") << "it is the folder that the complaint will name";
  EXPECT_EQ(none.own, root / "bin");

  Lay(root / "bin");
  Lay(root / "share" / "korva");
  const ProgramHome beside = FindHome(root / "bin", users, {});
  EXPECT_EQ(beside.installed, root / "bin");
  EXPECT_EQ(beside.own, root / "bin");
}

TEST_F(ProgramHomeTest, ANamedFolderIsTheWholeHomeOfAProgramThatIsNotInstalled) {
  Lay(root / "bin");
  const ProgramHome named = FindHome(root / "bin", users, root / "mine");
  EXPECT_EQ(named.installed, root / "mine");
  EXPECT_EQ(named.own, root / "mine");
}

TEST_F(ProgramHomeTest, AnInstalledProgramKeepsWhatIsTheUsersInHisOwnFolder) {
  Lay(root / "share" / "korva");
  Lay(users);  // a link that another installation left there does not count
  const ProgramHome home = FindHome(root / "bin", users, {});
  EXPECT_EQ(home.installed, root / "share" / "korva");
  EXPECT_EQ(home.own, users);
}

TEST_F(ProgramHomeTest, AFolderOfThatNameWhereItIsStartedIsNotThePrograms) {
  Lay(root / "share" / "korva");
  Lay(root);
  const fs::path before = fs::current_path();
  fs::current_path(root);
  EXPECT_EQ(FindHome(root / "bin", users, {}).installed, root / "share" / "korva");
  fs::current_path(before);
}

TEST_F(ProgramHomeTest, AFolderNamedToAnInstalledProgramMayHaveSystemFilesOfItsOwn) {
  Lay(root / "share" / "korva");
  const ProgramHome without = FindHome(root / "bin", users, root / "mine");
  EXPECT_EQ(without.installed, root / "share" / "korva");
  EXPECT_EQ(without.own, root / "mine");

  Lay(root / "mine");
  const ProgramHome with = FindHome(root / "bin", users, root / "mine");
  EXPECT_EQ(with.installed, root / "mine");
  EXPECT_EQ(with.own, root / "mine");
}

TEST_F(ProgramHomeTest, ANamedFolderBecomesAFullPath) {
  const ProgramHome home = TakeHome("here/../there");
  EXPECT_EQ(home.installed, fs::current_path() / "there");
  EXPECT_EQ(home.own, fs::current_path() / "there");
}

TEST_F(ProgramHomeTest, AHelperLiesBesideTheProgramOrWhereItIsInstalled) {
  fs::create_directories(root / "bin");
  EXPECT_EQ(FindHelper(root / "bin", "korva-pdf"), root / "libexec" / "korva" / "korva-pdf");
  fs::create_directories(root / "bin" / "korva-pdf");
  EXPECT_EQ(FindHelper(root / "bin", "korva-pdf"), root / "bin" / "korva-pdf");
}

}  // namespace
}  // namespace korva
