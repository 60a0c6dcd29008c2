#pragma once

#include <memory>
#include <vector>

#include "companions/recording.h"
#include "companions/watch.h"
#include "core/side_window.h"
#include "platform/platform.h"

namespace korva {

/// The window that shows the live values in large, and records them when the user wants it. The loop goes on
/// at its pace whatever is done here: nothing waits for the user.
class WatchPanel final : public SideWindow {
 public:
  /// What a value's tile shows.
  struct Tile {
    String caption;  ///< with the item
    String text;     ///< empty: it was never told
    String unit;
    String least;  ///< with the word for it
    String most;
    String age;        ///< empty: it is the present one
    bool old = false;  ///< the text is not the present value
    bool operator==(const Tile&) const = default;
  };

  /// All outlive this.
  WatchPanel(Watch& watch, const Platform& platform);

  /// Lets the user record into files of `place`, which outlives this. Without it nothing can be recorded.
  void RecordTo(RecordPlace& place) { place_ = &place; }
  void SetLanguage(Language language) override;

  // The page's loop.
  /// `folder` and `file_name` are what the dialog proposes for the record.
  void LoopBegan(const String& folder, const String& file_name);
  void ValueRead(const WatchReading& reading);
  void TurnEnded();
  void LoopEnded();

  [[nodiscard]] String Title() const override { return Words(TextKey::Watch); }
  /// That there are no values, or what becomes of the record.
  [[nodiscard]] String Heading() const override;
  [[nodiscard]] std::vector<Button*> Buttons() override { return {&cmdWatchAnew, &cmdRecord}; }
  [[nodiscard]] const std::vector<WatchedValue>& Values() const { return watch_.Values(); }
  [[nodiscard]] Tile TileOf(const WatchedValue& value) const;
  /// Why the record broke off; empty when it did not.
  [[nodiscard]] const String& Problem() const { return recording_.Problem(); }

  Button cmdWatchAnew{"cmdWatchAnew"};
  Button cmdRecord{"cmdRecord"};

 private:
  void RecordOrStop();
  void Ask();
  void BeginRecord(const String& path);
  /// Shows a record that has just broken off.
  void ShowBroken();
  void Settle();

  Watch& watch_;
  EventLoop& loop_;
  Recording recording_;
  String folder_;
  String file_name_;
  RecordPlace* place_ = nullptr;
  std::unique_ptr<OpenQuestion> question_;
  Timer age_timer_;  ///< while the window is open, since ages grow
};

}  // namespace korva
