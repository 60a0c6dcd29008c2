#include "platform/native/native_file_store.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "full_disk.h"

namespace korva {
namespace {

namespace fs = std::filesystem;

constexpr uid_t kNobody = 65534;
constexpr std::size_t kMost = std::size_t{2} << 20;

// A folder of its own for each test.
struct NativeFileStoreTest : testing::Test {
  NativeFileStoreTest() {
    std::string name = (fs::temp_directory_path() / "korva-files-XXXXXX").string();
    folder = mkdtemp(name.data());
  }
  ~NativeFileStoreTest() override { fs::remove_all(folder); }
  NativeFileStoreTest(const NativeFileStoreTest&) = delete;
  NativeFileStoreTest& operator=(const NativeFileStoreTest&) = delete;

  [[nodiscard]] String Path(const char* name) const { return (folder / name).u16string(); }

  [[nodiscard]] fs::path Make(const char* name, const std::string& bytes) const {
    std::ofstream(folder / name, std::ios::binary) << bytes;
    return folder / name;
  }

  static std::string Content(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }

  [[nodiscard]] std::ptrdiff_t Entries() const {
    return std::distance(fs::directory_iterator(folder), fs::directory_iterator());
  }

  fs::path folder;
  NativeFileStore store;
  SystemReason reason;
};

// Gives up the superuser's rights for a while, so that permissions count.
class Unprivileged {
 public:
  Unprivileged() : was_(geteuid()) {
    if (was_ == 0) {
      EXPECT_EQ(seteuid(kNobody), 0);
    }
  }
  Unprivileged(const Unprivileged&) = delete;
  Unprivileged& operator=(const Unprivileged&) = delete;
  ~Unprivileged() {
    if (was_ == 0) {
      EXPECT_EQ(seteuid(was_), 0);
    }
  }

