#include "platform/native/native_file_store.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

#include "platform/native/native_file.h"
#include "platform/native/native_reason.h"

namespace korva {

namespace {

namespace fs = std::filesystem;

constexpr int kLongestLinkChain = 40;
constexpr std::string_view kTemporaryHead = ".korva-";
constexpr std::string_view kTemporaryTail = ".tmp";

// Reads the file, of `most` bytes at most, into `bytes`; the system's error number, 0 for success.
int ReadAll(const fs::path& path, std::size_t most, std::string& bytes) {
  // O_NONBLOCK: opening a pipe would wait for its other end.
  const Descriptor file(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
  struct stat status {};
  if (!file.Open() || fstat(file.Number(), &status) != 0) {
    return errno;
  }
  if (const int why = WhyNoFile(status)) {
    return why;
  }
  constexpr std::size_t block = 65536;
  while (true) {
    const std::size_t length = bytes.size();
    if (length > most) {
      return EFBIG;
    }
    bytes.resize(length + block);
    const ssize_t count = read(file.Number(), bytes.data() + length, block);
    bytes.resize(length + static_cast<std::size_t>(count > 0 ? count : 0));
    if (count == 0) {
      return 0;
    }
    if (count < 0 && errno != EINTR) {
      return errno;
    }
  }
}

// Follows symbolic links, also one whose target does not exist yet; 0 for success.
int FollowLinks(fs::path& path) {
  std::error_code error;
  for (int count = 0; fs::is_symlink(fs::symlink_status(path, error)); ++count) {
    if (count == kLongestLinkChain) {
      return ELOOP;
    }
    path = path.parent_path() / fs::read_symlink(path, error);
    if (error) {
      return error.value();
    }
  }
  return 0;
}

// A temporary is locked for as long as its save lives, so that one which a killed save left can be told from
// it.
bool Lock(const Descriptor& file) { return flock(file.Number(), LOCK_EX | LOCK_NB) == 0; }

bool IsTemporary(const std::string& name) {
  return name.starts_with(kTemporaryHead) && name.ends_with(kTemporaryTail) &&
         name.find_first_not_of("0123456789-", kTemporaryHead.size()) == name.size() - kTemporaryTail.size();
}

// Removes the temporaries that killed saves left in `folder`.
void RemoveLeftovers(const fs::path& folder) {
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
    const fs::path& path = entry->path();
    if (!IsTemporary(path.filename().string())) {
      continue;
    }
    const Descriptor file(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOFOLLOW | O_NOCTTY | O_CLOEXEC));
    if (file.Open() && Lock(file)) {
      unlink(path.c_str());  // a folder of this name stays
    }
  }
}

// Creates and locks a file of a new name in `folder`; with errno when that fails.
Descriptor CreateTemporary(const fs::path& folder, fs::path& name) {
  for (int number = 0;; ++number) {
    name = folder / (std::string(kTemporaryHead) + std::to_string(getpid()) + "-" + std::to_string(number) +
                     std::string(kTemporaryTail));
    Descriptor file(open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kNewFileMode));
    if (!file.Open() && errno != EEXIST) {
      return file;
    }
    // Before it was locked, another save may have taken it for a leftover.
    struct stat status {};
    const bool kept = file.Open() && (Lock(file) || errno != EWOULDBLOCK) &&
                      fstat(file.Number(), &status) == 0 && status.st_nlink > 0;
    if (kept) {
      return file;
    }
  }
}

// A name that is no text can't be told, and its file is not looked at.
void Show(const fs::path& written, const FileStore::Review& review) {
  String name;
  try {
    name = written.u16string();
  } catch (const std::exception&) {
    return;
  }
  review(name);
}

// Fills the temporary, shows it and gives it its final name; 0 for success.
int FillAndRename(const Descriptor& file, const fs::path& name, const fs::path& target,
                  std::string_view bytes, const struct stat* old, const FileStore::Review& review) {
  constexpr mode_t permissions = 07777;
  if (old != nullptr && fchmod(file.Number(), old->st_mode & permissions) != 0) {
    return errno;
  }
  if (const int error = WriteAll(file.Number(), bytes)) {
    return error;
  }
  if (fsync(file.Number()) != 0) {
    return errno;
  }
  Show(name, review);
  return rename(name.c_str(), target.c_str()) == 0 ? 0 : errno;
}

int ReplaceFile(fs::path target, std::string_view bytes, const FileStore::Review& review) {
  if (const int error = FollowLinks(target)) {
    return error;
  }
  struct stat old {};
  const bool exists = stat(target.c_str(), &old) == 0;
  if (exists) {
    if (const int why = WhyNoFile(old)) {
      return why;
    }
    if (faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) != 0) {
      return errno;
    }
  } else if (!target.has_filename()) {
    return ENOENT;
  }
  const fs::path folder = target.has_parent_path() ? target.parent_path() : fs::path(".");
  RemoveLeftovers(folder);
  fs::path name;
  const Descriptor file = CreateTemporary(folder, name);
  if (!file.Open()) {
    return errno;
  }
  const int error = FillAndRename(file, name, target, bytes, exists ? &old : nullptr, review);
  if (error != 0) {
    unlink(name.c_str());
    return error;
  }
  const Descriptor directory(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (directory.Open()) {
    fsync(directory.Number());  // the new name survives a crash, where the file system can promise that
  }
  return 0;
}

}  // namespace

bool NativeFileStore::Exists(const String& path) const {
  const std::optional<fs::path> native = ToPath(path);
  std::error_code error;
  return native && fs::exists(*native, error);
}

std::optional<std::string> NativeFileStore::Read(const String& path, std::size_t most,
                                                 SystemReason& reason) const {
  const std::optional<fs::path> native = ToPath(path);
  std::string bytes;
  const int error = native ? ReadAll(*native, most, bytes) : EILSEQ;
  if (error != 0) {
    reason = ReasonOf(error);
    return std::nullopt;
  }
  return bytes;
}

bool NativeFileStore::Replace(const String& path, std::string_view bytes, SystemReason& reason,
                              const Review& review) {
  const std::optional<fs::path> native = ToPath(path);
  const int error = native ? ReplaceFile(*native, bytes, review) : EILSEQ;
  if (error != 0) {
    reason = ReasonOf(error);
  }
  return error == 0;
}

char16_t NativeFileStore::Separator() const { return fs::path::preferred_separator; }

}  // namespace korva
