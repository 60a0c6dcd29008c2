#include "files/model_kind.h"

#include <string_view>

#include "core/line_reader.h"
#include "core/program.h"

namespace korva {

String KindOfModel(const Page& page, int row, Language language) {
  const Program& program = page.ItsProgram();
  const Family* family = program.FindFamily(FamilyOfRow(page.Models, row));
  if (family == nullptr) {
    return {};
  }
  const String system = program.Join(page.AppPath, u"system");
  const String path =
      program.Join(program.Join(system, family->folder), page.Models.At(row, ModelTable::kDefFile));
  SystemReason reason;
  const Platform& platform = program.Surroundings();
  const std::string bytes = platform.files.Read(path, LineReader::kMostBytes, reason).value_or(std::string());
  std::string_view line = bytes;
  if (language == Language::Japanese) {
    const std::size_t end = line.find('\n');
    line = end == std::string_view::npos ? std::string_view() : line.substr(end + 1);
  }
  line = line.substr(0, line.find_first_of("\r\n"));
  const std::size_t colon = line.find(": ");
  return colon == std::string_view::npos ? String() : platform.code_page.Decode(line.substr(colon + 2));
}

}  // namespace korva
