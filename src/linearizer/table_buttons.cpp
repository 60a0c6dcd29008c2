#include "linearizer/table_buttons.h"

#include <string>

#include "core/line_reader.h"
#include "core/numbers.h"
#include "core/text_utilities.h"
#include "files/section_lines.h"

namespace korva {

namespace {

constexpr StringView kSizeKey = u"$TableSize";
constexpr int kSizeGroup = 5;
constexpr int kSizeItem = 0;
constexpr StringView kRecordEnd = u"\r\n";
constexpr int kPointsOfStep = 5;  ///< the bar moves behind every fifth point
constexpr float kBarAtBegin = 5;

}  // namespace

TableButtons::TableButtons(ParameterPage& page, Linearizer& linearizer)
    : TableMover(page),
      page_(page),
      linearizer_(linearizer),
      form_(*linearizer.ItsFamily().buttons),
      exchange_(form_.make(page, linearizer.Table())) {
  if (form_.sized) {
    page_.RegisterAll<Control>({&lblSize, &txtSize});
    txtSize.SetNumeric(true);
  }
  cmdReadOutTable.OnClick = [this] { ReadOut(); };
  cmdWriteInTable.OnClick = [this] { WriteIn(); };
  txtSize.OnChange = [this] {
    page_.GroupItem.TableSize = txtSize.Text();
    if (!showing_) {
      page_.MarkEdited();
    }
  };
  linearizer_.OnSizeRead = [this](const String& size) { ShowSize(size); };
}

void TableButtons::SetCaptions(Language language) {
  TableMover::SetCaptions(language);
  lblSize.SetCaption(CaptionText(TextKey::TableSize, language));
}

void TableButtons::PageCleared() { txtSize.SetLook(Look::Normal); }

void TableButtons::PageBuilt() { ShowSize(page_.GroupItem.TableSize); }

void TableButtons::ShowSize(const String& size) {
  showing_ = true;
  txtSize.SetText(size);
  showing_ = false;
}

String TableButtons::CfgSection() const {
  if (!form_.sized) {
    return {};
  }
  const String& size = page_.GroupItem.TableSize;
  const String record = u"\"5\",\"0\",\"" + size + u"\"" + String(kRecordEnd);
  return String(kSizeKey).append(kRecordEnd).append(size.empty() ? String() : record);
}

SectionRead TableButtons::ReadCfgSection(StringView key, LineReader& lines, int handle) {
  if (!form_.sized || key != kSizeKey) {
    return SectionRead::NotMine;
  }
  while (const std::optional<SectionRecord> record = NextRecord(lines, handle)) {
    if (record->group == kSizeGroup && record->item == kSizeItem) {
      page_.GroupItem.TableSize = record->text;
    }
    if (!record->whole) {
      return SectionRead::Faulty;
    }
  }
  return SectionRead::Whole;
}

void TableButtons::ReadOut() {
  Travel(form_.reads_in_monitor_mode ? &DevicePage::EnterMonitorMode : nullptr, &TableButtons::ReadPoints,
         BoxKey::TableRead);
}

void TableButtons::WriteIn() {
  Travel(&DevicePage::EnterProgrammingMode, &TableButtons::WritePoints, BoxKey::TableWritten);
}

void TableButtons::Travel(EnterMode mode, Move move, BoxKey report) {
  if (!page_.OperationRuns() && !linearizer_.Refused()) {
    Exchange({.move = [this, mode, move] { return (mode == nullptr || (page_.*mode)()) && (this->*move)(); },
              .changes_mode = mode != nullptr,
              .holds_close = mode != nullptr,
              .report = report});
  }
}

void TableButtons::ShowDone(int done, int all) {
  if (done % kPointsOfStep == 0) {
    const float share = static_cast<float>(done) / static_cast<float>(all);
    Table_ProgressBar.SetValue(kBarAtBegin + (100 - kBarAtBegin) * share);
  }
}

bool TableButtons::ReadPoints() {
  Table_ProgressBar.SetValue(kBarAtBegin);
  linearizer_.Table().Clear();
  linearizer_.Editor().Reset();
  linearizer_.SetTableUnsaved(false);
  page_.DataChanged = true;  // the page now differs from any file
  const std::optional<int> points = exchange_->PointsToRead();
  if (points && form_.sized) {
    ShowSize(Ascii(std::to_string(*points)));
  }
  bool good = points && *points >= 0 && *points <= linearizer_.Table().Points();
  for (int point = 1; good && point <= *points; ++point) {
    good = exchange_->ReadPoint(point);
    ShowDone(point, *points);
  }
  if (!good) {
    page_.Box().Show(form_.read_failed);
  }
  return good;
}

std::optional<FieldRange> TableButtons::RangeOfField(const TextField& field) const {
  return &field == &txtSize ? std::optional(FieldRange{
                                  .low = 0, .high = static_cast<double>(linearizer_.Table().FilledPoints())})
                            : std::nullopt;
}

bool TableButtons::CheckSize() {
  const std::optional<int> size = PointCount(txtSize.Text());
  const bool good = size && *size <= linearizer_.Table().FilledPoints();
  txtSize.SetLook(good ? Look::Normal : Look::Bad);
  if (!good) {
    page_.Box().Show(BoxKey::ValueBad);
    NoteFault(&txtSize);
  }
  return good;
}

bool TableButtons::CheckTable() {
  if (linearizer_.CheckLnrTable()) {
    return true;
  }
  page_.Box().Show(linearizer_.Table().MissesValue() ? form_.blank_cell : BoxKey::ValueBad);
  NoteFault(&linearizer_.LnrFlexGrid);
  return false;
}

int TableButtons::PointsToWrite() const {
  return form_.sized ? PointCount(txtSize.Text()).value() : linearizer_.Table().FilledPoints();
}

bool TableButtons::WritePoints() {
  Table_ProgressBar.SetValue(kBarAtBegin);
  linearizer_.Editor().TellOpenEdit();
  if (form_.sized && Trimmed(txtSize.Text()).empty()) {
    page_.Box().Show(BoxKey::TableFieldBlank);
    NoteFault(&txtSize);
    return false;
  }
  if (!CheckTable() || (form_.sized && !CheckSize())) {
    return false;
  }
  const int points = PointsToWrite();
  bool good = exchange_->BeginWriting(points);
  for (int point = 1; good && point <= points; ++point) {
    good = exchange_->WritePoint(point);
    ShowDone(point, points);
  }
  good = good && exchange_->EndWriting();
  if (!good) {
    page_.Box().Show(form_.write_failed);
  }
  return good;
}

}  // namespace korva
