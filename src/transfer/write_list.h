#pragma once

#include <vector>

#include "files/definition_form.h"
#include "link/group_item.h"
#include "link/transfer_observer.h"
#include "platform/string.h"

namespace korva {

/// One item of a download, at its position in the order of writing.
struct WriteEntry {
  int row = -1;  ///< of $Data
  WireItem item{};
  String source{};  ///< the text of the parameter set, which the device must report back
  String data{};    ///< what is sent; empty or NEEDLESS: the item is not written
  String reply{};   ///< the device's reply after a good comparison
  String prefix{};  ///< what the device puts before a plain value; empty for a choice, which goes as its code
  Skip skip = Skip::None;  ///< why there is nothing to send
};

/// The items of a download in the order of writing: as many positions as the family's $Data has rows.
using WriteList = std::vector<WriteEntry>;

/// Where the code of a choice stands: the list, under a title where it has several.
struct CodeTable {
  StringView key;  ///< of the definition's section
  int title = 1;
  ListColumn holds = &ListColumns::text;  ///< what the item's cell holds of its row
};

/// True when the device's reply to a write, or its answer to the read that followed, proves the entry: a
/// choice and the tag ("TG:") must come back as they stand in the set, fine zero and fine span ("FINZER",
/// "FINSPN") within 0.02, and any other plain value with whatever text.
bool ReplyProves(const WriteEntry& entry, const String& reply);

/// True when ReplyProves looks at what the device says, and not only whether it says something.
bool ReplyIsCompared(const WriteEntry& entry);

/// True for the prefixes of fine zero and fine span.
bool IsFinePrefix(StringView prefix);
/// True when `reported` is the fine zero or fine span `sent`, in %: within 0.02, both ends included.
bool FineValueTaken(double sent, double reported);

/// The reply less as many characters as the prefix has; empty when it has no more than those. The characters
/// themselves are not compared. Ten blanks, an empty tag, stay; all else is trimmed.
String WithoutPrefix(const String& reply, const String& prefix);

}  // namespace korva
