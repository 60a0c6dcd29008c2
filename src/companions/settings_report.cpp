#include "companions/settings_report.h"

#include <algorithm>
#include <array>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "companions/row_value.h"
#include "core/design_names.h"
#include "core/numbers.h"
#include "core/program.h"
#include "core/text_utilities.h"
#include "files/model_kind.h"

namespace korva {

namespace {

constexpr StringView kBlank = u"―";
constexpr int kTagItem = 2;

// Shares of a line.
constexpr int kItemShare = 9;
constexpr int kCaptionShare = 32;
constexpr int kValueShare = 29;
constexpr int kUnitShare = 17;  ///< beside a choice of inputs their range stands there

String OrBlank(const String& text) { return text.empty() ? String(kBlank) : text; }

String DayText(Date day) {
  return FormatMask(static_cast<int>(day.year()), u"0000") + u"-" +
         FormatMask(static_cast<unsigned>(day.month()), u"00") + u"-" +
         FormatMask(static_cast<unsigned>(day.day()), u"00");
}

/// The text with line breaks of one kind.
String WithPlainBreaks(String text) {
  std::erase(text, u'\r');
  return text;
}

/// Walks through the design of a page.
class ReportBuilder {
 public:
  explicit ReportBuilder(ParameterPage& page) : page_(page) { FindRows(); }

  std::vector<DocumentTable> Tables() {
    int tab = 0;
    for (const DesignTab& design : page_.ItsDesign().tabs) {
      if (page_.Tabs.TabEnabled(tab)) {
        AddTab(design, page_.Tabs.TabCaption(tab));
      }
      ++tab;
    }
    return std::move(tables_);
  }

 private:
  /// The controls that show a row which is no live value.
  void FindRows() {
    for (int row = 0; row < page_.Def.Data().Rows(); ++row) {
      if (page_.DataCell(row, kOnPage) != u"Y" || page_.IsLive(row)) {
        continue;
      }
      if (const Control* control = ControlOf(page_, row)) {
        rows_.emplace(control, row);
      } else if (!page_.DataCell(row, kFrameIndex).empty()) {
        rows_.emplace(&page_.Frames[page_.Place(row, kFrameIndex, page_.Frames.Count())], row);
      }
    }
  }

  /// The boxes of values first, then those of points.
  void AddTab(const DesignTab& tab, const String& caption) {
    for (const DesignGroup& group : tab.groups) {
      DocumentTable table{.heading = HeadingOf(group, caption), .columns = LineColumns(), .rows = {}};
      for (const DesignRow& row : group.rows) {
        AddLines(row, table);
      }
      if (!table.rows.empty()) {
        tables_.push_back(std::move(table));
      }
    }
    for (const DesignGroup& group : tab.groups) {
      for (const DesignRow& row : group.rows) {
        AddGrids(row, HeadingOf(group, caption));
      }
    }
  }

  [[nodiscard]] String HeadingOf(const DesignGroup& group, const String& tab) const {
    const auto* frame = dynamic_cast<const CaptionedControl*>(page_.FindControl(group.frame));
    const String& box = frame == nullptr ? page_.Words(group.heading) : frame->Caption();
    return box.empty() || box == tab ? tab : tab + u": " + box;
  }

  [[nodiscard]] std::vector<DocumentColumn> LineColumns() const {
    return {{.head = page_.Words(TextKey::ReportItem), .share = kItemShare},
            {.head = page_.Words(TextKey::ReportCaption), .share = kCaptionShare},
            {.head = page_.Words(TextKey::SettingsValue), .share = kValueShare},
            {.head = page_.Words(TextKey::SettingsUnit), .share = kUnitShare}};
  }

  /// Text of a label, or of what else stands in its place; empty while it is hidden.
  [[nodiscard]] String TextOf(std::string_view name) const {
    const Control* control = page_.FindControl(name);
    return control == nullptr || !control->Visible() ? String() : control->ShownText();
  }

  void AddLines(const DesignRow& row, DocumentTable& table) {
    String which;  // of several numbers of an item
    for (const std::string_view name : NamesIn(row.field)) {
      const Control* control = page_.FindControl(name);
      if (control == nullptr || !control->Visible()) {
        continue;
      }
      if (dynamic_cast<const Label*>(control) != nullptr) {
        which += control->ShownText();
      } else if (const auto found = rows_.find(control); found != rows_.end()) {
        AddItem(row, found->second, *control, which, table);
      } else if (IsTableField(name) && control->Refused() != Refusal::Hidden) {
        table.rows.push_back({{},
                              which.empty() ? TextOf(row.label) : which,
                              OrBlank(Trimmed(control->ShownText())),
                              TextOf(row.unit)});
      }
    }
  }

  static bool IsTableField(std::string_view name) {
    return std::any_of(kTableFields.begin(), kTableFields.end(),
                       [&](const auto& field) { return field.first == name; });
  }