 private:
  uid_t was_;
};

TEST_F(NativeFileStoreTest, AFileReadsBackByteForByte) {
  const std::string bytes("a\0\r\n\xFF\x1A", 6);
  EXPECT_TRUE(store.Replace(Path("a.cfg"), bytes, reason));
  EXPECT_TRUE(store.Exists(Path("a.cfg")));
  EXPECT_EQ(store.Read(Path("a.cfg"), kMost, reason), bytes);
}

TEST_F(NativeFileStoreTest, LargeAndEmptyFilesAreWhole) {
  const std::string large(1000003, 'x');
  EXPECT_TRUE(store.Replace(Path("large"), large, reason));
  EXPECT_EQ(store.Read(Path("large"), kMost, reason), large);
  EXPECT_TRUE(store.Replace(Path("large"), "", reason));
  EXPECT_EQ(store.Read(Path("large"), kMost, reason), "");
}

TEST_F(NativeFileStoreTest, NamesMayBeJapanese) {
  EXPECT_TRUE(store.Replace(folder.u16string() + u"/設定ﾌｧｲﾙ.cfg", "x", reason));
  EXPECT_TRUE(fs::exists(folder / "設定ﾌｧｲﾙ.cfg"));
}

TEST_F(NativeFileStoreTest, AMissingFileTellsTheSystemsReason) {
  EXPECT_FALSE(store.Exists(Path("none")));
  EXPECT_EQ(store.Read(Path("none"), kMost, reason), std::nullopt);
  EXPECT_EQ(reason.words, u"No such file or directory");
}

TEST_F(NativeFileStoreTest, AFolderIsNotRead) {
  EXPECT_TRUE(store.Exists(folder.u16string()));
  EXPECT_EQ(store.Read(folder.u16string(), kMost, reason), std::nullopt);
  EXPECT_EQ(reason.words, u"Is a directory");
}

TEST_F(NativeFileStoreTest, APipeIsNeitherWaitedForNorReplaced) {
  ASSERT_EQ(mkfifo((folder / "pipe").c_str(), S_IRUSR | S_IWUSR), 0);
  EXPECT_EQ(store.Read(Path("pipe"), kMost, reason), std::nullopt);
  EXPECT_EQ(reason.words, u"Operation not supported");
  EXPECT_FALSE(store.Replace(Path("pipe"), "x", reason));
  EXPECT_TRUE(fs::is_fifo(folder / "pipe"));
}

TEST_F(NativeFileStoreTest, AFileOfAbsurdSizeIsNotRead) {
  const fs::path file = Make("sparse", "");
  fs::resize_file(file, std::uintmax_t{1} << 40);
  EXPECT_EQ(store.Read(Path("sparse"), kMost, reason), std::nullopt);
  EXPECT_EQ(reason.words, u"File too large");
}

TEST_F(NativeFileStoreTest, AFileOfMoreBytesThanAreAskedForIsNotRead) {
  (void)Make("a", std::string(100000, 'x'));
  EXPECT_EQ(store.Read(Path("a"), 100000, reason)->size(), 100000U);
  EXPECT_EQ(store.Read(Path("a"), 99999, reason), std::nullopt);
  EXPECT_EQ(reason.what, SystemReason::Case::TooLarge);
}

TEST_F(NativeFileStoreTest, AReasonTellsItsCase) {
  EXPECT_EQ(store.Read(Path("none"), kMost, reason), std::nullopt);
  EXPECT_EQ(reason.what, SystemReason::Case::Missing);
  EXPECT_FALSE(store.Replace(folder.u16string(), "x", reason));
  EXPECT_EQ(reason.what, SystemReason::Case::Folder);
}

TEST_F(NativeFileStoreTest, APathThatIsNoTextOfTheMachineHasAReason) {
  const String half = Path("a") + char16_t{0xD800};
  const String with_nul = Path("a") + char16_t{0};
  for (const String& path : {half, with_nul}) {
    reason = {};
    EXPECT_FALSE(store.Exists(path));
    EXPECT_EQ(store.Read(path, kMost, reason), std::nullopt);
    EXPECT_FALSE(reason.words.empty());
    EXPECT_FALSE(store.Replace(path, "x", reason));
  }
  EXPECT_EQ(store.Read(u"", kMost, reason), std::nullopt);
  EXPECT_FALSE(store.Replace(u"", "x", reason));
  EXPECT_EQ(reason.words, u"No such file or directory");
  EXPECT_EQ(Entries(), 0);
}

TEST_F(NativeFileStoreTest, AFolderThatIsGoneTellsTheSystemsReason) {
  EXPECT_FALSE(store.Replace(Path("gone/a.cfg"), "x", reason));
  EXPECT_EQ(reason.words, u"No such file or directory");
}

TEST_F(NativeFileStoreTest, AFolderIsNotReplaced) {
  fs::create_directory(folder / "sub");
  EXPECT_FALSE(store.Replace(Path("sub"), "x", reason));
  EXPECT_EQ(reason.words, u"Is a directory");
  EXPECT_FALSE(store.Replace(Path("sub/"), "x", reason));
  EXPECT_TRUE(fs::is_directory(folder / "sub"));
}

TEST_F(NativeFileStoreTest, AReplacedFileKeepsItsPermissions) {
  const fs::path file = Make("a.cfg", "old");
  fs::permissions(file, fs::perms(0640));
  EXPECT_TRUE(store.Replace(Path("a.cfg"), "new", reason));
  EXPECT_EQ(fs::status(file).permissions(), fs::perms(0640));
  EXPECT_EQ(Content(file), "new");
  EXPECT_EQ(Entries(), 1) << "no temporary stays";
}

TEST_F(NativeFileStoreTest, ANewFileGetsTheUsersUsualPermissions) {
  const mode_t old_mask = umask(027);
  EXPECT_TRUE(store.Replace(Path("a.cfg"), "new", reason));
  umask(old_mask);
  EXPECT_EQ(fs::status(folder / "a.cfg").permissions(), fs::perms(0640));
}

TEST_F(NativeFileStoreTest, AFullDiskLeavesTheOldFileWholeAndNoTemporary) {
  const fs::path file = Make("a.cfg", "old");
  bool replaced = true;
  {
    const FullDisk full(rlim_t{1} << 20);
    replaced = store.Replace(Path("a.cfg"), std::string(std::size_t{2} << 20, 'x'), reason);
  }
  EXPECT_FALSE(replaced);
  EXPECT_EQ(reason.words, u"File too large");
  EXPECT_EQ(Content(file), "old");
  EXPECT_EQ(Entries(), 1);
}

TEST_F(NativeFileStoreTest, WhatAKilledSaveLeftIsRemovedByTheNextSaveThere) {
  (void)Make(".korva-4711-0.tmp", "half");
  (void)Make(".korva-1-12.tmp", "");
  EXPECT_TRUE(store.Replace(Path("a.cfg"), "new", reason));
  EXPECT_EQ(Entries(), 1);
  EXPECT_EQ(Content(folder / "a.cfg"), "new");
}

TEST_F(NativeFileStoreTest, TheTemporaryOfASaveThatLivesStays) {
  const int other = open(Make(".korva-4711-0.tmp", "half").c_str(), O_WRONLY | O_CLOEXEC);
  ASSERT_EQ(flock(other, LOCK_EX), 0);
  EXPECT_TRUE(store.Replace(Path("a.cfg"), "new", reason));
  close(other);
  EXPECT_TRUE(fs::exists(folder / ".korva-4711-0.tmp"));
  EXPECT_TRUE(store.Replace(Path("a.cfg"), "new", reason));
  EXPECT_FALSE(fs::exists(folder / ".korva-4711-0.tmp"));
}

TEST_F(NativeFileStoreTest, WhatOnlyLooksLikeATemporaryStays) {
  fs::create_directory(folder / ".korva-4711-1.tmp");
  fs::create_symlink("kept.tmp", folder / ".korva-4711-2.tmp");
  for (const char* name :
       {".korva-4711-0.tmp~", ".korva-.cfg", ".korva-a-0.tmp", "korva-4711-0.tmp", "kept.tmp"}) {
    (void)Make(name, "kept");
  }
  EXPECT_TRUE(store.Replace(Path("a.cfg"), "new", reason));
  EXPECT_EQ(Entries(), 8);
  EXPECT_EQ(Content(folder / "kept.tmp"), "kept");
}

TEST_F(NativeFileStoreTest, AWriteProtectedFileIsNotReplaced) {
  const fs::path file = Make("a.cfg", "old");
  fs::permissions(folder, fs::perms::all);
  fs::permissions(file, fs::perms(0444));
  bool replaced = true;
  {
    const Unprivileged user;
    replaced = store.Replace(Path("a.cfg"), "new", reason);
  }
  EXPECT_FALSE(replaced);
  EXPECT_EQ(reason.words, u"Permission denied");
  EXPECT_EQ(Content(file), "old");
  EXPECT_EQ(Entries(), 1);
}

TEST_F(NativeFileStoreTest, AProtectedFolderTellsTheSystemsReason) {
  fs::permissions(folder, fs::perms(0555));
  bool replaced = true;
  {
    const Unprivileged user;
    replaced = store.Replace(Path("a.cfg"), "new", reason);
  }
  fs::permissions(folder, fs::perms(0755));
  EXPECT_FALSE(replaced);
  EXPECT_EQ(reason.words, u"Permission denied");
}

TEST_F(NativeFileStoreTest, ALinkStaysALinkAndItsTargetIsReplaced) {
  fs::create_directory(folder / "elsewhere");
  const fs::path target = Make("elsewhere/real.cfg", "old");
  fs::create_symlink("elsewhere/real.cfg", folder / "inner.cfg");
  fs::create_symlink(folder / "inner.cfg", folder / "outer.cfg");
  EXPECT_TRUE(store.Replace(Path("outer.cfg"), "new", reason));
  EXPECT_TRUE(fs::is_symlink(folder / "outer.cfg"));
  EXPECT_TRUE(fs::is_symlink(folder / "inner.cfg"));
  EXPECT_FALSE(fs::is_symlink(target));
  EXPECT_EQ(Content(target), "new");
  EXPECT_EQ(store.Read(Path("outer.cfg"), kMost, reason), "new");
}

TEST_F(NativeFileStoreTest, ALinkToNothingYetGetsItsTarget) {
  fs::create_symlink("real.cfg", folder / "link.cfg");
  EXPECT_FALSE(store.Exists(Path("link.cfg")));
  EXPECT_TRUE(store.Replace(Path("link.cfg"), "new", reason));
  EXPECT_TRUE(fs::is_symlink(folder / "link.cfg"));
  EXPECT_EQ(Content(folder / "real.cfg"), "new");
}

TEST_F(NativeFileStoreTest, LinksInACircleHaveAReason) {
  fs::create_symlink("b", folder / "a");
  fs::create_symlink("a", folder / "b");
  EXPECT_FALSE(store.Exists(Path("a")));
  EXPECT_EQ(store.Read(Path("a"), kMost, reason), std::nullopt);
  EXPECT_EQ(reason.words, u"Too many levels of symbolic links");
  EXPECT_FALSE(store.Replace(Path("a"), "x", reason));
  EXPECT_EQ(reason.words, u"Too many levels of symbolic links");
}

TEST_F(NativeFileStoreTest, TheSeparatorIsThePlatforms) { EXPECT_EQ(store.Separator(), u'/'); }

TEST_F(NativeFileStoreTest, WhatWasWrittenCanBeReadBeforeItTakesTheOldFilesPlace) {
  const fs::path old = Make("a.cfg", "old");
  int reviews = 0;
  EXPECT_TRUE(store.Replace(Path("a.cfg"), "new", reason, [&](const String& written) {
    ++reviews;
    EXPECT_EQ(store.Read(written, kMost, reason), "new");
    EXPECT_EQ(Content(old), "old");
  }));
  EXPECT_EQ(reviews, 1);
  EXPECT_EQ(Content(old), "new");
}

}  // namespace
}  // namespace korva
