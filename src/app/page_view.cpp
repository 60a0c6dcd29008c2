#include "app/page_view.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollArea>
#include <QShortcut>
#include <QSignalBlocker>
#include <QStyle>
#include <QTabBar>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

#include "app/curve_view.h"
#include "app/text.h"

namespace korva {

namespace {

// Widths in digits of the font.
constexpr int kModelList = 18;
constexpr int kNumberColumn = 8;
constexpr int kCaptionColumn = 18;
constexpr int kField = 16;
constexpr int kWideField = 26;
constexpr int kUnitBox = 9;
constexpr int kShortField = 5;
constexpr int kMemo = 60;
constexpr int kUnitColumn = 7;
constexpr int kGridLines = 9;  ///< that a grid has at least; it grows with the window

struct Shortcut {
  std::string_view control;
  const char* keys;
};

/// The captions are the system's own and have no underlined letters; the keys stand in the tooltips.
constexpr std::array kShortcuts = {
    Shortcut{"cmdUpload", "Ctrl+U"}, Shortcut{"cmdDownload", "Ctrl+D"}, Shortcut{"cmdCheck", "Ctrl+K"},
    Shortcut{"cmdOpen", "Ctrl+O"},   Shortcut{"cmdSave", "Ctrl+S"},     Shortcut{"cmdNew", "Ctrl+N"},
    Shortcut{"cmdExit", "Ctrl+Q"},
};

int Digits(const QWidget* widget, int count) {
  return widget->fontMetrics().horizontalAdvance(QLatin1Char('0')) * count;
}

std::vector<std::string_view> Names(std::string_view names) {
  std::vector<std::string_view> found;
  while (!names.empty()) {
    const std::size_t end = std::min(names.find(' '), names.size());
    found.push_back(names.substr(0, end));
    names.remove_prefix(std::min(end + 1, names.size()));
  }
  return found;
}

/// Width of a text field: of a value, of a row or column number, else of a free text.
int DigitsOfField(std::string_view name) {
  if (name == "Text" || name == "txtLnrNewValue") {
    return kField;
  }
  return name.starts_with("txtLnr") ? kShortField : kMemo;
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
  if (auto* grid = qobject_cast<QTableWidget*>(widget)) {
    grid->setMinimumHeight(grid->verticalHeader()->defaultSectionSize() * kGridLines);
    grid->setFixedWidth(Digits(grid, 2 * kWideField));
    return true;
  }
  if (dynamic_cast<const ComboBox*>(&control) != nullptr) {
    widget->setFixedWidth(Digits(widget, control.Name() == "cbo_unit" ? kUnitBox : kWideField));
  } else if (dynamic_cast<const TextField*>(&control) != nullptr) {
    widget->setFixedWidth(Digits(widget, DigitsOfField(control.Name())));
  }
  return false;
}

}  // namespace

PageView::PageView(Page& page, EventGate& gate, QWidget* parent)
    : QWidget(parent), page_(page), views_(gate) {
  // In the order in which Tab walks through them.
  QWidget* model_list = MakeModelList();
  auto* right = new QVBoxLayout;
  right->addWidget(MakeNotice());
  right->addWidget(MakeTabs(), 1);
  right->addWidget(MakeButtons());
  auto* middle = new QHBoxLayout;
  middle->addWidget(model_list);
  middle->addLayout(right, 1);
  auto* all = new QVBoxLayout(this);
  all->addLayout(middle, 1);
  all->addWidget(MakeStatus());
}

QWidget* PageView::MakeModelList() {
  auto* area = new QWidget(this);
  auto* layout = new QVBoxLayout(area);
  layout->setContentsMargins(0, 0, 0, 0);
  QWidget* caption = views_.Make(page_.lbl_TypeSelect, area);
  QWidget* list = views_.Make(page_.lst_TypeSelect, area);
  list->setFixedWidth(Digits(list, kModelList));
  layout->addWidget(caption);
  layout->addWidget(list, 1);
  return area;
}

QWidget* PageView::MakeNotice() {
  QWidget* notice = views_.Make(page_.flaMsg_CannotEnd, this);
  auto* layout = new QHBoxLayout(notice);
  auto* icon = new QLabel(notice);
  const int size = style()->pixelMetric(QStyle::PM_SmallIconSize);
  icon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(size, size));
  layout->addWidget(icon);
  layout->addWidget(views_.Make(page_.lblMsg_CannotEnd, notice), 1);
  notice->setAutoFillBackground(true);
  notice->setBackgroundRole(QPalette::ToolTipBase);
  notice->setForegroundRole(QPalette::ToolTipText);
  return notice;
}

