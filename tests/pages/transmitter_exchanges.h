#pragma once

#include <string>
#include <vector>

#include "transmitter_bench.h"

// What a whole download of a transmitter says to its device, and what must come of a break of each exchange.

namespace korva::test {

/// The accesses of a download, in their order.
enum class Access {
  Link,
  Model,
  Monitor,
  InputCollation,
  OutputCollation,
  Adc,
  Input,
  Output,
  Programming,
  Items,  ///< several
  Leave,
  Stage,
  AdcAgain,  ///< and the calibration behind it
  InputAgain,
  Curve,
  StageLeave,
  Table,
  TableLeave,
  Closing
};

/// One exchange of a download that goes well.
struct Exchange {
  Access access = Access::Link;
  char letter = 'G';
  std::size_t within = 0;  ///< place in the access, from 0
  std::string item{};      ///< of an item, its number
  bool write = false;      ///< of an item, the data of a write
  bool block = false;      ///< one of those that write the points of a table
};

/// The exchanges of a download that went well.
std::vector<Exchange> ExchangesOf(const TypeChange& change, const std::vector<std::string>& commands);

/// False for a break whose end depends on each instant, or on the bytes that the memory held.
bool IsForeseen(const Break& line_break);

/// The boxes of a download with a foreseen break.
std::vector<std::string> ExpectedBoxes(const TypeChange& change, const Break& line_break,
                                       const Exchange& exchange);

/// The outcome of a break that is not foreseen: one box, and those of modes that were not reached.
bool IsAnOutcome(std::vector<std::string> boxes);

/// True when the answer to the data of an item's write is compared with them.
bool IsCompared(const std::string& item);

}  // namespace korva::test
