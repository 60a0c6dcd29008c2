#include "app/page_view.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QResizeEvent>
#include <QShortcut>
#include <QSignalBlocker>
#include <QStyle>
#include <QTabBar>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

#include "app/accessible.h"
#include "app/focus_keeper.h"
#include "app/help_tips.h"
#include "app/list_view.h"
#include "app/looks.h"
#include "app/model_finder.h"
#include "app/tab_builder.h"
#include "app/text.h"
#include "app/wrap_layout.h"
#include "files/model_kind.h"

namespace korva {

namespace {

constexpr int kModelList = 18;  ///< width in digits of the font

constexpr QRgb kAlarmColour = 0xFFB71C1C;  ///< a red that white text can be read on

struct Shortcut {
  std::string_view control;
  const char* keys;
};

/// The captions are the system's own and have no underlined letters; the keys stand in the tooltips.
constexpr std::array kShortcuts = {
    Shortcut{"cmdUpload", "Ctrl+U"},     Shortcut{"cmdDownload", "Ctrl+D"}, Shortcut{"cmdCheck", "Ctrl+K"},
    Shortcut{"cmdOpen", "Ctrl+O"},       Shortcut{"cmdSave", "Ctrl+S"},     Shortcut{"cmdNew", "Ctrl+N"},
    Shortcut{"cmdExit", "Ctrl+Q"},       Shortcut{"cmdUndo", "Ctrl+Z"},     Shortcut{"cmdRedo", "Ctrl+Y"},
    Shortcut{"cmdRedo", "Ctrl+Shift+Z"},
};

/// Holds a text that changes every second while an operation waits. Since the place stays as it is, the text
/// alone is painted then, and the page isn't laid out anew.
class TextPlace : public QWidget {
 public:
  TextPlace(QWidget* text, QWidget* parent) : QWidget(parent), text_(text) {
    text_->setParent(this);
    setFixedHeight(text_->fontMetrics().height());
  }

 protected:
  void resizeEvent(QResizeEvent* /*event*/) override { text_->setGeometry(rect()); }

 private:
  QWidget* text_;
};

}  // namespace

PageView::PageView(Page& page, EventGate& gate, QWidget* parent)
    : QWidget(parent), page_(page), views_(gate) {
  // In the order in which Tab walks through them.
  QWidget* model_list = MakeModelList();
  auto* right = new QVBoxLayout;
  right->addWidget(MakeBanner());
  right->addWidget(MakeNotice());
  right->addWidget(MakeHeldClose());
  right->addWidget(MakeTabs(), 1);
  right->addWidget(MakeButtons());
  auto* middle = new QHBoxLayout;
  middle->addWidget(model_list);
  middle->addLayout(right, 1);
  auto* all = new QVBoxLayout(this);
  all->addLayout(middle, 1);
  all->addWidget(MakeStatus());
  setTabOrder(finder_, findChild<ListView*>());  // the list stands below
  new FocusKeeper(*this);
  new SpokenPage(*this, page_);
  new HelpTips(page_, *this);
}

QWidget* PageView::MakeModelList() {
  auto* area = new QWidget(this);
  auto* layout = new QVBoxLayout(area);
  layout->setContentsMargins(0, 0, 0, 0);
  QWidget* caption = views_.Make(page_.lbl_TypeSelect, area);
  auto* list = static_cast<ListView*>(views_.Make(page_.lst_TypeSelect, area));
  list->setFixedWidth(Digits(list, kModelList));
  list->Describe([this](int row) { return ToQt(KindOfModel(page_, row, page_.CaptionLanguage())); });
  finder_ = new ModelFinder(*list, ToQt(page_.Words(TextKey::FindModel)), area);
  finder_->setFixedWidth(list->width());
  layout->addWidget(caption);
  layout->addWidget(finder_);
  layout->addWidget(list, 1);
  return area;
}

QWidget* PageView::MakeBanner() {
  auto* banner = static_cast<QLabel*>(views_.Make(page_.lblForced, this));
  QPalette palette = banner->palette();
  palette.setColor(QPalette::Window, kAlarmColour);
  palette.setColor(QPalette::WindowText, Qt::white);
  banner->setPalette(palette);
  banner->setAutoFillBackground(true);
  banner->setAlignment(Qt::AlignCenter);
  banner->setMargin(Digits(banner, 1));
  QFont font = banner->font();
  font.setBold(true);
  banner->setFont(font);
  ReadOut(page_.lblForced, banner, QAccessible::AlertMessage);
  return banner;
}

QWidget* PageView::MakeHeldClose() {
  auto* text = static_cast<QLabel*>(views_.Make(page_.lblHeldClose, this));
  text->setWordWrap(true);
  text->setMargin(Digits(text, 1));
  text->setAutoFillBackground(true);
  text->setBackgroundRole(QPalette::ToolTipBase);
  text->setForegroundRole(QPalette::ToolTipText);
  ReadOut(page_.lblHeldClose, text, QAccessible::AlertMessage);
  return text;
}

QWidget* PageView::MakeNotice() {
  QWidget* notice = views_.Make(page_.flaMsg_CannotEnd, this);
  auto* layout = new QHBoxLayout(notice);
  auto* icon = new QLabel(notice);
  const int size = style()->pixelMetric(QStyle::PM_SmallIconSize);
  icon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(size, size));
  layout->addWidget(icon);
  auto* text = static_cast<QLabel*>(views_.Make(page_.lblMsg_CannotEnd, notice));
  ReadOut(page_.flaMsg_CannotEnd, text, QAccessible::AlertMessage);
  layout->addWidget(text, 1);
  notice->setAutoFillBackground(true);
  notice->setBackgroundRole(QPalette::ToolTipBase);
  notice->setForegroundRole(QPalette::ToolTipText);
  return notice;
}

