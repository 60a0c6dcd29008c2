#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace korva::sim {

/// A file descriptor that closes itself.
class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor();
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  Descriptor(Descriptor&&) = delete;
  Descriptor& operator=(Descriptor&&) = delete;

  int Get() const { return number_; }

 private:
  int number_;
};

/// The device's end of a serial line that a program opens like a port. The far end stays open here as well,
/// so that the line lives on while no program has it open. All members throw std::system_error with the
/// reason when the system refuses.
class PseudoTerminal {
 public:
  PseudoTerminal();

  /// What a program opens, such as "/dev/pts/3".
  const std::string& Name() const { return name_; }

  /// Readable when the program has sent bytes.
  int Descriptor() const { return master_.Get(); }

  /// Readable when a program has opened or closed the port.
  int UseDescriptor() const { return watch_.Get(); }

  /// The bytes that have come; empty when there are none.
  std::string Read() const;

  /// Sends bytes. What a program leaves unread too long is lost, as on a real line.
  void Write(std::string_view bytes) const;

  /// Takes note of what `UseDescriptor` has to tell.
  /// \return true when the last program that had the port open has closed it. The port is as new then: raw,
  /// free
  ///         for the next program, and without bytes that nobody read.
  bool ClosedByProgram();

 private:
  void Renew() const;

  class Descriptor master_;
  std::string name_;
  class Descriptor far_end_;
  class Descriptor watch_;
  int users_ = 0;
};

/// A symbolic link that lives as long as the object. Beside it lies a record of it, hidden and locked for as
/// long, by which a link that a killed simulator left can be told from one that a user made.
class PortLink {
 public:
  /// Makes the link, and its folder where it is missing. A link that a killed simulator left is taken over.
  /// \throws std::runtime_error when anything else has the name, or the system refuses.
  PortLink(std::filesystem::path path, std::string target);

  /// Removes the link, unless it points elsewhere by now, and the record.
  ~PortLink();

  PortLink(const PortLink&) = delete;
  PortLink& operator=(const PortLink&) = delete;
  PortLink(PortLink&&) = delete;
  PortLink& operator=(PortLink&&) = delete;

 private:
  void TakeName() const;
  void WriteRecord() const;

  std::filesystem::path path_;
  std::string target_;
  std::filesystem::path record_path_;
  Descriptor record_;
};

}  // namespace korva::sim
