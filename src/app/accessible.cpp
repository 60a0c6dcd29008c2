#include "app/accessible.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAccessibleWidget>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QPointer>
#include <QTabBar>
#include <QTabWidget>
#include <algorithm>
#include <utility>

#include "app/text.h"
#include "core/design_names.h"
#include "core/grid.h"

namespace korva {

namespace {

constexpr const char* kRole = "spoken role";  ///< property of a widget
constexpr QLatin1String kBetween(", ");
constexpr QLatin1String kItemWord("Item ");
constexpr std::string_view kUnitChoice =
    "cbo_unit";  ///< a box in which the unit of the field before is chosen

struct Words {
  const char16_t* japanese;
  const char16_t* english;
};
constexpr Words kBad = {u"不適当な値", u"bad value"};
constexpr Words kChanging = {u"変更中", u"being changed"};
constexpr Words kLook = {u"要確認", u"to be looked at"};
constexpr Words kWaits = {u"待機中", u"waits"};

QString In(Language language, const Words& words) {
  return QString::fromUtf16(language == Language::English ? words.english : words.japanese);
}

/// Whether a screen reader asks. Other threads than the window's ask nothing.
bool& Asked() {
  static bool asked = QAccessible::isActive();
  return asked;
}

QAccessible::Role ToldRole(const QWidget* widget) {
  return static_cast<QAccessible::Role>(widget->property(kRole).toInt());
}

/// A widget in the role that was told last.
class ToldWidget final : public QAccessibleWidget {
 public:
  explicit ToldWidget(QWidget* widget) : QAccessibleWidget(widget) {}

  [[nodiscard]] QAccessible::Role role() const override { return ToldRole(widget()); }

  [[nodiscard]] QString text(QAccessible::Text kind) const override {
    const auto* label = qobject_cast<const QLabel*>(widget());
    const bool own = kind == QAccessible::Name && label != nullptr && label->accessibleName().isEmpty();
    return own ? label->text() : QAccessibleWidget::text(kind);
  }

 protected:
  ~ToldWidget() override = default;
};

/// A box of choices under its own name: that of Qt has its entry as name, and none where the text stands in
/// no entry.
class ToldChoice final : public QAccessibleWidget {
 public:
  explicit ToldChoice(QComboBox* box) : QAccessibleWidget(box, QAccessible::ComboBox), box_(*box) {}

  [[nodiscard]] QString text(QAccessible::Text kind) const override {
    if (kind == QAccessible::Value) {
      return box_.currentIndex() < 0 ? box_.placeholderText() : box_.currentText();
    }
    return QAccessibleWidget::text(kind);
  }
  [[nodiscard]] QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.expandable = true;
    state.expanded = Open();
    state.hasPopup = true;
    return state;
  }
  [[nodiscard]] int childCount() const override { return 1; }
  [[nodiscard]] QAccessibleInterface* child(int place) const override {
    return place == 0 ? QAccessible::queryAccessibleInterface(box_.view()) : nullptr;
  }
  [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override {
    return child != nullptr && child->object() == box_.view() ? 0 : -1;
  }
  [[nodiscard]] QStringList actionNames() const override {
    return QAccessibleWidget::actionNames() << showMenuAction() << pressAction();
  }
  void doAction(const QString& action) override {
    if (action != showMenuAction() && action != pressAction()) {
      QAccessibleWidget::doAction(action);
    } else if (Open()) {
      box_.hidePopup();
    } else {
      box_.showPopup();
    }
  }

 protected:
  ~ToldChoice() override = default;

 private:
  /// An open list alone has a window of its own; to ask for it would make one.
  [[nodiscard]] bool Open() const {
    const QWidget* popup = QApplication::activePopupWidget();
    return popup != nullptr && popup->parentWidget() == &box_;
  }

  QComboBox& box_;
};

/// An option button, which Qt takes for a check box where it does not set out the other ones itself.
class ToldOption final : public QAccessibleWidget {
 public:
  explicit ToldOption(QAbstractButton* button)
      : QAccessibleWidget(button, QAccessible::RadioButton), button_(*button) {}

  [[nodiscard]] QString text(QAccessible::Text kind) const override {
    const QString told = QAccessibleWidget::text(kind);
    return kind == QAccessible::Name && told.isEmpty() ? button_.text() : told;
  }
  [[nodiscard]] QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.checkable = true;
    state.checked = button_.isChecked();
    return state;
  }
  [[nodiscard]] QStringList actionNames() const override {
    return QStringList(pressAction()) << QAccessibleWidget::actionNames();
  }
  void doAction(const QString& action) override {
    if (action == pressAction()) {
      button_.click();
    } else {
      QAccessibleWidget::doAction(action);
    }
  }

