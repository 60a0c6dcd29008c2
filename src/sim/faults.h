#pragma once

#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "sim/setup_error.h"

namespace korva::sim {

struct Reply;

/// What can go wrong between a device and its reader, each by a name that tests and demonstrations switch on.
enum class Fault {
  Silent,         ///< The command is lost: nothing happens and nothing is answered.
  SecondTryOnly,  ///< The first time that a command text comes it is lost; when it comes again it is
                  ///< answered.
  Late,           ///< The device acts at once but answers only after `kLateReply`.
  Doubled,        ///< The reply is sent twice, one right after the other, as two pieces.
  Refused,      ///< Answered with a refusal ("CNG", or "invalid data" in the other dialect), not carried out.
  NotUsable,    ///< Answered with "CNU", not carried out.
  ByteByByte,   ///< Each byte of the reply arrives by itself.
  TwoLineEnds,  ///< The reply ends with two carriage returns at once.
  LateSecondLineEnd,  ///< The second carriage return follows one character time after the first.
  Noise,              ///< Bytes that are no text stand in the reply.
  Garbled,            ///< Every character of the reply is wrong; its length and its line end are right.
  Half,               ///< The first half of the reply, without a line end.
  Empty,              ///< The reply is a lone carriage return.
  WrongEcho,  ///< A write is carried out but its echo shows another value; other commands are answered well.
  NotReady,  ///< The first read of each item is answered with "invalid data", in the dialect where a lone "D"
             ///< reads.
  // The access to the device's memory; other command lines are not struck.
  StuckByte,       ///< The last byte of a write stays as it was; the write is answered well.
  RefusedAddress,  ///< A place in the memory ("DS") is answered with "CNG", not chosen.
  SilentAccess,    ///< A command of the access is lost, the way into it is not.
  WrongReadBack,   ///< The last byte read is another than the one that the memory holds.
  // Answers of two values, and the commands of a table.
  OneValue,        ///< The second value is missing.
  OversizedTable,  ///< The table's size is told as more points than it can have.
  // The restart; other command lines are not struck.
  NoReturn,  ///< The device is reset and never comes back.
  // Tables whose values have keys.
  RefusedRow,  ///< A row is answered with a refusal, neither given nor taken.
  NoUnit,      ///< The unit behind a row's value is missing.
  // Items that hold two numbers.
  PairUnits,  ///< A unit stands behind each number.
  // A lie that only reading the item again shows.
  NotKept,  ///< A write of a number, a text or a choice is answered well, but the item keeps what it had.
};

/// A fault's name on the command line and what it does, in a few words.
struct FaultInfo {
  Fault fault;
  std::string_view name;
  std::string_view what;
};

/// All faults, in the order of `Fault`.
std::span<const FaultInfo> AllFaults();

/// A fault and the command lines that it strikes.
struct FaultRule {
  Fault fault = Fault::Silent;
  int first = 1;        ///< First command line struck, counted from 1.
  int last = kForGood;  ///< Last command line struck.
  std::string command;  ///< When not empty, only lines with exactly this text, such as "I14", are struck.

  static constexpr int kForGood = 0x7FFFFFFF;
};

/// Reads a rule: `NAME` (always), `NAME@N` (the N-th command line), `NAME@N-M`, `NAME@N-` (from the N-th on)
/// or `NAME=COMMAND` (each line with this text, such as `refused=I14`). N and M count command lines from 1.
/// \throws SetupError for an unknown name or a range that isn't one.
FaultRule ParseFault(std::string_view text);

/// The faults of one device and what they have struck so far.
class FaultPlan {
 public:
  void Add(FaultRule rule);
  void Clear();

  /// The faults that strike the command line with this number (from 1) and text, in the order of adding.
  /// \param item  What tells the selected item from every other one.
  std::vector<Fault> Strike(int number, std::string_view line, std::string_view item = {});

 private:
  std::vector<FaultRule> rules_;
  std::set<std::string, std::less<>> tried_;
  std::set<std::string, std::less<>> asked_;  // items that were read
};

/// Changes a good reply as a fault of the line or of the device's sender does: `Late`, `Doubled`,
/// `ByteByByte`, both second line ends, `Noise`, `Garbled`, `Half`, `Empty`. Other faults leave it alone.
void SpoilReply(Fault fault, Reply& reply);

}  // namespace korva::sim
