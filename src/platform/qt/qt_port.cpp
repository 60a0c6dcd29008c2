#include "platform/qt/qt_port.h"

#include <QFileInfo>
#include <QMetaObject>
#include <algorithm>
#include <array>
#include <system_error>
#include <utility>

namespace korva {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kMostWaiting = 65536;  // a line that nobody reads must not fill the memory

// How the user names the device behind COM `number`.
fs::path NamedDevice(const fs::path& folder, int number) {
#ifdef _WIN32
  return "COM" + std::to_string(number);
#else
  fs::path link = fs::path("ports") / ("COM" + std::to_string(number));
  std::error_code error;
  // A link whose device is gone is there all the same: another port must not take its place.
  if (fs::exists(fs::symlink_status(folder / link, error))) {
    return link;
  }
  return "/dev/ttyS" + std::to_string(number - 1);
#endif
}

// The name by which the system opens and locks the device. A lock has the name of the device, so a link to it
// must be resolved first. Empty when there is no such device; `error` then tells why.
std::string SystemDevice(const fs::path& folder, int number, std::error_code& error) {
#ifdef _WIN32
  return NamedDevice(folder, number).string();
#else
  const fs::path device = fs::canonical(folder / NamedDevice(folder, number), error);
  return error ? std::string() : device.string();
#endif
}

// False for settings that no line has.
bool Configure(QSerialPort& serial, const LineSettings& settings) {
  constexpr std::array parities = {std::pair('n', QSerialPort::NoParity),
                                   std::pair('e', QSerialPort::EvenParity),
                                   std::pair('o', QSerialPort::OddParity)};
  const auto* parity = std::find_if(parities.begin(), parities.end(),
                                    [&](const auto& entry) { return entry.first == settings.parity; });
  if (parity == parities.end() || settings.data_bits < QSerialPort::Data5 ||
      settings.data_bits > QSerialPort::Data8 || settings.stop_bits < QSerialPort::OneStop ||
      settings.stop_bits > QSerialPort::TwoStop) {
    return false;
  }
  return serial.setBaudRate(settings.baud) && serial.setParity(parity->second) &&
         serial.setDataBits(static_cast<QSerialPort::DataBits>(settings.data_bits)) &&
         serial.setStopBits(static_cast<QSerialPort::StopBits>(settings.stop_bits));
}

}  // namespace

QtPort::QtPort(EventGate& gate, fs::path folder) : gate_(gate), folder_(std::move(folder)) {
  QObject::connect(&serial_, &QSerialPort::readyRead, &serial_, [this] {
    Collect();
    Notify();
  });
  QObject::connect(&serial_, &QSerialPort::errorOccurred, &serial_,
                   [this](QSerialPort::SerialPortError error) {
                     if (error != QSerialPort::NoError && state_ == State::Open) {
                       Break();
                     }
                   });
}

QtPort::~QtPort() { Close(); }

bool QtPort::Open(int number, const LineSettings& settings) {
  Close();
  std::error_code error;
  const std::string device = SystemDevice(folder_, number, error);
  if (device.empty()) {
    const bool denied = error == std::errc::permission_denied;
    return Refuse({.what = denied ? SystemReason::Case::NotPermitted : SystemReason::Case::Missing,
                   .words = QString::fromStdString(error.message()).toStdU16String()});
  }
  if (!Configure(serial_, settings)) {
    return Refuse({.words = serial_.errorString().toStdU16String()});
  }
  serial_.setPortName(QString::fromStdString(device));
  if (!serial_.open(QIODevice::ReadWrite)) {
    return Refuse(ReasonOf(device));
  }
  serial_.clear(QSerialPort::Input);  // what came while the line was closed is lost
  state_ = State::Open;
  return true;
}

bool QtPort::Refuse(const SystemReason& reason) {
  why_not_open_ = reason;
  return false;
}

SystemReason QtPort::ReasonOf(const std::string& device) const {
  using enum SystemReason::Case;
  SystemReason reason{.words = serial_.errorString().toStdU16String()};
  const QFileInfo file(QString::fromStdString(device));
  if (file.isDir()) {
    reason.what = Folder;
  } else if (serial_.error() == QSerialPort::DeviceNotFoundError) {
    reason.what = Missing;
  } else if (serial_.error() == QSerialPort::PermissionError) {
    // Who may use the device and can't, finds it locked.
    reason.what = file.isReadable() && file.isWritable() ? InUse : NotPermitted;
  }
  return reason;
}

void QtPort::Close() {
  state_ = State::Closed;
  serial_.close();
  arrived_.clear();
}

bool QtPort::Write(std::string_view bytes) {
  if (IsOpen()) {
    serial_.write(bytes.data(), static_cast<qint64>(bytes.size()));
    serial_.flush();
    // Once the system has taken all, the second flush only ends Qt's wait for room, which would wake the next
    // pump for nothing.
    serial_.flush();
  }
  return IsOpen();
}

std::string QtPort::Take() { return std::exchange(arrived_, {}); }

std::optional<int> QtPort::TimedBaud() const {
  return IsOpen() ? std::optional(serial_.baudRate()) : std::nullopt;
}

std::string QtPort::UserGroup(int number) const {
  std::error_code error;
  const QFileInfo file(QString::fromStdString(SystemDevice(folder_, number, error)));
  const bool may_use = file.permission(QFile::ReadGroup | QFile::WriteGroup);
  return may_use && file.groupId() != 0 ? file.group().toStdString() : std::string();
}

std::string QtPort::DeviceName(int number) const { return NamedDevice(folder_, number).string(); }

void QtPort::Collect() {
  std::array<char, 4096> chunk{};
  qint64 count = 0;
  while ((count = serial_.read(chunk.data(), chunk.size())) > 0) {
    if (arrived_.size() < kMostWaiting) {
      arrived_.append(chunk.data(), static_cast<std::size_t>(count));
    }
  }
}

void QtPort::Break() {
  state_ = State::Broken;
  // The serial port is still at work on what it reports: it is closed, and the program told, when that is
  // over.
  const auto after = [this] {
    if (state_ == State::Broken) {
      serial_.close();
      Notify();
    }
  };
  QMetaObject::invokeMethod(&serial_, after, Qt::QueuedConnection);
}

void QtPort::Notify() {
  if (on_arrival_) {
    gate_.Enter(on_arrival_);
  }
}

}  // namespace korva
