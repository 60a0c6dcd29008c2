#include "sim/options.h"

#include <charconv>

namespace korva::sim {

namespace {

constexpr int kLongestLatency = 60'000;

std::chrono::milliseconds ParseLatency(std::string_view text) {
  int count = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), count);
  if (error != std::errc{} || end != text.data() + text.size() || count < 0 || count > kLongestLatency) {
    throw SetupError("--latency takes 0 to 60000 milliseconds, not \"" + std::string(text) + "\"");
  }
  return std::chrono::milliseconds(count);
}

Preset ParsePreset(std::string_view text) {
  const auto equals = text.find('=');
  const auto address = text.substr(0, equals);
  if (equals == std::string_view::npos || address.size() != 5 || address[2] != '/') {
    throw SetupError("--set takes GG/II=TEXT with two digits each, not \"" + std::string(text) + "\"");
  }
  return {.group = std::string(address.substr(0, 2)),
          .item = std::string(address.substr(3)),
          .value = std::string(text.substr(equals + 1))};
}

/// Takes the arguments one by one; `Value` gives the one behind an option.
class Arguments {
 public:
  explicit Arguments(std::span<const char* const> arguments) : rest_(arguments) {}

  bool Done() const { return rest_.empty(); }

  std::string_view Next() {
    const std::string_view next = rest_.front();
    rest_ = rest_.subspan(1);
    return next;
  }

  std::string_view Value(std::string_view option) {
    if (rest_.empty()) {
      throw SetupError(std::string(option) + " needs a value");
    }
    return Next();
  }

 private:
  std::span<const char* const> rest_;
};

}  // namespace

Options ParseOptions(std::span<const char* const> arguments, const std::filesystem::path& executable) {
  Options options;
  std::filesystem::path named;
  Arguments rest(arguments);
  while (!rest.Done()) {
    const auto option = rest.Next();
    if (option == "--home") {
      named = rest.Value(option);
    } else if (option == "--model") {
      options.model = rest.Value(option);
    } else if (option == "--link") {
      options.link = rest.Value(option);
    } else if (option == "--fast") {
      options.fast = true;
    } else if (option == "--fault") {
      options.faults.push_back(ParseFault(rest.Value(option)));
    } else if (option == "--latency") {
      options.latency = ParseLatency(rest.Value(option));
    } else if (option == "--sysver") {
      options.system_text = rest.Value(option);
    } else if (option == "--set") {
      options.presets.push_back(ParsePreset(rest.Value(option)));
    } else if (option == "--list") {
      options.list = true;
    } else if (option == "--trace") {
      options.trace = true;
    } else if (option == "--help" || option == "-h") {
      options.help = true;
    } else {
      throw SetupError("unknown argument \"" + std::string(option) + "\"");
    }
  }
  options.home = FindSimHome(executable, named);
  if (options.link.empty()) {
    options.link = options.home.own / "ports" / "COM1";
  }
  if (options.fast && !options.latency) {
    options.latency = std::chrono::milliseconds(0);
  }
  return options;
}

std::string_view HelpText() {
  return R"(korva-sim: a simulated signal conditioner behind a pseudo-terminal

  korva-sim [options]

  --home DIR        folder with system/ and ports/; default: the program's own folder; where KORVA is
                    installed, korva in $XDG_DATA_HOME, which is ~/.local/share unless set
  --model NAME      model of the catalogue; default: its first
  --link PATH       link to make to the terminal; default: DIR/ports/COM1; what korva-sim did
                    not make stays, and it ends
  --fast            bytes need no time; default: the true speed of the model's line
  --latency MS      from command to reply, 0 to 60000; default: 10, slow models 300,
                    with --fast 0
  --sysver TEXT     system text of the device (group 00, item 99); default: "SYSVER   1.00"
  --set GG/II=TEXT  value of an item at the start, for a choice its text or code, for a live value a
                    number at which it stands still; may be repeated
  --fault NAME      always; NAME@N for the N-th command line only, NAME@N-M, NAME@N- from the
                    N-th on, NAME=COMMAND for each command line with this text; may be repeated;
                    stuck-byte, wrong-read-back, refused-address and silent-access strike the
                    access to the memory of the models that have one;
                    one-value and oversized-table strike answers of two
                    values and the size of a table that travels by commands;
                    pair-units strikes items of two numbers;
                    no-return strikes the reset of the models that restart
  --trace           print the traffic
  --list            print the models and all faults, and end
  --help            print this, and end

It prints one line when it is ready, serves until SIGINT or SIGTERM, and removes its link then.
)";
}

}  // namespace korva::sim
