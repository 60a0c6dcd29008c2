#include "transmitter_exchanges.h"

#include <algorithm>
#include <optional>

namespace korva::test {

namespace {

using Texts = std::vector<std::string>;
using sim::Fault;

std::vector<Access> AccessesBehindItems(const TypeChange& change) {
  if (change.curve) {
    return {Access::Stage, Access::InputAgain, Access::Curve, Access::StageLeave, Access::Closing};
  }
  if (change.linearizer) {
    return {Access::Stage, Access::AdcAgain,   Access::StageLeave,
            Access::Table, Access::TableLeave, Access::Closing};
  }
  return {Access::Stage, Access::AdcAgain, Access::StageLeave, Access::Closing};
}

/// The accesses of a download whose items take `items` accesses.
std::vector<Access> AccessesOf(const TypeChange& change, std::size_t items) {
  std::vector<Access> accesses = {Access::Link,           Access::Model,           Access::Monitor,
                                  Access::InputCollation, Access::OutputCollation, Access::Adc,
                                  Access::Input,          Access::Output,          Access::Programming};
  accesses.insert(accesses.end(), items, Access::Items);
  accesses.push_back(Access::Leave);
  const std::vector<Access> behind = AccessesBehindItems(change);
  accesses.insert(accesses.end(), behind.begin(), behind.end());
  return accesses;
}

/// True for the exchanges of a block of eight bytes of a table.
bool IsBlock(const Texts& commands, std::size_t at) {
  for (std::size_t back = 0; back < std::min<std::size_t>(3, at + 1); ++back) {
    const std::string& command = commands[at - back];
    if (command.starts_with("DS1") && command.ends_with("-8")) {
      return true;
    }
  }
  return false;
}

/// The box of an access to the memory that fails in this exchange; nothing where it is repeated.
std::optional<BoxKey> MemoryBox(const Exchange& exchange, bool for_good) {
  const bool way_in = exchange.within < 2;
  switch (exchange.access) {
    case Access::Adc:
    case Access::AdcAgain:
      if (exchange.within >= 4) {
        return BoxKey::EepromWriteFailed;
      }
      return way_in && !for_good ? std::nullopt : std::optional(BoxKey::AdcTypeUnreadable);
    case Access::Stage:
      if (!way_in) {
        return BoxKey::EepromWriteFailed;
      }
      return for_good ? std::optional(BoxKey::EepromModeNotEntered) : std::nullopt;
    case Access::Curve:
      return BoxKey::EepromWriteFailed;
    case Access::Table:
      return BoxKey::LinearizerDownloadFailed;
    default:
      return std::nullopt;
  }
}

/// The box of a download with one break. All but the memory's exchanges are repeated, save for a refusal that
/// can be read as an answer.
BoxKey BoxAfterOneBreak(const Break& line_break, const Exchange& exchange) {
  if (const std::optional<BoxKey> box = MemoryBox(exchange, false)) {
    return *box;
  }
  const bool refused = line_break.fault == Fault::Refused && exchange.letter == 'D';
  const bool misread = line_break.fault == Fault::Refused || line_break.fault == Fault::Garbled;
  switch (exchange.access) {
    case Access::Model:
      return misread && exchange.letter == 'I' ? BoxKey::ModelMismatch : BoxKey::DownloadDone;
    case Access::OutputCollation:
      return refused ? BoxKey::OutputTypeUnknown : BoxKey::DownloadDone;
    case Access::Programming:  // the device stays in monitor mode, where it takes no data
      return refused ? BoxKey::DownloadDataMismatch : BoxKey::DownloadDone;
    case Access::Items:
      return refused && exchange.write && IsCompared(exchange.item) ? BoxKey::DownloadDataMismatch
                                                                    : BoxKey::DownloadDone;
    default:
      return BoxKey::DownloadDone;
  }
}

/// True when a lasting break shows in the next access only: any answer to the data of a mode is good.
bool IsTakenForMode(const Break& line_break, const Exchange& exchange) {
  return exchange.letter == 'D' && (line_break.fault == Fault::Refused || line_break.fault == Fault::Garbled);
}

/// The boxes of a lasting break before the memory is rewritten.
std::vector<BoxKey> EndBeforeMemory(const Break& line_break, const Exchange& exchange) {
  const bool misread = line_break.fault == Fault::Refused || line_break.fault == Fault::Garbled;
  const bool taken = IsTakenForMode(line_break, exchange);
  constexpr BoxKey monitor = BoxKey::NotMonitorMode;
  switch (exchange.access) {
    case Access::Link:
      return {BoxKey::CommFailure};
    case Access::Model:
      return {misread && exchange.letter == 'I' ? BoxKey::ModelMismatch : BoxKey::CommFailure};
    case Access::Monitor:
      return {taken ? BoxKey::OutputTypeUnknown : monitor, monitor};
    case Access::InputCollation:
    case Access::OutputCollation:
      return {BoxKey::OutputTypeUnknown, monitor};
    case Access::Adc:
      return {BoxKey::AdcTypeUnreadable, monitor};
    case Access::Input:
      if (exchange.letter != 'D' || line_break.fault != Fault::Refused) {
        return {monitor};  // the status area tells that the input type can't be read
      }
      return {BoxKey::NotProgrammingMode, monitor};
    case Access::Output:
      return {BoxKey::NotProgrammingMode, monitor};
    case Access::Programming:
      if (!taken) {
        return {BoxKey::NotProgrammingMode, monitor};
      }
      return {BoxKey::DownloadDataMismatch, monitor, monitor};
    default:
      return {BoxKey::DownloadDataMismatch, monitor, monitor};
  }
}

/// The boxes of a lasting break that begins on a way out of a mode.
std::vector<BoxKey> EndOnWayOut(const TypeChange& change, Access access, bool taken) {
  constexpr BoxKey monitor = BoxKey::NotMonitorMode;
  std::vector<BoxKey> boxes;
  if (!taken && access != Access::Closing) {
    boxes.push_back(monitor);
  }
  if (access == Access::Leave) {
    boxes.insert(boxes.end(), {BoxKey::EepromModeNotEntered, monitor});
  } else if (access == Access::StageLeave && change.linearizer) {
    boxes.insert(boxes.end(), {monitor, BoxKey::LinearizerDownloadFailed, monitor});
  } else {
    boxes.push_back(BoxKey::DownloadDone);
    if (!taken || access != Access::Closing) {
      boxes.push_back(monitor);
    }
  }
  return boxes;
}

std::vector<BoxKey> BoxesAfterLastingBreak(const TypeChange& change, const Break& line_break,
                                           const Exchange& exchange) {
  constexpr BoxKey monitor = BoxKey::NotMonitorMode;
  switch (exchange.access) {
    case Access::Leave:
    case Access::StageLeave:
    case Access::TableLeave:
    case Access::Closing:
      return EndOnWayOut(change, exchange.access, IsTakenForMode(line_break, exchange));
    case Access::InputAgain:
      return {BoxKey::EepromWriteFailed, monitor, monitor};
    case Access::Table:
      return {monitor, BoxKey::LinearizerDownloadFailed, monitor};
    case Access::Stage:
    case Access::AdcAgain:
    case Access::Curve:
      if (MemoryBox(exchange, true) == BoxKey::EepromModeNotEntered) {
        return {BoxKey::EepromModeNotEntered, monitor};
      }
      return {MemoryBox(exchange, true).value(), monitor, monitor};
    default:
      return EndBeforeMemory(line_break, exchange);
  }
}

}  // namespace

std::vector<Exchange> ExchangesOf(const TypeChange& change, const Texts& commands) {
  const auto groups = static_cast<std::size_t>(std::count_if(
      commands.begin(), commands.end(), [](const std::string& command) { return command.starts_with('G'); }));
  const std::size_t others = AccessesOf(change, 0).size();
  const std::vector<Access> accesses = AccessesOf(change, groups - others);
  std::vector<Exchange> exchanges;
  std::size_t begun = 0;
  std::size_t within = 0;
  for (std::size_t at = 0; at < commands.size(); ++at) {
    const char letter = commands[at].front();
    begun += letter == 'G' ? 1U : 0U;
    within = letter == 'G' ? 0 : within + 1;
    const Access access = accesses.at(begun - 1);
    exchanges.push_back({.access = access,
                         .letter = letter,
                         .within = within,
                         .item = within < 2 ? std::string() : commands[at - within + 1].substr(1),
                         .write = letter == 'D' && commands[at].size() > 1,
                         .block = access == Access::Curve && IsBlock(commands, at)});
  }
  return exchanges;
}

bool IsCompared(const std::string& item) {
  for (const char* value : {"12", "13", "14", "15", "19", "20"}) {
    if (item == value) {
      return false;
    }
  }
  return true;
}

bool IsForeseen(const Break& line_break) {
  return line_break.Foreseen() && line_break.fault != Fault::Doubled && line_break.fault != Fault::StuckByte;
}

Texts ExpectedBoxes(const TypeChange& change, const Break& line_break, const Exchange& exchange) {
  if (!line_break.for_good) {
    return {Shown(BoxAfterOneBreak(line_break, exchange))};
  }
  Texts boxes;
  for (const BoxKey key : BoxesAfterLastingBreak(change, line_break, exchange)) {
    boxes.push_back(Shown(key));
  }
  return boxes;
}

bool IsAnOutcome(Texts boxes) {
  std::erase(boxes, Shown(BoxKey::NotMonitorMode));
  const Texts known = {Shown(BoxKey::DownloadDone),         Shown(BoxKey::CommFailure),
                       Shown(BoxKey::ModelMismatch),        Shown(BoxKey::NotProgrammingMode),
                       Shown(BoxKey::OutputTypeUnknown),    Shown(BoxKey::AdcTypeUnreadable),
                       Shown(BoxKey::DownloadDataMismatch), Shown(BoxKey::EepromModeNotEntered),
                       Shown(BoxKey::EepromWriteFailed),    Shown(BoxKey::LinearizerDownloadFailed)};
  return boxes.size() <= 1 && std::all_of(boxes.begin(), boxes.end(), [&](const std::string& box) {
           return std::find(known.begin(), known.end(), box) != known.end();
         });
}

}  // namespace korva::test
