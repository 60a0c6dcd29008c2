#include "app/control_views.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QSignalBlocker>
#include <QWheelEvent>
#include <cmath>
#include <optional>
#include <utility>

#include "app/accessible.h"
#include "app/field_view.h"
#include "app/grid_view.h"
#include "app/list_view.h"
#include "app/looks.h"
#include "app/memo_view.h"
#include "app/picture_view.h"
#include "app/text.h"
#include "core/texts.h"
#include "print/contrast.h"

namespace korva {

namespace {

/// Hands the keys that a field handles to its control.
class KeyFilter : public QObject {
 public:
  KeyFilter(QObject* parent, std::function<bool(Key)> press) : QObject(parent), press_(std::move(press)) {}

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::KeyPress) {
      const auto key = KeyOf(static_cast<QKeyEvent*>(event)->key());
      if (key && press_(*key)) {
        return true;
      }
    }
    return QObject::eventFilter(watched, event);
  }

 private:
  static std::optional<Key> KeyOf(int key) {
    switch (key) {
      case Qt::Key_Return:
      case Qt::Key_Enter:
        return Key::Enter;
      case Qt::Key_Escape:
        return Key::Escape;
      case Qt::Key_Up:
        return Key::Up;
      case Qt::Key_Down:
        return Key::Down;
      case Qt::Key_Left:
        return Key::Left;
      case Qt::Key_Right:
        return Key::Right;
      default:
        return std::nullopt;
    }
  }

  std::function<bool(Key)> press_;
};

/// A closed box takes no wheel: who scrolls past it would choose something, and clear values that depend on
/// it. The wheel scrolls what the box stands in.
class ChoiceBox : public QComboBox {
 public:
  explicit ChoiceBox(QWidget* parent) : QComboBox(parent) { setFocusPolicy(Qt::StrongFocus); }

 protected:
  void wheelEvent(QWheelEvent* event) override { event->ignore(); }
};

void ShowLook(QWidget* widget, Look look, bool dimmed = false) {
  if (look == Look::Normal && !dimmed) {
    ShowColours(widget, {});
    return;
  }
  ShowColours(widget, [look, dimmed](const QPalette& system) {
    const QPalette palette = PaletteOf(look, system);
    return dimmed ? Dimmed(palette) : palette;
  });
}

/// A list that can't be chosen from is shown disabled; a locked field can still be read and copied from.
bool IsLockedList(const Control& control) {
  return dynamic_cast<const ComboBox*>(&control) != nullptr && control.Locked();
}

/// Puts the keyboard's focus on a widget, and its tab's area where it can be seen. A text is selected, so
/// that typing replaces it.
void TakeFocus(QWidget& widget) {
  widget.setFocus();
  if (auto* field = qobject_cast<QLineEdit*>(&widget)) {
    field->selectAll();
  }
  for (QWidget* at = widget.parentWidget(); at != nullptr; at = at->parentWidget()) {
    if (auto* area = qobject_cast<QScrollArea*>(at)) {
      area->ensureWidgetVisible(&widget);
    }
  }
}

// Widths of a progress bar in digits of the font.
constexpr int kBar = 26;
constexpr int kShortestBar = 14;

QString ShownBreaks(const String& text) { return ToQt(text).remove(QLatin1Char('\r')); }

/// A bar at the left edge of a widget, for a value that differs from what the page was compared with.
class DifferenceMark final : public QWidget {
 public:
  explicit DifferenceMark(QWidget* marked) : QWidget(marked) {
    setObjectName(QStringLiteral("difference"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Window);  // not the field's
    marked->installEventFilter(this);
    TakeColour();
    Place();
  }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Resize) {
      Place();
    } else if (event->type() == QEvent::PaletteChange) {
      TakeColour();
    }
    return QWidget::eventFilter(watched, event);
  }

 private:
  void Place() { setGeometry(0, 0, kDifferenceMark, parentWidget()->height()); }
  /// One that is seen on the marked widget in its present look.
  void TakeColour() {
    QPalette palette;
    palette.setColor(QPalette::Window, MarkColour(parentWidget()->palette().color(QPalette::Base)));
    setPalette(palette);
  }
};

/// Shows or takes away the mark of a difference, which is made when it is needed.
void ShowDifference(QWidget* widget, bool differs) {
  auto* mark = widget->findChild<QWidget*>(QStringLiteral("difference"), Qt::FindDirectChildrenOnly);
  if (differs && mark == nullptr) {
    mark = new DifferenceMark(widget);
  }
  if (mark != nullptr) {
    mark->setVisible(differs);
  }
}

}  // namespace

