#include "app/tab_builder.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

#include "app/curve_view.h"
#include "app/looks.h"
#include "app/step_keys.h"
#include "app/tab_area.h"
#include "app/text.h"
#include "core/design_names.h"

namespace korva {

namespace {

// Widths in digits of the font.
constexpr int kNumberColumn = 8;
constexpr int kCaptionColumn = 18;
constexpr int kField = 16;
constexpr int kWideField = 26;
constexpr int kUnitBox = 9;
constexpr int kShortField = 5;
constexpr int kFieldName = 5;    ///< of a field among several of one item
constexpr int kTableField = 11;  ///< with room for the sign of a number outside its limits
constexpr int kMemo = 60;
constexpr int kUnitColumn = 7;
constexpr int kColumns = 6;  ///< of a box: number, caption, field, unit, buttons, rest
constexpr int kStepButton = 8;
constexpr std::string_view kNoKey = "-";
constexpr int kGridLines = 9;  ///< that a grid has at least; it grows with the window

/// Width of a text field: of a value, of a number of rows or columns, else of a free text.
int DigitsOfField(const TextField& field) {
  const std::string_view name = field.Name();
  if (name == "Text" || name == "txtLnrNewValue") {
    return kField;
  }
  if (name == "txtSize" || name == "txtStep" || name == "txtBase") {
    return kTableField;
  }
  if (name.starts_with("txtLnr")) {
    return kShortField;
  }
  return field.Numeric() ? kField : kMemo;
}

/// The column in which the lines of a box begin. A column that is spanned takes a gap even where nothing
/// stands in it: what has a caption would be out of line with what has none.
int FirstColumn(const DesignGroup& group) {
  const bool numbers = std::any_of(group.rows.begin(), group.rows.end(),
                                   [](const DesignRow& row) { return !row.number.empty(); });
  return numbers ? 0 : 1;
}

bool HasCurve(const DesignGroup& group) {
  return std::any_of(group.rows.begin(), group.rows.end(),
                     [](const DesignRow& row) { return !row.curve.empty(); });
}

/// A style sheet would do this in one line, and take most of the time until a page shows.
void MakeHeadingBold(QGroupBox* box) {
  QFont font = box->font();
  font.setBold(false);
  for (QWidget* child : box->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
    child->setFont(font);
  }
  font.setBold(true);
  box->setFont(font);
}

/// Gives a field the size that its kind asks for; true when it is to fill the space that it gets.
bool SizeField(QWidget* widget, const Control& control) {
  if (auto* memo = qobject_cast<QPlainTextEdit*>(widget)) {
    memo->setMinimumWidth(Digits(memo, kMemo));
    memo->setMinimumHeight(memo->fontMetrics().lineSpacing() * 8);
    return true;
  }
  if (auto* grid = qobject_cast<QTableView*>(widget)) {
    grid->setMinimumHeight(grid->verticalHeader()->defaultSectionSize() * kGridLines);
    grid->setFixedWidth(Digits(grid, 2 * kWideField));
    return true;
  }
  if (dynamic_cast<const ComboBox*>(&control) != nullptr) {
    widget->setFixedWidth(Digits(widget, control.Name() == "cbo_unit" ? kUnitBox : kWideField));
  } else if (const auto* field = dynamic_cast<const TextField*>(&control)) {
    widget->setFixedWidth(Digits(widget, DigitsOfField(*field)));
  }
  return false;
}

}  // namespace

QWidget* TabBuilder::Make(const DesignTab& tab, QWidget* parent) {
  auto* area = new TabArea(parent);
  auto* content = new QWidget(area);
  auto* columns = new QHBoxLayout(content);
  std::array<QVBoxLayout*, 2> stacks = {new QVBoxLayout, new QVBoxLayout};
  for (QVBoxLayout* stack : stacks) {
    columns->addLayout(stack);
  }
  // Column by column, as the keyboard walks through them.
  for (int column = 0; column < static_cast<int>(stacks.size()); ++column) {
    for (const DesignGroup& group : tab.groups) {
      if (group.column == column) {
        AddBox(group, *columns, *stacks.at(static_cast<std::size_t>(column)));
      }
    }
  }
  for (QVBoxLayout* stack : stacks) {
    stack->addStretch(0);
  }
  if (columns->stretch(0) + columns->stretch(1) == 0) {
    columns->addStretch(1);
  }
  area->setWidget(content);
  return area;
}

void TabBuilder::AddBox(const DesignGroup& group, QHBoxLayout& columns, QVBoxLayout& stack) {
  QGroupBox* box = MakeGroup(group, columns.parentWidget());
  const bool wide = HasCurve(group);
  const bool tall = wide || box->findChild<QTableView*>() != nullptr;
  stack.addWidget(box, tall ? 1 : 0);
  if (wide) {
    columns.setStretch(group.column, 1);
  }
  if (columns.stretch(group.column) > 0 && !group.frame.empty()) {
    // What opens and closes under a curve keeps its place, so that the curve doesn't jump.
    QSizePolicy policy = box->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    box->setSizePolicy(policy);
  }
}

QGroupBox* TabBuilder::MakeGroup(const DesignGroup& group, QWidget* parent) {
  auto* box = new QGroupBox(ToQt(CaptionText(group.heading)), parent);
  auto* layout = new QGridLayout(box);
  layout->setColumnMinimumWidth(3, Digits(parent, kUnitColumn));
  layout->setColumnStretch(kColumns - 1, 1);
  std::vector<Control*> controls;
  const int first = FirstColumn(group);
  for (const DesignRow& row : group.rows) {
    AddRow(row, first, *layout, box, controls);
  }
  MakeHeadingBold(box);
  auto* frame =
      group.frame.empty() ? nullptr : dynamic_cast<CaptionedControl*>(page_.FindControl(group.frame));
  if (frame != nullptr) {
    Follow(*frame, box, [box, frame] {
      if (const QString title = ToQt(frame->Caption()); box->title() != title) {
        box->setTitle(title);
      }
    });
  }
  ShowWithAny(box, frame, controls);
  return box;
}

void TabBuilder::AddRow(const DesignRow& row, int first, QGridLayout& layout, QWidget* box,
                        std::vector<Control*>& controls) {
  const int line = layout.rowCount();
  if (!row.curve.empty()) {
    controls.push_back(page_.FindControl(row.curve));
    auto* curve = new CurveView(dynamic_cast<Grid&>(*controls.back()), box);
    layout.addWidget(curve, line, first, 1, kColumns - first);
    ShowWithAny(curve, nullptr, {controls.back()});
    return;
  }
  AddLabels(row, line, layout, box, controls);
  AddField(row, {.line = line, .first = first}, layout, box, controls);
}

void TabBuilder::AddLabels(const DesignRow& row, int line, QGridLayout& layout, QWidget* box,
                           std::vector<Control*>& controls) {
  const auto add = [&](std::string_view name, int column, int width) {
    auto* control = dynamic_cast<CaptionedControl*>(page_.FindControl(name));
    if (control == nullptr) {
      return;
    }
    QWidget* label = ControlViews::CaptionView(*control, box);
    label->setMinimumWidth(Digits(label, width));
    if (column == 0) {
      label->setForegroundRole(QPalette::PlaceholderText);
    }
    const bool many_lines = row.field == "txtMemo";
    layout.addWidget(label, line, column, many_lines ? Qt::AlignTop : Qt::AlignVCenter);
    controls.push_back(control);
  };
  add(row.number, 0, kNumberColumn);
  add(row.label, 1, kCaptionColumn);
  if (FrameOf(row) != nullptr) {
    add(row.field, 1, kCaptionColumn);
  }
  add(row.unit, 3, 0);
}

Frame* TabBuilder::FrameOf(const DesignRow& row) const {
  return dynamic_cast<Frame*>(page_.FindControl(row.field));
}

std::vector<Control*> TabBuilder::ControlsOf(std::string_view names) const {
  std::vector<Control*> controls;
  for (const std::string_view name : NamesIn(names)) {
    controls.push_back(page_.FindControl(name));
  }
  return controls;
}

void TabBuilder::AddField(const DesignRow& row, Place place, QGridLayout& layout, QWidget* box,
                          std::vector<Control*>& controls) {
  Frame* frame = FrameOf(row);
  const std::vector<Control*> fields = ControlsOf(row.field);
  controls.insert(controls.end(), fields.begin(), fields.end());
  const bool alone = row.number.empty() && row.label.empty() && frame == nullptr;
  QWidget* field = nullptr;
  bool fills = false;
  if (frame != nullptr) {
    field = MakeOptions(*frame, box);
  } else if (fields.size() == 1) {
    field = views_.Make(*fields.front(), box);
    fills = SizeField(field, *fields.front());
  } else {
    field = MakeRowOf(fields, box);
  }
  const Qt::Alignment alignment = fills ? Qt::Alignment() : Qt::AlignLeft | Qt::AlignVCenter;
  // What has no unit may use its place, so that the units stand right behind their fields.
  const int begin = alone ? place.first : 2;
  const bool alone_in_line = row.unit.empty() && row.buttons.empty();
  layout.addWidget(field, place.line, begin, 1, (alone_in_line ? kColumns : 3) - begin, alignment);
  if (!row.buttons.empty()) {
    const std::vector<Control*> buttons = ControlsOf(row.buttons);
    controls.insert(controls.end(), buttons.begin(), buttons.end());
    QWidget* area = MakeRowOf(buttons, box);
    layout.addWidget(area, place.line, 4, Qt::AlignLeft | Qt::AlignVCenter);
    AssignKeys(row, *field, *area);
  }
}

void TabBuilder::AssignKeys(const DesignRow& row, QWidget& field, QWidget& buttons) {
  if (row.keys.empty()) {
    return;
  }
  auto* keys = new StepKeys(buttons);
  keys->Watch(field);
  const std::vector<std::string_view> names = NamesIn(row.buttons);
  const std::vector<std::string_view> words = NamesIn(row.keys);
  for (std::size_t place = 0; place < std::min(names.size(), words.size()); ++place) {
    const auto name = QString::fromLatin1(names[place].data(), static_cast<qsizetype>(names[place].size()));
    auto* button = buttons.findChild<QPushButton*>(name);
    if (button == nullptr) {
      continue;
    }
    button->setFixedWidth(Digits(button, kStepButton));
    keys->Watch(*button);
    if (words[place] != kNoKey) {
      keys->Assign(*button, QKeySequence(QLatin1String(words[place].data(),
                                                       static_cast<qsizetype>(words[place].size()))));
    }
  }
}

QWidget* TabBuilder::MakeRowOf(const std::vector<Control*>& controls, QWidget* parent) {
  auto* area = new QWidget(parent);
  auto* layout = new QHBoxLayout(area);
  layout->setContentsMargins(0, 0, 0, 0);
  for (Control* control : controls) {
    QWidget* widget = views_.Make(*control, area);
    SizeField(widget, *control);
    if (controls.size() == 2 && dynamic_cast<const Label*>(control) != nullptr) {
      widget->setMinimumWidth(
          Digits(widget, kFieldName));  // so that the fields of several lines stand in a column
    }
    layout->addWidget(widget);
  }
  ShowWithAny(area, nullptr, controls);
  return area;
}

QWidget* TabBuilder::MakeOptions(Frame& frame, QWidget* parent) {
  QWidget* area = views_.Make(frame, parent);
  auto* layout = new QHBoxLayout(area);
  layout->setContentsMargins(0, 0, 0, 0);
  for (const DesignOptions& options : page_.ItsDesign().options) {
    OptionGroup* group = page_.FindOptions(options.options);
    if (group == nullptr || options.frame != frame.FullName()) {
      continue;
    }
    for (int place = 0; place < group->Count(); ++place) {
      layout->addWidget(views_.Make((*group)[place], area));
    }
  }
  layout->addStretch(1);
  return area;
}

void TabBuilder::ShowWithAny(QWidget* box, Control* frame, const std::vector<Control*>& controls) {
  const auto update = [guard = QPointer<QWidget>(box), frame, controls] {
    if (!guard) {
      return;
    }
    const bool any = std::any_of(controls.begin(), controls.end(),
                                 [](const Control* control) { return control->Visible(); });
    guard->setVisible(any && (frame == nullptr || frame->Visible()));
  };
  update();
  for (Control* control : controls) {
    control->Observe(update);
  }
  if (frame != nullptr) {
    frame->Observe(update);
  }
}

}  // namespace korva
