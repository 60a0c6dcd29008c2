#include "transfer/write_list.h"

#include "core/numbers.h"
#include "core/text_utilities.h"
#include "files/parameter_set.h"
#include "transfer/conversion.h"

namespace korva {
namespace {

constexpr double kFineTolerance = 0.02;

}  // namespace

String WithoutPrefix(const String& reply, const String& prefix) {
  if (reply.size() <= prefix.size()) {
    return {};
  }
  const String rest = reply.substr(prefix.size());
  return rest == kEmptyTag ? rest : Trimmed(rest);
}

bool IsFinePrefix(StringView prefix) { return prefix == u"FINZER" || prefix == u"FINSPN"; }

bool FineValueTaken(double sent, double reported) {
  return AtLeast(sent, reported - kFineTolerance) && AtLeast(reported + kFineTolerance, sent);
}

bool ReplyProves(const WriteEntry& entry, const String& reply) {
  if (entry.prefix.empty()) {
    return Trimmed(reply) == entry.source;
  }
  if (entry.prefix == u"TG:") {
    return WithoutPrefix(reply, entry.prefix) == entry.source;
  }
  if (IsFinePrefix(entry.prefix)) {
    return FineValueTaken(LeadingNumber(entry.source), LeadingNumber(WithoutPrefix(reply, entry.prefix)));
  }
  return !reply.empty();
}

bool ReplyIsCompared(const WriteEntry& entry) {
  return entry.prefix.empty() || entry.prefix == u"TG:" || IsFinePrefix(entry.prefix);
}

}  // namespace korva
