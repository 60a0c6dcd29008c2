#pragma once

#include <sys/resource.h>

#include <csignal>

namespace korva {

/// Lets no file of this process grow beyond `bytes` for a while, as a full disk would: a write beyond is a
/// short one, and the next fails.
class FullDisk {
 public:
  explicit FullDisk(rlim_t bytes) : old_handler_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &old_);
    const rlimit limit{.rlim_cur = bytes, .rlim_max = old_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;
  ~FullDisk() {
    setrlimit(RLIMIT_FSIZE, &old_);
    std::signal(SIGXFSZ, old_handler_);
  }

 private:
  rlimit old_{};
  void (*old_handler_)(int);
};

}  // namespace korva