QWidget* PageView::MakeTabs() {
  tabs_ = new QTabWidget(this);
  TabBuilder builder(page_, views_);
  for (const DesignTab& design : page_.ItsDesign().tabs) {
    const int tab = tabs_->addTab(builder.Make(design, tabs_), QString());
    tabs_->setTabToolTip(tab, QStringLiteral("Alt+%1").arg(tab + 1));
  }
  FollowTabs();
  connect(tabs_, &QTabWidget::currentChanged, this,
          [this](int tab) { views_.Enter([&] { page_.Tabs.UserClicks(tab); }); });
  // The bar tells a press before the tab comes to the front, which is told above.
  connect(tabs_, &QTabWidget::tabBarClicked, this, [this](int tab) {
    if (tab == page_.Tabs.Current() && page_.Tabs.TabEnabled(tab)) {
      views_.Enter([&] { page_.Tabs.UserClicks(tab); });
    }
  });
  for (int tab = 0; tab < page_.Tabs.Count(); ++tab) {
    auto* shortcut = new QShortcut(QKeySequence(Qt::ALT | static_cast<Qt::Key>(Qt::Key_1 + tab)), this);
    connect(shortcut, &QShortcut::activated, this, [this, tab] { ShowTab(tab); });
  }
  return tabs_;
}

void PageView::FollowTabs() {
  Follow(page_.Tabs, tabs_, [this] {
    const QSignalBlocker blocker(tabs_);
    const int front = tabs_->currentIndex();
    // Of a tab in front that is disabled the bar would bring another one to the front.
    QSignalBlocker bar_blocker(tabs_->tabBar());
    for (int tab = 0; tab < page_.Tabs.Count(); ++tab) {
      if (const QString caption = ToQt(page_.Tabs.TabCaption(tab)); tabs_->tabText(tab) != caption) {
        tabs_->setTabText(tab, caption);
        tabs_->widget(tab)->setAccessibleName(caption);
      }
      tabs_->setTabEnabled(tab, page_.Tabs.TabEnabled(tab));
      ShowBadTab(tab, page_.Tabs.TabBad(tab));
    }
    tabs_->tabBar()->setCurrentIndex(front);
    bar_blocker.unblock();
    tabs_->setCurrentIndex(page_.Tabs.Current());
  });
}

