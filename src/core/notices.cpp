#include "core/notices.h"

namespace korva {

void Notices::Tell(Notice kind, const String& text) {
  texts_.at(static_cast<std::size_t>(kind)) = text;
  String all;
  for (const String& one : texts_) {
    if (!one.empty()) {
      all += (all.empty() ? u"" : u"\n") + one;
    }
  }
  SetCaption(all);
  SetVisible(!all.empty());
}

}  // namespace korva