QWidget* PageView::MakeTabs() {
  tabs_ = new QTabWidget(this);
  for (const DesignTab& design : page_.ItsDesign().tabs) {
    const int tab = tabs_->addTab(MakeTab(design), QString());
    tabs_->setTabToolTip(tab, QStringLiteral("Alt+%1").arg(tab + 1));
  }
  FollowTabs();
  connect(tabs_, &QTabWidget::currentChanged, this, [this](int tab) { page_.Tabs.SetCurrent(tab); });
  for (int tab = 0; tab < page_.Tabs.Count(); ++tab) {
    auto* shortcut = new QShortcut(QKeySequence(Qt::ALT | static_cast<Qt::Key>(Qt::Key_1 + tab)), this);
    connect(shortcut, &QShortcut::activated, this, [this, tab] { ShowTab(tab); });
  }
  return tabs_;
}

void PageView::FollowTabs() {
  Follow(page_.Tabs, tabs_, [this] {
    // While all tabs are disabled the one in front stays in front.
    const QSignalBlocker blocker(tabs_);
    for (int tab = 0; tab < page_.Tabs.Count(); ++tab) {
      if (const QString caption = ToQt(page_.Tabs.TabCaption(tab)); tabs_->tabText(tab) != caption) {
        tabs_->setTabText(tab, caption);
      }
      tabs_->setTabEnabled(tab, page_.Tabs.TabEnabled(tab));
    }
    tabs_->setCurrentIndex(page_.Tabs.Current());
  });
}

void PageView::ShowTab(int tab) {
  if (page_.Tabs.TabEnabled(tab)) {
    tabs_->setCurrentIndex(tab);
  }
}

