#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/event_loop.h"
#include "platform/string.h"

namespace korva {

/// How a field, cell or label is coloured, each a pair of system colours:
/// Normal: window text on window (labels: on button face). Grey: button face, can't be changed or at rest.
/// Bad: inverted, window on desktop. Highlight: tool-tip background, a value under update or a press that
/// waits.
/// Selected: window on window text, a grid cell under edit.
enum class Look { Normal, Grey, Bad, Highlight, Selected };

/// What keeps a user from acting on a control; `None` when nothing does.
enum class Refusal { None, Hidden, Disabled, Locked };

class Control;

/// Is told what a user does with a control: before the control takes it, and when all that comes of it is
/// done. Actions may begin inside one another, since the waits of an operation let the user's actions in. One
/// that ends the program has no end.
class UserActions {
 public:
  UserActions() = default;
  UserActions(const UserActions&) = delete;
  UserActions& operator=(const UserActions&) = delete;
  virtual ~UserActions() = default;
  virtual void ActionBegins(const Control& control) = 0;
  virtual void ActionEnded(const Control& control) = 0;
};

/// What every control is: a value with a name, shown or hidden, enabled or not, and observers of its changes.
/// Nothing here knows a toolkit; a window draws it, a script reads it, a test asserts on it.
class Control {
 public:
  /// `name` is the one that scripts and the design use; `index` is the place in the control array of that
  /// name, -1 for a single control.
  explicit Control(std::string_view name, int index = -1);
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  virtual ~Control() = default;

  /// "cmdUpload" or, in an array, "Text(3)".
  [[nodiscard]] std::string FullName() const;
  [[nodiscard]] const std::string& Name() const { return name_; }
  [[nodiscard]] int Index() const { return index_; }

  [[nodiscard]] bool Visible() const { return visible_; }
  void SetVisible(bool visible) { Assign(visible_, visible); }
  [[nodiscard]] bool Enabled() const { return enabled_; }
  void SetEnabled(bool enabled) { Assign(enabled_, enabled); }

  /// The control that this one stands in (an option button in its frame); nullptr on the page itself. What
  /// hides or disables the container does so to what stands in it.
  void PutInto(const Control* container) { container_ = container; }
  [[nodiscard]] const Control* Container() const { return container_; }

  /// Why the screen would not let the user act on the control, its own state and its containers' considered.
  [[nodiscard]] virtual Refusal Refused() const;

  [[nodiscard]] virtual bool Locked() const { return false; }
  [[nodiscard]] virtual Look ShownLook() const { return Look::Normal; }
  /// True while something on it is marked as a bad value.
  [[nodiscard]] virtual bool IsBad() const { return ShownLook() == Look::Bad; }
  /// True for a value that differs from what the page was compared with.
  [[nodiscard]] bool Differs() const { return differs_; }
  void SetDiffers(bool differs) { Assign(differs_, differs); }
  /// What the screen tells about the control while the pointer rests on it; empty for nothing. It is asked
  /// for only then, so that what it tells is never old. Unset: nothing.
  std::function<String()> Help;
  /// What a user reads on it: text, caption or the chosen entry.
  [[nodiscard]] virtual String ShownText() const { return {}; }

  /// `action` is called after each change of anything that a user could see of the control.
  void Observe(std::function<void()> action) { observers_.push_back(std::move(action)); }

  /// `actions` is told of the user's typing, choices and presses here, of tabs and lists but not. It outlives
  /// the control's use.
  void FollowUser(UserActions& actions) { user_actions_ = &actions; }

  /// Puts the keyboard focus on the control, as far as a window shows it.
  void SetFocus();
  void ObserveFocus(std::function<void()> action) { focus_observers_.push_back(std::move(action)); }

 protected:
  /// Sets a member and tells the observers if it changed; true when it did.
  template <typename T>
  bool Assign(T& member, const T& value) {
    if (member == value) {
      return false;
    }
    member = value;
    Changed();
    return true;
  }
  void Changed() const;
  /// Does what the user did.
  template <typename Action>
  void ByUser(const Action& action) const {
    if (user_actions_ != nullptr) {
      user_actions_->ActionBegins(*this);
    }
    action();
    if (user_actions_ != nullptr) {
      user_actions_->ActionEnded(*this);
    }
  }

 private:
  std::string name_;
  int index_;
  bool visible_ = true;
  bool enabled_ = true;
  bool differs_ = false;
  const Control* container_ = nullptr;
  UserActions* user_actions_ = nullptr;
  std::vector<std::function<void()>> observers_;
  std::vector<std::function<void()>> focus_observers_;
};

/// A control with a caption.
class CaptionedControl : public Control {
 public:
  using Control::Control;
  [[nodiscard]] const String& Caption() const { return caption_; }
  void SetCaption(const String& caption) { Assign(caption_, caption); }
  [[nodiscard]] String ShownText() const override { return caption_; }

