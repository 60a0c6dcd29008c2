#pragma once

#include "files/parameter_page.h"

namespace korva {

/// A live value of which a loop has asked the device, as its field shows it now.
struct LiveReading {
  int row = -1;  ///< of $Data
  String caption;
  String text;            ///< empty: the device told no value
  String unit;            ///< empty: none is known
  bool answered = false;  ///< false: the device was silent
};

/// A reading of the item of a row, with the caption and the unit that the page shows beside it.
LiveReading ReadingOf(ParameterPage& page, int row, const String& text, bool answered);

/// Follows the loops that show live values. They tell each reading when its field shows it.
class LiveObserver {
 public:
  LiveObserver() = default;
  LiveObserver(const LiveObserver&) = delete;
  LiveObserver& operator=(const LiveObserver&) = delete;
  virtual ~LiveObserver() = default;

  virtual void LoopBegan() = 0;
  virtual void ValueRead(const LiveReading& reading) = 0;
  /// All values of the loop were read once.
  virtual void TurnEnded() = 0;
  /// The loop ended by itself or by the user. A program that ends does not tell it.
  virtual void LoopEnded() = 0;
};

/// A part that has such a loop.
class LiveSource {
 public:
  LiveSource() = default;
  LiveSource(const LiveSource&) = delete;
  LiveSource& operator=(const LiveSource&) = delete;
  virtual ~LiveSource() = default;

  /// Follows the loop; nullptr: nobody does. It outlives this, or is taken away before.
  LiveObserver* Watcher = nullptr;

 protected:
  void TellBegan() const {
    if (Watcher != nullptr) {
      Watcher->LoopBegan();
    }
  }
  /// `reading` makes what is told, and only where somebody listens.
  template <typename Reading>
  void TellRead(Reading reading) const {
    if (Watcher != nullptr) {
      Watcher->ValueRead(reading());
    }
  }
  void TellTurn() const {
    if (Watcher != nullptr) {
      Watcher->TurnEnded();
    }
  }
  void TellEnded() const {
    if (Watcher != nullptr) {
      Watcher->LoopEnded();
    }
  }
};

}  // namespace korva