 protected:
  ~ToldOption() override = default;

 private:
  QAbstractButton& button_;
};

QAccessibleInterface* MakeToldWidget(const QString& /*class_name*/, QObject* object) {
  auto* widget = qobject_cast<QWidget*>(object);
  if (widget == nullptr || !widget->property(kRole).isValid()) {
    return nullptr;
  }
  if (auto* box = qobject_cast<QComboBox*>(widget)) {
    return new ToldChoice(box);
  }
  if (auto* button = qobject_cast<QAbstractButton*>(widget)) {
    return new ToldOption(button);
  }
  return new ToldWidget(widget);
}

/// What is read of a label, frame or button; empty while it is hidden.
QString Read(const Control* control) {
  const auto* captioned = dynamic_cast<const CaptionedControl*>(control);
  return captioned != nullptr && captioned->Visible() ? ToQt(captioned->Caption()).simplified() : QString();
}

/// The box in which a line of the page's design stands.
const DesignGroup* BoxOf(const Page& page, const DesignRow& row) {
  for (const DesignTab& tab : page.ItsDesign().tabs) {
    for (const DesignGroup& group : tab.groups) {
      if (std::any_of(group.rows.begin(), group.rows.end(),
                      [&](const DesignRow& one) { return &one == &row; })) {
        return &group;
      }
    }
  }
  return nullptr;
}

QString HeadingOf(const Page& page, const DesignRow& row) {
  const DesignGroup* const box = BoxOf(page, row);
  const QString frame = box == nullptr ? QString() : Read(page.FindControl(box->frame));
  return box == nullptr || !frame.isEmpty() ? frame : ToQt(page.Words(box->heading));
}

/// What the lines above name in the first column as theirs and those below.
QString NumberAbove(const Page& page, const DesignRow& row) {
  const DesignGroup* const box = BoxOf(page, row);
  const DesignRow* at = &row;
  while (box != nullptr && at != box->rows.data() && (--at)->item.empty()) {
    if (!at->number.empty()) {
      return Read(page.FindControl(at->number));
    }
  }
  return {};
}

/// The item of a line as its first column names it; where it has none, by its number.
QString NumberOf(const Page& page, const DesignRow& row) {
  if (!row.number.empty()) {
    return Read(page.FindControl(row.number));
  }
  if (row.item.empty()) {
    return row.label.empty() ? QString() : NumberAbove(page, row);
  }
  const String number(row.item.substr(0, row.item.find(u'_')));
  return number.find(u' ') == String::npos ? kItemWord + ToQt(number) : QString();
}

/// Captions of a control in its line: that of the line, and the label right before the control where several
/// share the place. Behind another field such a label stands alone.
QStringList CaptionsOf(const Page& page, const DesignRow& row, const Control& control) {
  const QString line = Read(page.FindControl(row.label));
  QString own;
  bool behind_field = false;
  bool other_field = false;
  for (const std::string_view name : NamesIn(row.field)) {
    const Control* at = page.FindControl(name);
    if (at == &control) {
      break;
    }
    if (dynamic_cast<const Label*>(at) != nullptr) {
      own = Read(at);
      behind_field = other_field;
    }
    other_field = true;
  }
  return behind_field ? QStringList{own} : QStringList{line, own};
}

QString Joined(QStringList parts) {
  parts.removeAll(QString());
  parts.removeDuplicates();
  return parts.join(kBetween);
}

/// What sets a control apart in its line: what is written on it, or that it is the unit's box.
QString OwnWords(const Page& page, const Control& control) {
  return control.Name() == kUnitChoice ? ToQt(page.Words(TextKey::SettingsUnit)) : Read(&control);
}

/// The control's own words, its captions, and the item of its line.
QString SpokenNameOf(const Page& page, const Control& control) {
  if (&control == &page.lst_TypeSelect) {
    return Read(&page.lbl_TypeSelect);
  }
  QStringList parts{OwnWords(page, control)};
  const DesignRow* row = page.RowOf(control);
  if (row != nullptr) {
    parts += CaptionsOf(page, *row, control);
    parts += Read(dynamic_cast<const Frame*>(page.FindControl(row->field)));
    parts += NumberOf(page, *row);
  }
  const QString name = Joined(parts);
  return name.isEmpty() && row != nullptr ? HeadingOf(page, *row) : name;
}

bool Waits(const Control& control) {
  const auto* button = dynamic_cast<const Button*>(&control);
  return button != nullptr && button->Pending();
}

QString UnitOf(const Page& page, const Control& control) {
  const DesignRow* row = page.RowOf(control);
  const bool value = dynamic_cast<const TextField*>(&control) != nullptr ||
                     dynamic_cast<const ComboBox*>(&control) != nullptr;
  return row != nullptr && value ? Read(page.FindControl(row->unit)) : QString();
}

QString SpokenDescriptionOf(const Page& page, const Control& control) {
  QStringList parts{UnitOf(page, control)};
  const auto* field = dynamic_cast<const TextField*>(&control);
  const auto add = [&](bool is_so, const QString& words) { parts += is_so ? words : QString(); };
  add(control.IsBad(), StateWords(Look::Bad, page.CaptionLanguage()));
  add(field != nullptr && field->Outside(), ToQt(page.Words(TextKey::HelpOutside)));
  add(field != nullptr && field->Marked(), LookWords(page.CaptionLanguage()));
  add(control.Differs(), ToQt(page.Words(TextKey::CompareMark)));
  add(Waits(control), In(page.CaptionLanguage(), kWaits));
  return Joined(parts);
}

/// True of a widget that a name or description is given: what shows a text of its own needs none.
bool NeedsName(const QWidget& widget) {
  return qobject_cast<const QLabel*>(&widget) == nullptr &&
         qobject_cast<const QGroupBox*>(&widget) == nullptr &&
         qobject_cast<const QTabWidget*>(&widget) == nullptr;
}

}  // namespace