QWidget* PageView::MakeTab(const DesignTab& tab) {
  auto* area = new QScrollArea(this);
  area->setWidgetResizable(true);
  area->setFrameShape(QFrame::NoFrame);
  auto* content = new QWidget(area);
  auto* columns = new QHBoxLayout(content);
  std::array<QVBoxLayout*, 2> stacks = {new QVBoxLayout, new QVBoxLayout};
  for (QVBoxLayout* stack : stacks) {
    columns->addLayout(stack);
  }
  for (const DesignGroup& group : tab.groups) {
    QGroupBox* box = MakeGroup(group, content);
    const bool wide = HasCurve(group);
    const bool tall = wide || box->findChild<QTableWidget*>() != nullptr;
    stacks.at(static_cast<std::size_t>(group.column))->addWidget(box, tall ? 1 : 0);
    if (wide) {
      columns->setStretch(group.column, 1);
    }
    if (columns->stretch(group.column) > 0 && !group.frame.empty()) {
      // What opens and closes under a curve keeps its place, so that the curve doesn't jump.
      QSizePolicy policy = box->sizePolicy();
      policy.setRetainSizeWhenHidden(true);
      box->setSizePolicy(policy);
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

QGroupBox* PageView::MakeGroup(const DesignGroup& group, QWidget* parent) {
  auto* box = new QGroupBox(ToQt(CaptionText(group.heading)), parent);
  auto* layout = new QGridLayout(box);
  layout->setColumnMinimumWidth(3, Digits(this, kUnitColumn));
  layout->setColumnStretch(3, 1);
  std::vector<Control*> controls;
  for (const DesignRow& row : group.rows) {
    AddRow(row, *layout, box, controls);
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

void PageView::AddRow(const DesignRow& row, QGridLayout& layout, QWidget* box,
                      std::vector<Control*>& controls) {
  const int line = layout.rowCount();
  if (!row.curve.empty()) {
    controls.push_back(page_.FindControl(row.curve));
    layout.addWidget(new CurveView(dynamic_cast<Grid&>(*controls.back()), box), line, 0, 1, 4);
    return;
  }
  AddLabels(row, line, layout, box, controls);
  AddField(row, line, layout, box, controls);
}

void PageView::AddLabels(const DesignRow& row, int line, QGridLayout& layout, QWidget* box,
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

Frame* PageView::FrameOf(const DesignRow& row) const {
  return dynamic_cast<Frame*>(page_.FindControl(row.field));
}

void PageView::AddField(const DesignRow& row, int line, QGridLayout& layout, QWidget* box,
                        std::vector<Control*>& controls) {
  Frame* frame = FrameOf(row);
  std::vector<Control*> fields;
  for (const std::string_view name : Names(row.field)) {
    fields.push_back(page_.FindControl(name));
  }
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
  const int first = alone ? 0 : 2;
  layout.addWidget(field, line, first, 1, (row.unit.empty() ? 4 : 3) - first, alignment);
}

QWidget* PageView::MakeRowOf(const std::vector<Control*>& controls, QWidget* parent) {
  auto* area = new QWidget(parent);
  auto* layout = new QHBoxLayout(area);
  layout->setContentsMargins(0, 0, 0, 0);
  for (Control* control : controls) {
    QWidget* widget = views_.Make(*control, area);
    SizeField(widget, *control);
    layout->addWidget(widget);
  }
  ShowWithAny(area, nullptr, controls);
  return area;
}

QWidget* PageView::MakeOptions(Frame& frame, QWidget* parent) {
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

void PageView::ShowWithAny(QWidget* box, Control* frame, const std::vector<Control*>& controls) {
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

QWidget* PageView::MakeButtons() {
  auto* area = new QWidget(this);
  auto* layout = new QHBoxLayout(area);
  layout->setContentsMargins(0, 0, 0, 0);
  const auto add = [&](Button& button) {
    QWidget* widget = views_.Make(button, area);
    widget->setMinimumHeight(widget->fontMetrics().lineSpacing() * 2);
    for (const Shortcut& shortcut : kShortcuts) {
      if (shortcut.control == button.Name()) {
        const QKeySequence keys(QLatin1String(shortcut.keys));
        widget->setToolTip(keys.toString(QKeySequence::NativeText));
        auto* pressed = new QShortcut(keys, this);
        connect(pressed, &QShortcut::activated, static_cast<QPushButton*>(widget), &QPushButton::click);
      }
    }
    layout->addWidget(widget);
  };
  add(page_.cmdUpload);
  add(page_.cmdDownload);
  add(page_.cmdCheck);
  layout->addSpacing(Digits(this, 2));
  add(page_.cmdOpen);
  add(page_.cmdSave);
  add(page_.cmdNew);
  layout->addStretch(1);
  add(page_.cmdExit);
  return area;
}

QWidget* PageView::MakeStatus() {
  auto* area = new QWidget(this);
  auto* layout = new QHBoxLayout(area);
  layout->setContentsMargins(0, 0, 0, 0);
  // A part of the page may have a bar and a notice of its own.
  const auto add = [&](const char* name, int stretch) {
    if (Control* control = page_.FindControl(name); control != nullptr) {
      layout->addWidget(views_.Make(*control, area), stretch);
    }
  };
  add("ProgressBar", 2);
  add("LnrProgressBar", 1);
  add("lbl_Waitfor", 0);
  add("lbl_LnrUnsaved", 0);
  add("lblWaiting", 0);
  add("lblNotices", 1);
  layout->addStretch(1);
  layout->addWidget(views_.Make(page_.lbl_FrmVersion, area));
  return area;
}

void PageView::SetPortTips(const std::function<QString(int)>& device_name) {
  for (int place = 0; place < page_.OptCom.Count(); ++place) {
    const QString name = QString::fromStdString(page_.OptCom[place].FullName());
    if (auto* widget = findChild<QWidget*>(name)) {
      widget->setToolTip(device_name(place + 1));
    }
  }
}

}  // namespace korva
