#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <optional>
#include <vector>

#include "core/texts.h"
#include "platform/event_loop.h"

namespace korva {

/// What a loop has read, with what the page calls it.
struct WatchReading {
  int row = -1;  ///< by which the value is known again
  String item;   ///< two digits
  String caption;
  String text;  ///< empty: the device told no value
  String unit;
  bool answered = false;
};

/// A live value, and what is known of it since the loop began.
struct WatchedValue {
  /// What the last reading brought. Untold: an answer, but no value, as when the device refuses the item.
  enum class Outcome { Told, Untold, Silent };
  /// A number, and the text in which the device told it.
  struct Number {
    double value = 0;
    String text;
    bool operator==(const Number&) const = default;
  };
  /// What was read at a time; no value: a gap.
  struct Point {
    Clock time{0};
    std::optional<double> value;
    bool operator==(const Point&) const = default;
  };

  int row = -1;
  String item;
  String caption;
  String text;  ///< as it was told last; it stays while nothing is told
  String unit;  ///< of the text
  Outcome outcome = Outcome::Untold;
  std::optional<Clock> told;  ///< when the text was; unset: never
  Clock first_read{0};
  Clock last_read{0};
  std::optional<Number> least;  ///< of the numbers in the present unit; a text that is no number counts not
  std::optional<Number> most;
  std::deque<Point> trend;  ///< oldest first
  unsigned change = 0;      ///< number of the last change of anything here, which no other value has
};

/// What is known of the live values that the page's loop shows. It stays when the loop has ended, until
/// another one begins or the page shows something else.
class Watch {
 public:
  /// How far a trend goes back, and how many points of it are kept at most. The loops read a value every half
  /// second at the most; where the user's steps make one faster, its trend is shorter.
  static constexpr Clock kTrend = std::chrono::minutes(10);
  static constexpr std::size_t kMostPoints = 1200;
  /// From this age on a value is no longer taken for the present one: the turn of a loop is shorter as long
  /// as the device answers.
  static constexpr Clock kOld = std::chrono::seconds(10);

  /// How old a value is: WatchAge or WatchSilent, with the seconds.
  struct Age {
    TextKey text = TextKey::WatchAge;
    int seconds = 0;
    bool operator==(const Age&) const = default;
  };

  void Begin();
  void Take(const WatchReading& reading, Clock now);
  void End(Clock now);
  /// Forgets all values, unless a loop runs.
  void Clear();
  /// Forgets least, most and trend of all values: they begin anew with the next reading.
  void BeginAnew();

  [[nodiscard]] bool Running() const { return running_; }
  /// In the order in which the loop reads them.
  [[nodiscard]] const std::vector<WatchedValue>& Values() const { return values_; }
  /// Nothing for a value that is the present one, and for one that was never told though the device answers.
  [[nodiscard]] std::optional<Age> AgeOf(const WatchedValue& value, Clock now) const;
  /// `action` is called after each change.
  void Observe(std::function<void()> action) { observers_.push_back(std::move(action)); }

 private:
  WatchedValue& ValueOf(const WatchReading& reading, Clock now);
  void Changed() const;

  std::vector<WatchedValue> values_;
  unsigned changes_ = 0;
  bool running_ = false;
  Clock ended_{0};
  std::vector<std::function<void()>> observers_;
};

}  // namespace korva