void PageView::ShowBadTab(int tab, bool bad) {
  if (bad == tabs_->tabIcon(tab).isNull()) {
    tabs_->setTabIcon(tab, bad ? style()->standardIcon(QStyle::SP_MessageBoxWarning) : QIcon());
  }
}

void PageView::ShowTab(int tab) {
  if (page_.Tabs.TabEnabled(tab)) {
    tabs_->setCurrentIndex(tab);
  }
}

QWidget* PageView::MakeButtons() {
  auto* area = new QWidget(this);
  auto* layout = new WrapLayout(area);
  for (Button* button : {&page_.cmdUpload, &page_.cmdDownload, &page_.cmdCheck, &page_.cmdOpen,
                         &page_.cmdSave, &page_.cmdNew, &page_.cmdExit}) {
    QWidget* widget = views_.Make(*button, area);
    widget->setMinimumHeight(widget->fontMetrics().lineSpacing() * 2);
    AddShortcut(*button, *static_cast<QPushButton*>(widget));
    layout->addWidget(widget);
  }
  return area;
}

void PageView::AddShortcut(const Button& button, QPushButton& widget) {
  QStringList told;
  for (const Shortcut& shortcut : kShortcuts) {
    if (shortcut.control == button.Name()) {
      const QKeySequence keys(QLatin1String(shortcut.keys));
      told += keys.toString(QKeySequence::NativeText);
      connect(new QShortcut(keys, this), &QShortcut::activated, &widget, &QPushButton::click);
    }
  }
  widget.setToolTip(told.join(QStringLiteral(" / ")));
}

QWidget* PageView::MakeStatus() {
  auto* area = new QWidget(this);
  auto* layout = new QGridLayout(area);
  layout->setContentsMargins(0, 0, 0, 0);
  // A part of the page may have a bar and a notice of its own.
  const auto make = [&](const char* name) -> QWidget* {
    Control* control = page_.FindControl(name);
    return control == nullptr ? nullptr : views_.Make(*control, area);
  };
  int column = 0;
  for (const char* name : {"ProgressBar", "LnrProgressBar", "lbl_Waitfor"}) {
    if (QWidget* widget = make(name)) {
      layout->addWidget(widget, 0, column);
    }
    ++column;
  }
  QWidget* waiting = make("lblWaiting");
  TellRole(waiting, QAccessible::StatusBar);  // not read out: it changes each second
  layout->addWidget(new TextPlace(waiting, area), 0, column);
  // The bars keep their width as long as there is room.
  layout->setColumnStretch(0, 1);
  layout->setColumnStretch(1, 1);
  layout->setColumnStretch(column++, 100);
  layout->setVerticalSpacing(layout->verticalSpacing() / 2);
  layout->addWidget(MakeStatusButtons(area), 1, 0, 1, column);
  int line = 2;
  for (const char* name : {"lbl_LnrUnsaved", "lblNotices"}) {
    if (auto* text = qobject_cast<QLabel*>(make(name))) {
      text->setWordWrap(true);
      ReadOut(*page_.FindControl(name), text, QAccessible::Notification);
      layout->addWidget(text, line++, 0, 1, column);
    }
  }
  return area;
}

void PageView::TakeSearch(const PageView& former) { finder_->setText(former.finder_->text()); }

QWidget* PageView::MakeStatusButtons(QWidget* parent) {
  auto* area = new QWidget(parent);
  auto* layout = new WrapLayout(area);
  for (Button* button : page_.StatusButtons()) {
    QWidget* widget = views_.Make(*button, area);
    widget->setMaximumHeight(widget->fontMetrics().lineSpacing() * 5 / 4);
    AddShortcut(*button, *static_cast<QPushButton*>(widget));
    layout->addWidget(widget);
  }
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
