// What a process does before anything else, so that neither its streams nor a signal can harm a device or a
// file.

#include "platform/native/process.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

namespace korva {

namespace {

/// What `check` returns in a child process that began with its standard streams closed.
int InChildWithoutStreams(int (*check)()) {
  const pid_t child = fork();
  if (child == 0) {
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
      close(stream);
    }
    PrepareProcess();
    _exit(check());
  }
  int status = -1;
  EXPECT_EQ(waitpid(child, &status, 0), child);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST(Process, AFileThatItOpensIsNeverTakenForAClosedStream) {
  EXPECT_GT(InChildWithoutStreams([] { return open("/dev/null", O_RDWR); }), STDERR_FILENO);
}

TEST(Process, WritingToAClosedStreamFails) {
  EXPECT_EQ(InChildWithoutStreams([] { return write(STDOUT_FILENO, "x", 1) < 0 ? 0 : 1; }), 0);
  EXPECT_EQ(InChildWithoutStreams([] { return write(STDERR_FILENO, "x", 1) < 0 ? 0 : 1; }), 0);
}

TEST(Process, ReadingFromAClosedStreamFails) {
  EXPECT_EQ(InChildWithoutStreams([] {
              char byte = 0;
              return read(STDIN_FILENO, &byte, 1) < 0 ? 0 : 1;
            }),
            0);
}

TEST(Process, NoFailedWriteEndsIt) {
  EXPECT_EQ(InChildWithoutStreams([] {
              std::raise(SIGPIPE);
              std::raise(SIGXFSZ);
              return 7;
            }),
            7);
}

}  // namespace

}  // namespace korva
