#include "child_program.h"

#include <gtest/gtest.h>

namespace korva::cli::test {

namespace {

constexpr int kPatience = 30'000;  // ms

}  // namespace

ChildProgram::ChildProgram(const std::filesystem::path& program, const QStringList& arguments) {
  process_.start(QString::fromStdString((std::filesystem::path(KORVA_HOME) / program).string()), arguments);
  EXPECT_TRUE(process_.waitForStarted(kPatience)) << program;
}

void ChildProgram::Send(const std::string& line) {
  process_.write((line + "\n").c_str());
  EXPECT_TRUE(process_.waitForBytesWritten(kPatience)) << line;
}

std::string ChildProgram::ReadLine() {
  while (!process_.canReadLine() && process_.waitForReadyRead(kPatience)) {
  }
  EXPECT_TRUE(process_.canReadLine()) << "no line came; standard error: " << Complaints();
  std::string line = process_.readLine().toStdString();
  if (line.ends_with('\n')) {
    line.pop_back();
  }
  return line;
}

Lines ChildProgram::ReadUntil(const std::string& beginning) {
  Lines lines;
  do {
    lines.push_back(ReadLine());
  } while (!lines.back().starts_with(beginning) && !testing::Test::HasFailure());
  return lines;
}

Lines ChildProgram::ReadToEnd() {
  process_.closeWriteChannel();
  AwaitEnd();
  Lines lines;
  while (process_.canReadLine()) {
    lines.push_back(ReadLine());
  }
  return lines;
}

int ChildProgram::Status() {
  AwaitEnd();
  EXPECT_EQ(process_.exitStatus(), QProcess::NormalExit);
  return process_.exitCode();
}

std::string ChildProgram::Complaints() { return process_.readAllStandardError().toStdString(); }

void ChildProgram::Terminate() {
  if (process_.state() != QProcess::NotRunning) {
    process_.terminate();
    AwaitEnd();
  }
}

void ChildProgram::AwaitEnd() {
  const bool ended = process_.state() == QProcess::NotRunning || process_.waitForFinished(2 * kPatience);
  EXPECT_TRUE(ended) << process_.program().toStdString() << " does not end";
  if (!ended) {
    process_.kill();
  }
}

}  // namespace korva::cli::test