QString StateWords(Look look, Language language) {
  switch (look) {
    case Look::Bad:
      return In(language, kBad);
    case Look::Selected:
      return In(language, kChanging);
    case Look::Normal:
    case Look::Grey:
    case Look::Highlight:
      break;
  }
  return {};
}

QString LookWords(Language language) { return In(language, kLook); }

void PrepareAccessibility() { QAccessible::installFactory(MakeToldWidget); }

void TellRole(QWidget* widget, QAccessible::Role role) { widget->setProperty(kRole, static_cast<int>(role)); }

void OnNewText(Control& control, QLabel* label, std::function<void(QLabel& label)> read) {
  control.Observe(
      [&control, guard = QPointer<QLabel>(label), read = std::move(read), last = QString()]() mutable {
        const QString shown = guard && control.Visible() ? guard->text() : QString();
        if (shown != std::exchange(last, shown) && !shown.isEmpty()) {
          read(*guard);
        }
      });
}

void ReadOut(Control& control, QLabel* label, QAccessible::Role role) {
  TellRole(label, role);
  OnNewText(control, label, [](QLabel& read) {
    // Linux hands on that an alert comes, other systems that it is one.
    for (const auto kind : {QAccessible::ObjectShow, QAccessible::Alert}) {
      QAccessibleEvent event(&read, kind);
      QAccessible::updateAccessibility(&event);
    }
  });
}

SpokenPage::SpokenPage(QWidget& view, const Page& page) : QObject(&view), view_(view), page_(page) {
  QAccessible::installActivationObserver(this);
  if (Asked()) {
    Listen();
  }
}

SpokenPage::~SpokenPage() { QAccessible::removeActivationObserver(this); }

void SpokenPage::accessibilityActiveChanged(bool active) {
  Asked() = active;
  if (active) {
    Listen();
  }
}

void SpokenPage::Listen() {
  due_.start(0, this);
  if (std::exchange(listens_, true)) {
    return;
  }
  for (Control* control : page_.Controls()) {
    control->Observe([guard = QPointer<SpokenPage>(this)] {
      if (guard && Asked()) {
        guard->due_.start(0, guard);
      }
    });
  }
}

void SpokenPage::timerEvent(QTimerEvent* /*event*/) {
  due_.stop();
  Tell();
}

void SpokenPage::Tell() const {
  for (QWidget* widget : view_.findChildren<QWidget*>()) {
    const Control* control = page_.FindControl(widget->objectName().toStdString());
    if (control == nullptr || !NeedsName(*widget)) {
      continue;
    }
    if (const QString name = SpokenNameOf(page_, *control); widget->accessibleName() != name) {
      widget->setAccessibleName(name);
    }
    if (const QString words = SpokenDescriptionOf(page_, *control);
        widget->accessibleDescription() != words) {
      widget->setAccessibleDescription(words);
    }
  }
  if (auto* bar = view_.findChild<QTabBar*>()) {
    TellTabs(*bar);
  }
}

void SpokenPage::TellTabs(QTabBar& bar) const {
  for (int tab = 0; tab < bar.count(); ++tab) {
    bar.setAccessibleTabName(
        tab, Joined({bar.tabText(tab),
                     page_.Tabs.TabBad(tab) ? StateWords(Look::Bad, page_.CaptionLanguage()) : QString()}));
  }
}

}  // namespace korva