  void AddItem(const DesignRow& row, int data_row, const Control& control, const String& which,
               DocumentTable& table) {
    const bool of_the_set = page_.DataCell(data_row, kUploaded) == u"Y" || page_.IsWritten(data_row);
    if (control.Refused() == Refusal::Hidden && !of_the_set) {
      return;
    }
    const String caption = CaptionOf(row, data_row, control) + (which.empty() ? u"" : u" ") + which;
    if (const String why = WhyNone(data_row, control); !why.empty()) {
      table.rows.push_back({TextOf(row.number), caption, why, {}});
    } else {
      table.rows.push_back(
          {TextOf(row.number), caption, ShownOf(page_, data_row), UnitOfLine(row, data_row)});
    }
  }

  [[nodiscard]] String CaptionOf(const DesignRow& row, int data_row, const Control& control) const {
    if (String caption = TextOf(row.label); !caption.empty()) {
      return caption;
    }
    const bool of_frame = dynamic_cast<const Frame*>(&control) != nullptr;
    return of_frame ? control.ShownText() : page_.DataCell(data_row, kCaption);
  }

  /// What stands at the place of the unit of an item without one is told there too.
  [[nodiscard]] String UnitOfLine(const DesignRow& row, int data_row) const {
    const String unit = UnitShownOf(page_, data_row);
    return unit.empty() ? TextOf(row.unit) : unit;
  }

  /// What stands in place of a value; empty where there is one that counts.
  [[nodiscard]] String WhyNone(int row, const Control& control) const {
    if (page_.SetCell(row) == kNeedless) {
      return u"(" + page_.Words(TextKey::SkipNeedless) + u")";
    }
    const bool blank = ShownOf(page_, row).empty();
    const bool greyed = control.Locked() && control.ShownLook() == Look::Grey && !page_.Fixed(row);
    if (!control.Enabled() || (blank && greyed)) {
      return u"(" + page_.Words(TextKey::SkipNotOfUse) + u")";
    }
    return blank ? String(kBlank) : String();
  }

  void AddGrids(const DesignRow& row, const String& heading) {
    for (const std::string_view name : NamesIn(row.field)) {
      const auto* grid = dynamic_cast<const Grid*>(page_.FindControl(name));
      if (grid != nullptr && grid->Refused() != Refusal::Hidden && grid->Columns() > 1) {
        AddGrid(*grid, heading);
      }
    }
  }

  void AddGrid(const Grid& grid, const String& heading) {
    DocumentTable table{.heading = heading, .columns = {}, .rows = {}};
    for (int column = 0; column < grid.Columns(); ++column) {
      table.columns.push_back({.head = Simplified(grid.At(0, column).text), .number = true});
    }
    for (int row = 1; row <= LastRow(grid); ++row) {
      std::vector<String>& cells = table.rows.emplace_back();
      for (int column = 0; column < grid.Columns(); ++column) {
        cells.push_back(OrBlank(Trimmed(grid.At(row, column).text)));
      }
    }
    if (Curve curve = CurveOf(grid); !curve.points.empty()) {
      for (CurvePoint& point : curve.points) {
        point.selected = false;  // what is under edit on the screen means nothing on paper
      }
      table.curve = std::move(curve);
    }
    tables_.push_back(std::move(table));
  }

  /// The last row in use that has a value; at least the first.
  static int LastRow(const Grid& grid) {
    const auto has_value = [&](int row) {
      for (int column = 1; column < grid.Columns(); ++column) {
        if (!Trimmed(grid.At(row, column).text).empty()) {
          return true;
        }
      }
      return false;
    };
    int row = std::min(grid.RowsInUse(), grid.Rows() - 1);
    while (row > 1 && !has_value(row)) {
      --row;
    }
    return row;
  }

  ParameterPage& page_;
  std::map<const Control*, int> rows_;
  std::vector<DocumentTable> tables_;
};

String TagOf(const ParameterPage& page) {
  const String& tag = page.Item(kTagItem);
  return tag == kNeedless ? String() : Trimmed(tag);
}

/// What the definition calls the tag.
String TagCaption(const ParameterPage& page) {
  const int row = page.FindDataRow({u"01", u"02"});
  return row < 0 ? String() : page.DataCell(row, kCaption);
}

}  // namespace

Document SettingsReport(ParameterPage& page, const String& file) {
  const String model = page.lst_TypeSelect.Text();
  const String kind = KindOfModel(page, page.lst_TypeSelect.ListIndex(), page.CaptionLanguage());
  const String tag = TagOf(page);
  Document document{.title = page.Words(TextKey::SettingsReport),
                    .header = tag.empty() ? model : model + u"    " + tag,
                    .footer = page.Words(TextKey::Version),
                    .page_number = page.Words(TextKey::SettingsPage),
                    .facts = {},
                    .tables = ReportBuilder(page).Tables()};
  const auto add = [&](const String& what, const String& text) { document.facts.emplace_back(what, text); };
  add(page.Words(TextKey::Model), kind.empty() ? model : model + u"    " + kind);
  if (const String caption = TagCaption(page); !caption.empty()) {
    add(caption, OrBlank(tag));
  }
  add(page.Words(TextKey::SettingsDate), DayText(page.ItsProgram().Loop().Today()));
  add(page.Words(TextKey::Author), OrBlank(page.txtAuthor.Text()));
  if (!file.empty()) {
    add(page.Words(TextKey::FileName), file);
  }
  add(page.Words(TextKey::Memo), OrBlank(WithPlainBreaks(page.txtMemo.Text())));
  return document;
}

}  // namespace korva
