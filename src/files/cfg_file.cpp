#include "files/cfg_file.h"

#include <algorithm>
#include <functional>
#include <initializer_list>
#include <string>

#include "core/numbers.h"
#include "core/text_utilities.h"
#include "core/texts.h"
#include "files/section_lines.h"
#include "platform/event_gate.h"

namespace korva {

namespace {

constexpr StringView kDefFileKey = u"$DefFile";
constexpr StringView kDataKey = u"$Data";
constexpr StringView kMemoKey = u"$Memo";
constexpr StringView kLineEnd = u"\r\n";

String Number(int number) { return Ascii(std::to_string(number)); }

/// The line of the values, each in quotes, joined by commas. A quote inside a value stays as it is.
String Record(std::initializer_list<StringView> values) {
  String line;
  for (const StringView value : values) {
    line.append(line.empty() ? u"\"" : u",\"").append(value).append(u"\"");
  }
  return line.append(kLineEnd);
}

String KeyLine(StringView key) { return String(key).append(kLineEnd); }

/// The model of that definition file; rows that the catalogue leaves free have an empty name as well.
CfgModel ModelOf(const String& def_file, const ModelTable& models) {
  return {.def_file = def_file, .row = def_file.empty() ? 0 : FindModelByDefFile(models, def_file)};
}

/// What the reading of a configuration file came to.
struct CfgReading {
  std::optional<CfgModel> model = {};
  std::vector<BoxKey> faults = {};  ///< of its form, in the order in which they were met
  String outside = {};              ///< the item outside the set with which the reading ended
};

/// Reads the section of a key that is none of the reader's own, or tells that it is nobody's.
using SectionOf = std::function<SectionRead(const String& key)>;

/// Reads the sections of one configuration file, which is open. A reader ends with the next key line pushed
/// back, or at the end of the file.
class CfgReader {
 public:
  CfgReader(LineReader& lines, const ModelTable& models, ParameterSet& set)
      : lines_(lines), models_(models), set_(set) {}

  CfgReading ReadAll(const SectionOf& other_section) {
    String key = FirstKey();
    while (ReadSection(key, other_section)) {
      key = lines_.ReadLine(kCfgHandle);
    }
    return reading_;
  }

  /// Passes over the lines up to the next key.
  void SkipSection() {
    while (NextLineOfSection(lines_, kCfgHandle)) {
    }
  }

 private:
  /// False when nothing more is read.
  bool ReadSection(const String& key, const SectionOf& other_section) {
    if (key == kDefFileKey) {
      reading_.model = ReadModel();
    } else if (key == kDataKey) {
      ReadData();
    } else if (key == kMemoKey) {
      ReadMemo();
    } else if (!ReadOther(key, other_section)) {
      return false;
    }
    const bool unknown_model = reading_.model && reading_.model->row == 0;
    return !unknown_model && reading_.outside.empty() && !AtEnd();
  }

  /// False when the section is nobody's, which the end of the file is too.
  bool ReadOther(const String& key, const SectionOf& other_section) {
    const SectionRead read = other_section(key);
    if (read == SectionRead::Faulty) {
      reading_.faults.push_back(BoxKey::CfgDataFormat);
    } else if (read == SectionRead::NotMine && key != kEndKey) {
      reading_.faults.push_back(BoxKey::CfgFormat);
    }
    return read != SectionRead::NotMine;
  }

  /// The first key line; empty when the file has none.
  String FirstKey() {
    while (!AtEnd()) {
      if (String line = lines_.ReadLine(kCfgHandle); IsKeyLine(line)) {
        return line;
      }
    }
    return {};
  }

  [[nodiscard]] bool AtEnd() const { return lines_.AtEnd(kCfgHandle); }

  CfgModel ReadModel() {
    String def_file;
    while (const std::optional<String> line = NextLineOfSection(lines_, kCfgHandle)) {
      def_file = *line;
    }
    return ModelOf(def_file, models_);
  }

  void ReadData() {
    while (const std::optional<SectionRecord> record = NextRecord(lines_, kCfgHandle)) {
      if (!set_.Has(record->group, record->item)) {
        reading_.outside = Ascii("Group ") + Number(record->group) + Ascii(", Item ") + Number(record->item);
        return;
      }
      set_.Set(record->group, record->item, record->text);
      if (!record->whole) {
        reading_.faults.push_back(BoxKey::CfgDataFormat);
        return;
      }
    }
  }

  void ReadMemo() {
    while (const std::optional<String> line = NextLineOfSection(lines_, kCfgHandle)) {
      const int position = lines_.NextField(1, *line);
      if (position == -1) {
        set_.Memo.append(kLineEnd).append(*line);
        continue;
      }
      const int entry = LeadingInteger(lines_.Field());
      lines_.NextField(position, *line);
      if (entry == 0) {
        set_.Author = lines_.Field();
      } else if (entry == 1) {
        set_.Memo = lines_.Field();
      }
    }
  }

