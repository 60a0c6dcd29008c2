#include "files/cfg_file.h"

#include <algorithm>
#include <initializer_list>
#include <string>

#include "core/numbers.h"
#include "core/text_utilities.h"
#include "core/texts.h"
#include "files/section_lines.h"
#include "platform/event_gate.h"

namespace korva {

namespace {

constexpr int kCfgHandle = 2;
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

/// Reads the sections of one configuration file, which is open. A reader ends with the next key line pushed
/// back, or at the end of the file.
class CfgReader {
 public:
  CfgReader(LineReader& lines, const Boxes& boxes, const String& path, ParameterSet& set)
      : lines_(lines), boxes_(boxes), path_(path), set_(set) {}

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

  CfgModel ReadModel(const ModelTable& models) {
    String def_file;
    String line;
    while (NextRecord(line)) {
      def_file = line;
    }
    return ModelOf(def_file, models);
  }

  void ReadData() {
    String line;
    while (NextRecord(line)) {
      int position = lines_.NextField(1, line);
      const int group = LeadingInteger(lines_.Field());
      position = lines_.NextField(position, line);
      const int item = LeadingInteger(lines_.Field());
      position = lines_.NextField(position, line);
      if (!set_.Has(group, item)) {
        throw RuntimeFailure(path_ + u"\n" + Ascii("Group ") + Number(group) + Ascii(", Item ") +
                             Number(item) + u" は設定値の範囲にありません。");
      }
      set_.Set(group, item, lines_.Field());
      if (position != -1) {
        boxes_.Show(BoxKey::CfgDataFormat);
        return;
      }
    }
  }

  void ReadMemo() {
    String line;
    while (NextRecord(line)) {
      const int position = lines_.NextField(1, line);
      if (position == -1) {
        set_.Memo.append(kLineEnd).append(line);
        continue;
      }
      const int entry = LeadingInteger(lines_.Field());
      lines_.NextField(position, line);
      if (entry == 0) {
        set_.Author = lines_.Field();
      } else if (entry == 1) {
        set_.Memo = lines_.Field();
      }
    }
  }

 private:
  bool NextRecord(String& line) {
    if (AtEnd()) {
      return false;
    }
    line = lines_.ReadLine(kCfgHandle);
    if (!IsKeyLine(line)) {
      return true;
    }
    lines_.UnreadLine(line);
    return false;
  }

  LineReader& lines_;
  const Boxes& boxes_;
  const String& path_;
  ParameterSet& set_;
};

}  // namespace

String CfgText(const String& def_file, const ParameterSet& set, std::span<PagePart* const> parts) {
  String text = KeyLine(kDefFileKey) + Record({def_file}) + KeyLine(kDataKey);
  for (int group = 0; group < set.Groups(); ++group) {
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
  CfgReader reader(lines, boxes, path, set);
  std::optional<CfgModel> model;
  String line = reader.FirstKey();
  while (true) {
    if (line == kDefFileKey) {
      model = reader.ReadModel(models);
    } else if (line == kDataKey) {
      reader.ReadData();
    } else if (line == kMemoKey) {
      reader.ReadMemo();
    } else if (!std::any_of(parts.begin(), parts.end(),
                            [&](PagePart* part) { return part->ReadCfgSection(line, lines, kCfgHandle); })) {
      if (line != kEndKey) {
        boxes.Show(BoxKey::CfgFormat);
      }
      break;
    }
    const bool unknown_model = model && model->row == 0;
    if (unknown_model || reader.AtEnd()) {
      break;
    }
    line = lines.ReadLine(kCfgHandle);
  }
  lines.CloseTextFile(kCfgHandle);
  return model;
}

}  // namespace korva
