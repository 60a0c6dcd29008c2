#pragma once

#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>

#include "child_program.h"

namespace korva::cli::test {

/// A program's folder of its own, with the build's data, for the programs and their line.
struct EndToEnd : testing::Test {
  EndToEnd() {
    std::filesystem::create_directory_symlink(std::filesystem::path(KORVA_HOME) / "system", home / "system");
    std::filesystem::create_directory(home / "data");
  }

  /// Starts a simulated device on COM 1 and waits until it serves.
  void StartSim(const QStringList& arguments = {"--fast"}, const QString& model = "QHN") {
    sim.emplace(
        "korva-sim",
        QStringList{"--home", folder.path(), "--model", model, "--set", "01/02=BOILER-7"} + arguments);
    EXPECT_TRUE(sim->ReadLine().starts_with("korva-sim: " + model.toStdString() + " on "));
  }

  /// Makes a file in the folder; its path.
  QString Write(const std::string& name, const std::string& bytes) const {
    std::ofstream(home / name, std::ios::binary) << bytes;
    return QString::fromStdString((home / name).string());
  }

  [[nodiscard]] std::string Bytes(const std::string& name) const {
    std::ifstream file(home / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  [[nodiscard]] QStringList At(const QStringList& arguments = {}) const {
    return QStringList{"--home", folder.path()} + arguments;
  }

  /// The device's replies to these commands, with no program between.
  [[nodiscard]] Lines Ask(const Lines& commands) const {
    std::ofstream to(home / "ports" / "COM1", std::ios::binary);
    std::ifstream from(home / "ports" / "COM1", std::ios::binary);
    Lines replies;
    for (const std::string& command : commands) {
      to << command << '\r' << std::flush;
      std::getline(from, replies.emplace_back(), '\r');
    }
    return replies;
  }

  QTemporaryDir folder{QDir::tempPath() + "/korva 試験 XXXXXX"};
  std::filesystem::path home = folder.path().toStdString();
  std::optional<ChildProgram> sim;
};

inline bool Holds(const Lines& lines, const std::string& line) {
  return std::find(lines.begin(), lines.end(), line) != lines.end();
}

inline Lines Of(const Lines& lines, std::string_view beginning) {
  Lines found;
  std::copy_if(lines.begin(), lines.end(), std::back_inserter(found),
               [&](const std::string& line) { return line.starts_with(beginning); });
  return found;
}

}  // namespace korva::cli::test
