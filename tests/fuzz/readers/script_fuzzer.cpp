// A script of any bytes: cut into lines, and each line taken for an action.

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "cli/action.h"
#include "cli/script_lines.h"
#include "cli/transcript.h"
#include "core/text_utilities.h"
#include "demand.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  korva::cli::ScriptLines lines;
  lines.Feed({reinterpret_cast<const char*>(data), size});
  lines.Close();
  int number = 0;
  while (const auto line = lines.Next()) {
    const korva::String text = korva::FromUtf8(*line);
    const auto statement = korva::cli::ParseStatement(++number, text);
    korva::test::Demand(!statement || !korva::cli::SaysNothing(text));
    korva::test::Demand(korva::cli::Quoted(text).find('\n') == std::string::npos);
  }
  return 0;
}
