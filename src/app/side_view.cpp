#include "app/side_view.h"

#include <QCloseEvent>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/looks.h"
#include "app/text.h"

namespace korva {

namespace {

/// A text to be read, of which a part can be selected and copied, by mouse and by keyboard.
class HeadingView final : public QLabel {
 public:
  explicit HeadingView(QWidget* parent) : QLabel(parent) {
    setObjectName(QStringLiteral("heading"));
    setWordWrap(true);
    setMargin(kFocusFrame + 1);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setFocusPolicy(Qt::StrongFocus);
  }

 protected:
  void paintEvent(QPaintEvent* event) override {
    QLabel::paintEvent(event);
    if (hasFocus()) {
      QPainter painter(this);
      DrawFocusFrame(painter, rect(), palette().color(QPalette::Window));
    }
  }
};

}  // namespace

SideView::SideView(SideWindow& window, EventGate& gate, QWidget* parent)
    : QDialog(parent), window_(window), views_(gate), heading_(new HeadingView(this)) {}

QWidget* SideView::MakeButtons(const std::vector<OwnButton>& own) {
  auto* box = new QDialogButtonBox(this);
  for (Button* button : window_.Buttons()) {
    auto* widget = static_cast<QPushButton*>(views_.Make(*button, box));
    widget->setAutoDefault(false);
    box->addButton(widget, QDialogButtonBox::ActionRole);
  }
  for (const OwnButton& button : own) {
    QPushButton* widget = NewButton(button.caption, button.name);
    box->addButton(widget, QDialogButtonBox::ActionRole);
    connect(widget, &QPushButton::clicked, this, button.action);
  }
  box->addButton(NewButton(TextKey::ClosePanel, "close"), QDialogButtonBox::RejectRole);
  connect(box, &QDialogButtonBox::rejected, this, &QDialog::reject);
  return box;
}

/// Captioned when the window shows, in its language.
QPushButton* SideView::NewButton(TextKey caption, const char* name) {
  auto* button = new QPushButton(this);
  button->setObjectName(QString::fromLatin1(name));
  button->setAutoDefault(false);
  own_.emplace_back(button, caption);
  return button;
}

void SideView::Assemble(QWidget* contents, const std::vector<OwnButton>& own) {
  contents_ = contents;
  connect(this, &QDialog::rejected, this, [this] { views_.Enter([this] { window_.Close(); }); });
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(heading_);
  layout->addWidget(contents_, 1);
  layout->addWidget(MakeButtons(own));
  Follow(window_, this, [this] { Show(); });
  window_.ObserveFocus([this] {
    raise();
    activateWindow();
    PlaceOfKeyboard().setFocus();
  });
}

QWidget& SideView::PlaceOfKeyboard() const {
  QWidget* first = contents_->focusProxy() == nullptr ? contents_ : contents_->focusProxy();
  // Contents that show nothing yet have no place for the keyboard that could be seen.
  return first->focusPolicy() == Qt::NoFocus ? *own_.back().first : *first;
}

void SideView::Show() {
  if (!window_.Visible()) {
    return;
  }
  const QString title = ToQt(window_.Title());
  if (accessibleName() != title) {
    setWindowTitle(title + QStringLiteral(" - KORVA"));
    setAccessibleName(title);
    contents_->setAccessibleName(title);
    for (const auto& [button, caption] : own_) {
      button->setText(ToQt(window_.Words(caption)));
    }
  }
  const QString heading = ToQt(window_.Heading());
  const bool other_heading = heading_->text() != heading;
  if (other_heading) {
    heading_->setText(heading);
  }
  heading_->setVisible(!heading.isEmpty());
  ShowContents(other_heading);
}

void SideView::closeEvent(QCloseEvent* event) {
  event->ignore();
  reject();
}

}  // namespace korva
