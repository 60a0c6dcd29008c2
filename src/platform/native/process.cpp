#include "platform/native/process.h"

#include <fcntl.h>
#include <unistd.h>

#include <csignal>
#include <initializer_list>

namespace korva {

namespace {

// The wrong way round: neither reading from it nor writing to it succeeds.
void Occupy(int stream) {
  if (fcntl(stream, F_GETFD) < 0) {
    (void)open("/dev/null",
               stream == STDIN_FILENO ? O_WRONLY : O_RDONLY);  // gets the lowest number that is free
  }
}

}  // namespace

void PrepareProcess() {
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    Occupy(stream);
  }
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
}

}  // namespace korva
