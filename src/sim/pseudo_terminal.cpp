#include "sim/pseudo_terminal.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/inotify.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <system_error>
#include <utility>

namespace korva::sim {

namespace {

constexpr std::size_t kChunk = 4096;

[[noreturn]] void Fail(const char* what) { throw std::system_error(errno, std::generic_category(), what); }

int Checked(int result, const char* what) {
  if (result < 0) {
    Fail(what);
  }
  return result;
}

int OpenMaster() {
  const int master =
      Checked(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK), "can't open a pseudo-terminal");
  if (grantpt(master) < 0 || unlockpt(master) < 0) {
    close(master);
    Fail("can't unlock the pseudo-terminal");
  }
  return master;
}

std::string FarEndName(int master) {
  std::array<char, 128> name{};
  if (ptsname_r(master, name.data(), name.size()) != 0) {
    Fail("can't learn the pseudo-terminal's name");
  }
  return name.data();
}

int OpenWatch(const std::string& name) {
  const int watch = Checked(inotify_init1(IN_NONBLOCK | IN_CLOEXEC), "can't watch the pseudo-terminal");
  if (inotify_add_watch(watch, name.c_str(), IN_OPEN | IN_CLOSE) < 0) {
    close(watch);
    Fail("can't watch the pseudo-terminal");
  }
  return watch;
}

std::filesystem::path RecordOf(const std::filesystem::path& link) {
  return link.parent_path() / ("." + link.filename().string() + ".korva-sim");
}

int LockRecord(const std::filesystem::path& link, const std::filesystem::path& record) {
  if (link.has_parent_path()) {
    std::filesystem::create_directories(link.parent_path());
  }
  constexpr mode_t kMode = S_IRUSR | S_IWUSR;
  const int file = Checked(open(record.c_str(), O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC, kMode),
                           "can't make the record of the link");
  if (flock(file, LOCK_EX | LOCK_NB) != 0) {
    close(file);
    throw std::runtime_error("another korva-sim serves " + link.string() +
                             "; end it, or choose another name by --link");
  }
  return file;
}

}  // namespace

Descriptor::~Descriptor() { close(number_); }

PseudoTerminal::PseudoTerminal()
    : master_(OpenMaster()),
      name_(FarEndName(master_.Get())),
      far_end_(Checked(open(name_.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC), "can't open the pseudo-terminal")),
      watch_(OpenWatch(name_)) {
  Renew();
}

void PseudoTerminal::Renew() const {
  termios settings{};
  Checked(tcgetattr(far_end_.Get(), &settings), "can't read the pseudo-terminal's settings");
  cfmakeraw(&settings);
  Checked(tcsetattr(far_end_.Get(), TCSANOW, &settings), "can't set the pseudo-terminal raw");
}

std::string PseudoTerminal::Read() const {
  std::array<char, kChunk> buffer{};
  const auto count = read(master_.Get(), buffer.data(), buffer.size());
  if (count < 0 && errno != EAGAIN && errno != EINTR) {
    Fail("can't read from the pseudo-terminal");
  }
  return {buffer.data(), static_cast<std::size_t>(std::max<ssize_t>(count, 0))};
}

void PseudoTerminal::Write(std::string_view bytes) const {
  if (write(master_.Get(), bytes.data(), bytes.size()) < 0 && errno != EAGAIN && errno != EINTR) {
    Fail("can't write to the pseudo-terminal");
  }
}

bool PseudoTerminal::ClosedByProgram() {
  alignas(inotify_event) std::array<char, kChunk> buffer{};
  const auto count = read(watch_.Get(), buffer.data(), buffer.size());
  bool closed = false;
  for (std::size_t at = 0; count > 0 && at < static_cast<std::size_t>(count);) {
    inotify_event event{};
    std::memcpy(&event, buffer.data() + at, sizeof(event));
    at += sizeof(event) + event.len;
    users_ = std::max(0, users_ + ((event.mask & IN_OPEN) != 0 ? 1 : -1));
    closed = closed || (users_ == 0 && (event.mask & IN_CLOSE) != 0);
  }
  if (closed) {
    // A program that was killed leaves its exclusive use of the port behind while the far end is held open
    // here.
    ioctl(far_end_.Get(), TIOCNXCL);
    tcflush(far_end_.Get(), TCIFLUSH);
    Renew();
  }
  return closed;
}

PortLink::PortLink(std::filesystem::path path, std::string target)
    : path_(std::move(path)),
      target_(std::move(target)),
      record_path_(RecordOf(path_)),
      record_(LockRecord(path_, record_path_)) {
  try {
    TakeName();
    WriteRecord();
    std::filesystem::create_symlink(target_, path_);
  } catch (...) {
    unlink(record_path_.c_str());
    throw;
  }
}

/// Removes the link that the record tells of.
void PortLink::TakeName() const {
  std::error_code error;
  const auto present = std::filesystem::symlink_status(path_, error);
  if (!std::filesystem::exists(present)) {
    return;
  }
  const auto made_for = std::filesystem::read_symlink(path_, error).string();
  std::string recorded(kChunk, '\0');
  recorded.resize(
      static_cast<std::size_t>(std::max<ssize_t>(0, read(record_.Get(), recorded.data(), recorded.size()))));
  if (made_for.empty() || made_for != recorded) {
    throw std::runtime_error(path_.string() + (made_for.empty() ? "" : " -> " + made_for) +
                             " was not made by korva-sim, so it is left alone; remove it, or choose another "
                             "name by --link");
  }
  std::filesystem::remove(path_);
}

/// Comes before the link: a link without a record would be taken for a user's.
void PortLink::WriteRecord() const {
  Checked(ftruncate(record_.Get(), 0), "can't write the record of the link");
  if (pwrite(record_.Get(), target_.data(), target_.size(), 0) != static_cast<ssize_t>(target_.size())) {
    Fail("can't write the record of the link");
  }
}

PortLink::~PortLink() {
  std::error_code error;
  if (std::filesystem::read_symlink(path_, error) == target_) {
    std::filesystem::remove(path_, error);
  }
  unlink(record_path_.c_str());
}

}  // namespace korva::sim