void Follow(Control& control, QWidget* widget, std::function<void()> update) {
  widget->setObjectName(QString::fromStdString(control.FullName()));
  auto all = [&control, widget, update = std::move(update), differs = false]() mutable {
    widget->setVisible(control.Visible());
    widget->setEnabled(control.Enabled() && !IsLockedList(control));
    update();
    if (differs != control.Differs()) {
      differs = control.Differs();
      ShowDifference(widget, differs);
    }
  };
  all();
  control.Observe([guard = QPointer<QWidget>(widget), all = std::move(all)]() mutable {
    if (guard) {
      all();
    }
  });
  control.ObserveFocus([guard = QPointer<QWidget>(widget)] {
    if (guard) {
      TakeFocus(*guard);
    }
  });
}

QWidget* ControlViews::Make(Control& control, QWidget* parent) {
  if (auto* button = dynamic_cast<Button*>(&control)) {
    return MakeButton(*button, parent);
  }
  if (auto* option = dynamic_cast<OptionButton*>(&control)) {
    return MakeOption(*option, parent);
  }
  if (auto* field = dynamic_cast<TextField*>(&control)) {
    return field->Multiline() ? MakeMemo(*field, parent) : MakeField(*field, parent);
  }
  if (auto* combo = dynamic_cast<ComboBox*>(&control)) {
    return MakeCombo(*combo, parent);
  }
  if (auto* list = dynamic_cast<ListBox*>(&control)) {
    return MakeList(*list, parent);
  }
  if (auto* grid = dynamic_cast<Grid*>(&control)) {
    return MakeGrid(*grid, parent);
  }
  if (auto* bar = dynamic_cast<ProgressBar*>(&control)) {
    return MakeBar(*bar, parent);
  }
  if (auto* picture = dynamic_cast<Picture*>(&control)) {
    return MakePicture(*picture, parent);
  }
  if (auto* label = dynamic_cast<Label*>(&control)) {
    return CaptionView(*label, parent);
  }
  auto* area = new QWidget(parent);
  TellRole(area, QAccessible::Grouping);
  Follow(control, area, [] {});
  return area;
}

QWidget* ControlViews::CaptionView(CaptionedControl& control, QWidget* parent) {
  auto* label = new QLabel(parent);
  TellRole(label, QAccessible::StaticText);
  Follow(control, label, [&control, label, look = Look::Normal]() mutable {
    label->setText(ShownBreaks(control.Caption()));
    if (look != control.ShownLook()) {
      look = control.ShownLook();
      label->setAutoFillBackground(look != Look::Normal);
      ShowLook(label, look);
    }
  });
  return label;
}

QWidget* ControlViews::MakeButton(Button& button, QWidget* parent) {
  auto* widget = new QPushButton(parent);
  Follow(button, widget, [&button, widget, look = Look::Normal]() mutable {
    widget->setText(ToQt(button.Caption()));
    if (look != button.ShownLook()) {
      look = button.ShownLook();
      ShowLook(widget, look);
      QFont font = widget->font();
      font.setBold(button.Pending());
      widget->setFont(font);
    }
  });
  QObject::connect(widget, &QPushButton::clicked, widget,
                   [this, &button] { Enter([&button] { button.Click(); }); });
  return widget;
}

QWidget* ControlViews::MakeOption(OptionButton& option, QWidget* parent) {
  auto* widget = new QRadioButton(parent);
  TellRole(widget, QAccessible::RadioButton);
  widget->setAutoExclusive(false);  // the control's group decides which button is on
  Follow(option, widget, [&option, widget] {
    widget->setText(ToQt(option.Caption()));
    const QSignalBlocker blocker(widget);
    widget->setChecked(option.Value());
  });
  QObject::connect(widget, &QRadioButton::clicked, widget, [this, &option, widget] {
    {
      const QSignalBlocker blocker(widget);
      widget->setChecked(option.Value());
    }
    Enter([&option] { option.Click(); });
  });
  return widget;
}

