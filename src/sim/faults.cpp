#include "sim/faults.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>

#include "sim/device.h"

namespace korva::sim {

namespace {

constexpr std::array<FaultInfo, 26> kFaults{{
    {.fault = Fault::Silent, .name = "silent", .what = "no reply, the command is lost"},
    {.fault = Fault::SecondTryOnly,
     .name = "second-try-only",
     .what = "no reply the first time a command comes, a good one when it comes again"},
    {.fault = Fault::Late, .name = "late", .what = "reply after 3.5 s"},
    {.fault = Fault::Doubled, .name = "doubled", .what = "the reply twice, one right after the other"},
    {.fault = Fault::Refused, .name = "refused", .what = "CNG (or \"invalid data\"), not carried out"},
    {.fault = Fault::NotUsable, .name = "not-usable", .what = "CNU (or \"not usable\"), not carried out"},
    {.fault = Fault::ByteByByte, .name = "byte-by-byte", .what = "each byte arrives by itself"},
    {.fault = Fault::TwoLineEnds, .name = "two-line-ends", .what = "two carriage returns at once"},
    {.fault = Fault::LateSecondLineEnd,
     .name = "late-second-line-end",
     .what = "a second carriage return one character time after the first"},
    {.fault = Fault::Noise, .name = "noise", .what = "bytes that are no text in the reply"},
    {.fault = Fault::Garbled, .name = "garbled", .what = "every character wrong, line end right"},
    {.fault = Fault::Half, .name = "half", .what = "first half of the reply, no line end"},
    {.fault = Fault::Empty, .name = "empty", .what = "a lone carriage return"},
    {.fault = Fault::WrongEcho, .name = "wrong-echo", .what = "a write's echo shows another value"},
    {.fault = Fault::NotReady,
     .name = "not-ready",
     .what = "\"invalid data\" to the first read (D) of each item"},
    {.fault = Fault::StuckByte, .name = "stuck-byte", .what = "memory: the last byte written doesn't take"},
    {.fault = Fault::RefusedAddress, .name = "refused-address", .what = "memory: DS is answered with CNG"},
    {.fault = Fault::SilentAccess,
     .name = "silent-access",
     .what = "memory: no reply to DS and D, the command is lost"},
    {.fault = Fault::WrongReadBack,
     .name = "wrong-read-back",
     .what = "memory: the last byte read is another than the one held"},
    {.fault = Fault::OneValue,
     .name = "one-value",
     .what = "an answer of two values (trim, point of a table) lacks the second"},
    {.fault = Fault::OversizedTable,
     .name = "oversized-table",
     .what = "table: P is answered with a size above 100"},
    {.fault = Fault::NoReturn, .name = "no-return", .what = "reset: the device never comes back"},
    {.fault = Fault::RefusedRow, .name = "refused-row", .what = "user table: \"invalid data\" to a row"},
    {.fault = Fault::NoUnit, .name = "no-unit", .what = "user table: no unit behind a row's value"},
    {.fault = Fault::PairUnits,
     .name = "pair-units",
     .what = "an item of two numbers: a unit behind each, such as \"0.000mV 10.000mV\""},
    {.fault = Fault::NotKept, .name = "not-kept", .what = "a write is answered well and changes nothing"},
}};

std::optional<int> ParseCount(std::string_view text) {
  int count = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), count);
  const bool whole = error == std::errc{} && end == text.data() + text.size();
  return whole && count > 0 ? std::optional(count) : std::nullopt;
}

}  // namespace

std::span<const FaultInfo> AllFaults() { return kFaults; }

FaultRule ParseFault(std::string_view text) {
  const auto name = text.substr(0, text.find_first_of("@="));
  const auto* const info = std::ranges::find(kFaults, name, &FaultInfo::name);
  if (info == kFaults.end()) {
    throw SetupError("no fault has the name \"" + std::string(name) + "\"");
  }
  FaultRule rule;
  rule.fault = info->fault;
  if (name.size() == text.size()) {
    return rule;
  }
  const auto detail = text.substr(name.size() + 1);
  if (text[name.size()] == '=') {
    rule.command = detail;
    if (detail.empty()) {
      throw SetupError("fault \"" + std::string(text) + "\" names no command");
    }
    return rule;
  }
  const auto dash = detail.find('-');
  const auto first = ParseCount(detail.substr(0, dash));
  auto last = first;
  if (dash != std::string_view::npos) {
    const auto rest = detail.substr(dash + 1);
    last = rest.empty() ? FaultRule::kForGood : ParseCount(rest);
  }
  if (!first || !last || *last < *first) {
    throw SetupError("fault \"" + std::string(text) + "\": \"" + std::string(detail) +
                     "\" is not N, N-M or N- with command lines counted from 1");
  }
  rule.first = *first;
  rule.last = *last;
  return rule;
}

void FaultPlan::Add(FaultRule rule) { rules_.push_back(std::move(rule)); }

void FaultPlan::Clear() {
  rules_.clear();
  tried_.clear();
  asked_.clear();
}

std::vector<Fault> FaultPlan::Strike(int number, std::string_view line, std::string_view item) {
  std::vector<Fault> struck;
  for (const auto& rule : rules_) {
    if (number < rule.first || number > rule.last || (!rule.command.empty() && rule.command != line)) {
      continue;
    }
    if (rule.fault == Fault::SecondTryOnly && !tried_.emplace(line).second) {
      continue;
    }
    if (rule.fault == Fault::NotReady && (line != "D" || !asked_.emplace(item).second)) {
      continue;
    }
    struck.push_back(rule.fault);
  }
  return struck;
}

void SpoilReply(Fault fault, Reply& reply) {
  switch (fault) {
    case Fault::Late:
      reply.latency = kLateReply;
      break;
    case Fault::Doubled:
      reply.doubled = true;
      break;
    case Fault::ByteByByte:
      reply.byte_by_byte = true;
      break;
    case Fault::TwoLineEnds:
      reply.line_ends = 2;
      break;
    case Fault::LateSecondLineEnd:
      reply.line_ends = 2;
      reply.late_second_line_end = true;
      break;
    case Fault::Noise:
      // none of them is the first byte of a character that takes the next byte with it
      reply.text.insert(0, "\xFF");
      reply.text.insert((reply.text.size() + 1) / 2, "\x01\x80\xFE");
      break;
    case Fault::Garbled:
      std::ranges::fill(reply.text, '?');
      break;
    case Fault::Half:
      reply.text.resize((reply.text.size() + 1) / 2);
      reply.line_ends = 0;
      break;
    case Fault::Empty:
      reply.text.clear();
      break;
    default:
      break;
  }
}

}  // namespace korva::sim
