#include "link/transfer_observer.h"

#include "core/text_utilities.h"

namespace korva {

bool IsRefusedBy(const String& reply) {
  const String text = Trimmed(reply);
  return text == u"CNG" || text == u"CNU" || TellsRefusal(text) ||
         TellsRefusal(SerialLink::StrippedReply(reply));
}

Evidence EvidenceOfFailure(const String& reply) {
  if (reply.empty()) {
    return Evidence::Silent;
  }
  return IsRefusedBy(reply) ? Evidence::Refused : Evidence::Differs;
}

}  // namespace korva
