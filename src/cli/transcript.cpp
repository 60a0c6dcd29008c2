#include "cli/transcript.h"

#include <cerrno>
#include <cstddef>

#include "core/text_utilities.h"

namespace korva::cli {

namespace {

bool IsBreak(char16_t c) { return c == u'\r' || c == u'\n'; }

}  // namespace

std::string Quoted(StringView text) {
  String quoted = u"\"";
  for (std::size_t at = 0; at < text.size(); ++at) {
    const char16_t c = text[at];
    if (IsBreak(c)) {
      // Two different characters are one break, whichever comes first.
      if (at + 1 < text.size() && IsBreak(text[at + 1]) && text[at + 1] != c) {
        ++at;
      }
      quoted += u"\\n";
    } else {
      if (c == u'"' || c == u'\\') {
        quoted += u'\\';
      }
      quoted += c;
    }
  }
  return ToUtf8(quoted + u'"');
}

void Transcript::Refuse(std::string_view what, std::string_view reason) {
  refused_ = true;
  Tell("refused " + std::string(what) + ": " + std::string(reason));
}

void Transcript::Tell(std::string_view line) {
  if (Failed() || (happenings_ << line << '\n' << std::flush)) {
    return;
  }
  failure_ = errno;
  if (on_failed_) {
    on_failed_();
  }
}

std::string_view WordOf(Answer answer) {
  switch (answer) {
    case Answer::Ok:
      return "ok";
    case Answer::Cancel:
      return "cancel";
    case Answer::Yes:
      return "yes";
    case Answer::No:
      break;
  }
  return "no";
}

}  // namespace korva::cli