 private:
  String caption_;
};

class Button : public CaptionedControl {
 public:
  using CaptionedControl::CaptionedControl;
  std::function<void()> OnClick;
  /// The user's press. The caller enters through the gate and has asked Refused() first.
  void Click() const {
    if (OnClick) {
      ByUser(OnClick);
    }
  }
  /// True while what a press asked for waits to be carried out.
  [[nodiscard]] bool Pending() const { return pending_; }
  void SetPending(bool pending) { Assign(pending_, pending); }
  [[nodiscard]] Look ShownLook() const override { return pending_ ? Look::Highlight : Look::Normal; }

 private:
  bool pending_ = false;
};

class Label : public CaptionedControl {
 public:
  using CaptionedControl::CaptionedControl;
  void SetLook(Look look) { Assign(look_, look); }
  [[nodiscard]] Look ShownLook() const override { return look_; }

 private:
  Look look_ = Look::Normal;
};

class Frame : public CaptionedControl {
 public:
  using CaptionedControl::CaptionedControl;
};

enum class Key { Enter, Escape, Up, Down, Left, Right };

/// A text field. `OnChange` is raised when its text becomes another one, by the user or by the program.
class TextField : public Control {
 public:
  using Control::Control;
  std::function<void()> OnChange;
  /// A key that the field handles itself; false when it means nothing to it.
  std::function<bool(Key)> OnKey;
  /// A pasted text that goes elsewhere; false when the field is to take it.
  std::function<bool(const String&)> OnPaste;

  [[nodiscard]] const String& Text() const { return text_; }
  void SetText(const String& text);
  /// Shows the text without raising anything: what is so already.
  void ShowText(const String& text) { Assign(text_, text); }
  [[nodiscard]] bool Locked() const override { return locked_; }
  void SetLocked(bool locked) { Assign(locked_, locked); }
  void SetLook(Look look) { Assign(look_, look); }
  [[nodiscard]] Look ShownLook() const override { return look_; }
  [[nodiscard]] String ShownText() const override { return text_; }
  [[nodiscard]] Refusal Refused() const override;
  /// True for a value that is not read at present, though fields beside it are live.
  [[nodiscard]] bool Dimmed() const { return dimmed_; }
  void SetDimmed(bool dimmed) { Assign(dimmed_, dimmed); }

  /// True for a field of several lines (the memo); a line break is CR LF.
  [[nodiscard]] bool Multiline() const { return multiline_; }
  void SetMultiline(bool multiline) { multiline_ = multiline; }

  /// True for a field that is meant for a number, which stands right-aligned.
  [[nodiscard]] bool Numeric() const { return numeric_; }
  void SetNumeric(bool numeric) { Assign(numeric_, numeric); }
  /// True for a text that the user should look at, though it is taken as it stands.
  [[nodiscard]] bool Marked() const { return marked_; }
  void SetMarked(bool marked) { Assign(marked_, marked); }
  /// True for a number that lies outside its limits. The check has not judged it yet.
  [[nodiscard]] bool Outside() const { return outside_; }
  void SetOutside(bool outside) { Assign(outside_, outside); }

  /// The user's typing: the whole new text.
  void UserTypes(const String& text) {
    ByUser([&] { SetText(text); });
  }
  /// True when what the user pasted is taken; else the field takes it.
  bool UserPastes(const String& text) const { return Takes(OnPaste, text); }
  /// What becomes of a text that the user pasted: a number in full-width characters is meant as a number.
  [[nodiscard]] String AsPasted(const String& text) const;
  /// True when the key was taken; else it does what it does in any field.
  bool UserPresses(Key key) const { return Takes(OnKey, key); }

 private:
  template <typename Taker, typename What>
  bool Takes(const Taker& taker, const What& what) const {
    bool taken = false;
    if (taker) {
      ByUser([&] { taken = taker(what); });
    }
    return taken;
  }

  String text_;
  bool locked_ = false;
  bool dimmed_ = false;
  bool multiline_ = false;
  bool numeric_ = false;
  bool marked_ = false;
  bool outside_ = false;
  Look look_ = Look::Normal;
};

/// A combo box: a list and a text that need not stand in it. The program's setting of the text raises
/// nothing; `OnClick` is the user's choice of an entry.
class ComboBox : public Control {
 public:
  using Control::Control;
  std::function<void()> OnClick;

  [[nodiscard]] const std::vector<String>& Entries() const { return entries_; }
  void Clear();  ///< empties list and text
  void AddEntry(const String& entry);
  [[nodiscard]] const String& Text() const { return text_; }
  void SetText(const String& text) { Assign(text_, text); }
  /// Position of the text in the list, -1 when it stands in none of them.
  [[nodiscard]] int ListIndex() const;
  [[nodiscard]] bool Locked() const override { return locked_; }
  void SetLocked(bool locked) { Assign(locked_, locked); }
  void SetLook(Look look) { Assign(look_, look); }
  [[nodiscard]] Look ShownLook() const override { return look_; }
  [[nodiscard]] String ShownText() const override { return text_; }
  [[nodiscard]] Refusal Refused() const override;