QWidget* ControlViews::MakeField(TextField& field, QWidget* parent) {
  auto* widget = new FieldView(parent);
  Follow(field, widget, [&field, widget, look = Look::Normal, dimmed = false]() mutable {
    const QString text = ToQt(field.Text());
    if (widget->text() != text) {
      const QSignalBlocker blocker(widget);
      widget->setText(text);
    }
    widget->setReadOnly(field.Locked());
    widget->setInputMethodHints(field.Numeric() ? Qt::ImhPreferNumbers | Qt::ImhPreferLatin : Qt::ImhNone);
    widget->ShowMark(field.Marked());
    widget->ShowOutside(field.Outside());
    widget->setAlignment((field.Numeric() ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    if (look != field.ShownLook() || dimmed != field.Dimmed()) {
      look = field.ShownLook();
      dimmed = field.Dimmed();
      ShowLook(widget, look, dimmed);
    }
  });
  widget->OnPaste = [this, &field](const QString& text) {
    bool taken = false;
    Enter([&] { taken = field.UserPastes(FromQt(text)); });
    return taken;
  };
  QObject::connect(widget, &QLineEdit::textEdited, widget, [this, &field, widget](const QString& edited) {
    const QString text = widget->Typing() ? edited : ToQt(field.AsPasted(FromQt(edited)));
    if (text != edited) {
      widget->Amend(text);
    }
    Enter([&] { field.UserTypes(FromQt(text)); });
  });
  widget->installEventFilter(new KeyFilter(widget, [this, &field](Key key) {
    bool taken = false;
    Enter([&] { taken = field.UserPresses(key); });
    return taken;
  }));
  return widget;
}

QWidget* ControlViews::MakeMemo(TextField& field, QWidget* parent) {
  auto* widget = new MemoView(parent);
  widget->setTabChangesFocus(true);
  Follow(field, widget, [&field, widget] {
    const QString text = ShownBreaks(field.Text());
    if (widget->ShownText() != text) {
      const QSignalBlocker blocker(widget);
      if (widget->hasFocus()) {
        widget->Amend(text);
      } else {
        widget->ShowText(text);
      }
    }
    widget->Lock(field.Locked());
  });
  QObject::connect(widget, &QPlainTextEdit::textChanged, widget, [this, &field, widget] {
    const String text = FromQt(widget->ShownText().replace(QLatin1Char('\n'), QLatin1String("\r\n")));
    Enter([&] { field.UserTypes(text); });
  });
  return widget;
}

QWidget* ControlViews::MakeCombo(ComboBox& combo, QWidget* parent) {
  auto* widget = new ChoiceBox(parent);
  TellRole(widget, QAccessible::ComboBox);
  Follow(combo, widget, [&combo, widget, look = Look::Normal]() mutable {
    const QSignalBlocker blocker(widget);
    QStringList entries;
    for (const String& entry : combo.Entries()) {
      entries += ToQt(entry);
    }
    QStringList shown;
    for (int index = 0; index < widget->count(); ++index) {
      shown += widget->itemText(index);
    }
    if (entries != shown) {
      widget->clear();
      widget->addItems(entries);
    }
    // A text that stands in no entry shows all the same.
    widget->setPlaceholderText(ToQt(combo.Text()));
    widget->setCurrentIndex(combo.ListIndex());
    if (look != combo.ShownLook()) {
      look = combo.ShownLook();
      ShowLook(widget, look);
    }
  });
  QObject::connect(widget, &QComboBox::activated, widget, [this, &combo](int position) {
    Enter([&combo, position] { combo.UserPicks(position); });
  });
  return widget;
}

QWidget* ControlViews::MakeList(ListBox& list, QWidget* parent) {
  const auto pick = [this, &list](int position) { Enter([&list, position] { list.UserPicks(position); }); };
  auto* widget = new ListView(list, pick, parent);
  Follow(list, widget, [widget] { widget->Show(); });
  return widget;
}

QWidget* ControlViews::MakeGrid(Grid& grid, QWidget* parent) {
  const auto click = [this, &grid](int row, int column) {
    Enter([&grid, row, column] { grid.UserClicks(row, column); });
  };
  const auto paste = [this, &grid](int row, int column, const QString& text) {
    Enter([&grid, row, column, &text] { grid.UserPastes(row, column, FromQt(text)); });
  };
  auto* widget = new GridView(grid, {.click = click, .paste = paste}, parent);
  Follow(grid, widget, [widget] { widget->Show(); });
  return widget;
}

QWidget* ControlViews::MakeBar(ProgressBar& bar, QWidget* parent) {
  auto* widget = new QProgressBar(parent);
  widget->setRange(0, 100);
  widget->setMinimumWidth(Digits(widget, kShortestBar));
  widget->setMaximumWidth(Digits(widget, kBar));
  Follow(bar, widget, [&bar, widget, shown_at_rest = std::optional<bool>()]() mutable {
    const bool at_rest = bar.Value() <= 0;
    widget->setFormat(ToQt(bar.Caption()) + (at_rest ? QString() : QStringLiteral("  %p%")));
    widget->setValue(static_cast<int>(std::lround(bar.Value())));
    if (shown_at_rest != at_rest) {
      shown_at_rest = at_rest;
      ShowColours(widget, at_rest ? PaletteAtRest : PaletteAtWork);
    }
  });
  return widget;
}

QWidget* ControlViews::MakePicture(Picture& picture, QWidget* parent) {
  auto* widget = new PictureView(picture, parent);
  Follow(picture, widget, [widget] { widget->Show(); });
  return widget;
}

}  // namespace korva
