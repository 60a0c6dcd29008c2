#include "platform/native/native_record_file.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <utility>

#include "full_disk.h"
#include "platform/native/native_reason.h"

namespace korva {
namespace {

namespace files = std::filesystem;

struct NativeRecordFileTest : testing::Test {
  NativeRecordFileTest() {
    std::string name = (files::temp_directory_path() / "korva-record-XXXXXX").string();
    folder = mkdtemp(name.data());
    path = folder / "record.csv";
  }
  ~NativeRecordFileTest() override { files::remove_all(folder); }
  NativeRecordFileTest(const NativeRecordFileTest&) = delete;
  NativeRecordFileTest& operator=(const NativeRecordFileTest&) = delete;

  std::unique_ptr<RecordFile> Create(const files::path& where) {
    return CreateRecordFile(where.u16string(), reason);
  }
  [[nodiscard]] std::string Content() const {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }

  files::path folder;
  files::path path;
  SystemReason reason;
};

TEST_F(NativeRecordFileTest, WhatIsAddedStandsInTheFileAtOnce) {
  const auto record = Create(path);
  ASSERT_NE(record, nullptr);
  EXPECT_EQ(Content(), "");
  EXPECT_TRUE(record->Add("one\r\n", reason));
  EXPECT_EQ(Content(), "one\r\n") << "though it is still open";
  EXPECT_TRUE(record->Add("two\r\n", reason));
  EXPECT_EQ(Content(), "one\r\ntwo\r\n");
}

TEST_F(NativeRecordFileTest, AnOldFileIsEmptiedAndKeepsItsPermissions) {
  std::ofstream(path) << "much longer than what comes";
  files::permissions(path, files::perms::owner_read | files::perms::owner_write);
  const auto record = Create(path);
  ASSERT_NE(record, nullptr);
  EXPECT_TRUE(record->Add("new", reason));
  EXPECT_EQ(Content(), "new");
  EXPECT_EQ(files::status(path).permissions(), files::perms::owner_read | files::perms::owner_write);
}

TEST_F(NativeRecordFileTest, WhatIsNoFileIsRefused) {
  EXPECT_EQ(Create(folder), nullptr);
  EXPECT_EQ(reason.what, SystemReason::Case::Folder);
  EXPECT_EQ(Create(folder / "none" / "record.csv"), nullptr);
  EXPECT_EQ(reason.what, SystemReason::Case::Missing);
  ASSERT_EQ(mkfifo((folder / "pipe").c_str(), S_IRUSR | S_IWUSR), 0);
  EXPECT_EQ(Create(folder / "pipe"), nullptr) << "and nobody waits for its reader";
  const int reader = open((folder / "pipe").c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  EXPECT_EQ(Create(folder / "pipe"), nullptr);
  EXPECT_EQ(reason.words, ReasonOf(ENOTSUP).words) << "by the machine it would be an invalid argument";
  close(reader);
  EXPECT_EQ(CreateRecordFile(String(1, u'\xD800'), reason), nullptr);
}

TEST_F(NativeRecordFileTest, ALineThatDoesNotFitLeavesTheLinesBeforeWhole) {
  const auto record = Create(path);
  ASSERT_NE(record, nullptr);
  EXPECT_TRUE(record->Add("one\r\n", reason));
  {
    const FullDisk full(8);
    EXPECT_FALSE(record->Add("second\r\n", reason));
    EXPECT_EQ(reason.what, SystemReason::Case::TooLarge);
  }
  EXPECT_EQ(Content(), "one\r\n");
  EXPECT_TRUE(record->Add("third\r\n", reason));
  EXPECT_EQ(Content(), "one\r\nthird\r\n") << "and no hole between them";
}

TEST_F(NativeRecordFileTest, AProgramThatIsKilledKeepsWhatItRecorded) {
  const pid_t child = fork();
  if (child == 0) {
    const auto record = Create(path);
    if (record != nullptr && record->Add("one\r\n", reason)) {
      kill(getpid(), SIGKILL);
    }
    _exit(1);
  }
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  EXPECT_TRUE(WIFSIGNALED(status));
  EXPECT_EQ(Content(), "one\r\n");
}

TEST_F(NativeRecordFileTest, ReachesTheDiskWhenAskedTo) {
  const auto record = Create(path);
  ASSERT_NE(record, nullptr);
  EXPECT_TRUE(record->Add("one\r\n", reason));
  EXPECT_TRUE(record->Keep(reason));
  EXPECT_TRUE(record->Add("two\r\n", reason));
  EXPECT_EQ(Content(), "one\r\ntwo\r\n");
}

TEST(LocalTimeTest, IsTheUsersTimeOfDay) {
  const char* const zone = std::getenv("TZ");
  const std::string before = zone == nullptr ? "" : zone;
  setenv("TZ", "JST-9", 1);
  tzset();
  const std::time_t now = std::time(nullptr);
  const auto local = LocalTimeNow().time_since_epoch().count();
  constexpr std::time_t ahead = std::time_t{9} * 3600;
  EXPECT_GE(local, now + ahead);
  EXPECT_LE(local, now + ahead + 5);
  zone == nullptr ? unsetenv("TZ") : setenv("TZ", before.c_str(), 1);
  tzset();
}

}  // namespace
}  // namespace korva