  LineReader& lines_;
  const ModelTable& models_;
  ParameterSet& set_;
  CfgReading reading_;
};

/// The lines of the text, without their ends.
std::vector<StringView> LinesOf(StringView text) {
  std::vector<StringView> lines;
  std::size_t end = text.find(kLineEnd);
  while (end != StringView::npos) {
    lines.push_back(text.substr(0, end));
    text.remove_prefix(end + kLineEnd.size());
    end = text.find(kLineEnd);
  }
  lines.push_back(text);
  return lines;
}

/// The lines of the memo, from 1, that don't come in `read` behind those before them.
std::vector<int> LostLines(const String& memo, const String& read) {
  const std::vector<StringView> wanted = LinesOf(memo);
  const std::vector<StringView> found = LinesOf(read);
  std::vector<int> lost;
  auto next = found.begin();
  for (std::size_t line = 0; line < wanted.size(); ++line) {
    if (const auto at = std::find(next, found.end(), wanted[line]); at != found.end()) {
      next = at + 1;
    } else {
      lost.push_back(static_cast<int>(line) + 1);
    }
  }
  return lost;
}

/// True when a value that was saved has come back. An empty tag may be written in blanks.
bool CameBack(const String& saved, const String& read) {
  return saved == read || (saved == kEmptyTag && read.empty());
}

}  // namespace

String CfgText(const String& def_file, const ParameterSet& set, std::span<PagePart* const> parts,
               int first_group) {
  String text = KeyLine(kDefFileKey) + Record({def_file}) + KeyLine(kDataKey);
  for (int place = 0; place < set.Groups(); ++place) {
    const int group = (first_group + place) % set.Groups();
    for (int item = 0; item < ParameterSet::kItems; ++item) {
      if (const String& value = set.At(group, item); !value.empty()) {
        text += Record({Number(group), Number(item), value});
      }
    }
  }
  for (const PagePart* part : parts) {
    text += part->CfgSection();
  }
  return text + KeyLine(kMemoKey) + Record({u"0", set.Author}) + Record({u"1", set.Memo}) + KeyLine(kEndKey);
}

bool OpenCfgFile(LineReader& lines, const Boxes& boxes, const String& path) {
  SystemReason reason;
  if (lines.TryOpenTextFile(path, kCfgHandle, reason, kMostCfgBytes)) {
    return true;
  }
  if (reason.what == SystemReason::Case::Missing) {
    boxes.Show(BoxKey::FileNotFound);
  } else if (reason.what == SystemReason::Case::TooLarge) {
    boxes.Show(BoxKey::CfgFormat);
  } else {
    boxes.Show(BoxKey::CfgOpenFailed, {path + u"\n" + ReasonText(reason)});
  }
  return false;
}

std::optional<CfgModel> ModelOfCfgFile(LineReader& lines, const ModelTable& models) {
  std::optional<CfgModel> model;
  while (!model && !lines.AtEnd(kCfgHandle)) {
    if (lines.ReadLine(kCfgHandle) != kDefFileKey) {
      continue;
    }
    String def_file;
    while (!lines.AtEnd(kCfgHandle)) {
      const String line = lines.ReadLine(kCfgHandle);
      if (IsKeyLine(line)) {
        break;
      }
      def_file = line;
    }
    model = ModelOf(def_file, models);
  }
  lines.Rewind(kCfgHandle);
  return model;
}

std::optional<CfgModel> ReadCfgFile(LineReader& lines, const Boxes& boxes, const ModelTable& models,
                                    const String& path, ParameterSet& set, std::span<PagePart* const> parts) {
  set.Clear();
  const CfgReading reading = CfgReader(lines, models, set).ReadAll([&](const String& key) {
    SectionRead read = SectionRead::NotMine;
    for (auto part = parts.begin(); part != parts.end() && read == SectionRead::NotMine; ++part) {
      read = (*part)->ReadCfgSection(key, lines, kCfgHandle);
    }
    return read;
  });
  lines.CloseTextFile(kCfgHandle);
  for (const BoxKey fault : reading.faults) {
    boxes.Show(fault);
  }
  if (!reading.outside.empty()) {
    throw RuntimeFailure(path + u"\n" + reading.outside + u" は設定値の範囲にありません。");
  }
  return reading.model;
}

CfgLosses LossesOfCfgFile(LineReader& lines, const ModelTable& models, const String& path,
                          const ParameterSet& set, std::span<PagePart* const> parts) {
  ParameterSet read(set.Groups());
  if (SystemReason reason; lines.TryOpenTextFile(path, kCfgHandle, reason, kMostCfgBytes)) {
    CfgReader reader(lines, models, read);
    (void)reader.ReadAll([&](const String& key) {
      const bool known = std::any_of(parts.begin(), parts.end(), [&](const PagePart* part) {
        return part->CfgSection().starts_with(KeyLine(key));
      });
      if (known) {
        reader.SkipSection();
      }
      return known ? SectionRead::Whole : SectionRead::NotMine;
    });
    lines.CloseTextFile(kCfgHandle);
  }
  CfgLosses losses;
  for (int group = 0; group < set.Groups(); ++group) {
    for (int item = 0; item < ParameterSet::kItems; ++item) {
      if (!CameBack(set.At(group, item), read.At(group, item))) {
        losses.items.emplace_back(group, item);
      }
    }
  }
  losses.author = set.Author != read.Author;
  losses.memo_lines = LostLines(set.Memo, read.Memo);
  return losses;
}

}  // namespace korva