  /// The user's choice of entry `position` of the list (0 to its size less one).
  void UserPicks(int position);

 private:
  std::vector<String> entries_;
  String text_;
  bool locked_ = false;
  Look look_ = Look::Normal;
};

class OptionGroup;

/// One option button of a group, of which at most one is on. `OptionGroup::OnClick` is raised when it goes
/// on, by the user or by the program; a press of a button that is on already raises nothing.
class OptionButton : public CaptionedControl {
 public:
  OptionButton(std::string_view name, int index, OptionGroup& group)
      : CaptionedControl(name, index), group_(group) {}
  [[nodiscard]] bool Value() const { return value_; }
  void SetValue(bool value);
  /// The user's press.
  void Click();
  /// Place in the group, from 0; equals Index() in a control array.
  [[nodiscard]] int Place() const;
  [[nodiscard]] OptionGroup& Group() const { return group_; }

 private:
  friend class OptionGroup;
  OptionGroup& group_;
  bool value_ = false;
};

/// The option buttons of one choice.
class OptionGroup {
 public:
  /// An array `name`(0) to `name`(count - 1).
  OptionGroup(std::string_view name, int count);
  /// Single buttons under names of their own ("OptCom1" to "OptCom4").
  explicit OptionGroup(const std::vector<std::string_view>& names);

  /// `place` from 0: the button that went on.
  std::function<void(int place)> OnClick;
  /// The user's press of the button that is on counts too: a port is chosen again to open it again.
  bool RaisesWhenOn = false;

  [[nodiscard]] int Count() const { return static_cast<int>(buttons_.size()); }
  OptionButton& operator[](int place) { return *buttons_.at(static_cast<std::size_t>(place)); }
  const OptionButton& operator[](int place) const { return *buttons_.at(static_cast<std::size_t>(place)); }
  /// Place of the button that is on, -1 when none is.
  [[nodiscard]] int Selected() const;
  /// All off, raising nothing.
  void Clear();
  /// Puts the button on, raising nothing: shows what is so already.
  void Mark(int place);
  void SetVisible(bool visible);
  void SetEnabled(bool enabled);

 private:
  std::vector<std::unique_ptr<OptionButton>> buttons_;
};

/// A list of entries of which one is chosen. Setting the position, by the user or by the program, raises
/// `OnClick` even when it is the present one.
class ListBox : public Control {
 public:
  using Control::Control;
  std::function<void()> OnClick;

  [[nodiscard]] const std::vector<String>& Entries() const { return entries_; }
  void Clear();
  void AddEntry(const String& entry);
  [[nodiscard]] int ListIndex() const { return list_index_; }  ///< -1: none
  void SetListIndex(int index);
  /// Moves the mark without raising anything: back to what is so already.
  void ShowListIndex(int index) { Assign(list_index_, index); }
  [[nodiscard]] int TopIndex() const { return top_index_; }  ///< first row in view
  void SetTopIndex(int index) { Assign(top_index_, index); }
  /// The chosen entry, empty when none is.
  [[nodiscard]] String Text() const;
  [[nodiscard]] String ShownText() const override { return Text(); }
  void UserPicks(int position) { SetListIndex(position); }

 private:
  std::vector<String> entries_;
  int list_index_ = -1;
  int top_index_ = 0;
};

/// A progress bar from 0 to 100 with a single-precision value; its caption tells of what. At 0 it is at rest.
class ProgressBar : public CaptionedControl {
 public:
  using CaptionedControl::CaptionedControl;
  [[nodiscard]] float Value() const { return value_; }
  void SetValue(float value) { Assign(value_, value); }

 private:
  float value_ = 0.0F;
};

/// A picture that lies in a file. The control holds the file's bytes as they are; who shows it decodes them.
class Picture : public Control {
 public:
  using Control::Control;
  /// Name of the file, without its folder. It stands in the picture's place while the bytes are none of a
  /// picture. Empty: no picture.
  [[nodiscard]] const String& FileName() const { return file_name_; }
  [[nodiscard]] const std::string& Bytes() const { return bytes_; }
  /// Shows a file. `bytes` are empty when it can't be read.
  void Show(const String& file_name, const std::string& bytes);
  void Clear() { Show({}, {}); }
  [[nodiscard]] String ShownText() const override { return file_name_; }

 private:
  String file_name_;
  std::string bytes_;
};

/// A timer of a page: ticks every Interval() while enabled.
class Timer : public Control {
 public:
  Timer(std::string_view name, EventLoop& loop, Milliseconds interval);
  Timer(const Timer&) = delete;
  Timer& operator=(const Timer&) = delete;
  ~Timer() override;
  std::function<void()> OnTick;
  [[nodiscard]] Milliseconds Interval() const { return interval_; }
  /// Both restart the running time when the timer is on.
  void SetInterval(Milliseconds interval);
  void Start();
  void Stop();
  [[nodiscard]] bool Running() const { return running_.has_value(); }

 private:
  EventLoop& loop_;
  Milliseconds interval_;
  std::optional<TimerId> running_;
};

}  // namespace korva
