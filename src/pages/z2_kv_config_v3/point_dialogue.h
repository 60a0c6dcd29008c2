#pragma once

#include "files/parameter_page.h"
#include "linearizer/lnr_store.h"

namespace korva {

/// The table of family LiteThird: all its points travel through one item, in a dialogue with the device.
///
///     write, in programming mode:  "C", the table is reset;  "I", how many points;  each point: number X Y
///     read, in monitor mode:       "O", how many points;  each point's number
///
/// A dialogue that goes wrong can't be taken up in its middle: the device may count otherwise than the
/// program. So a repeat begins at its letter again.
class PointDialogue final : public LnrStore {
 public:
  /// The page outlives this.
  explicit PointDialogue(ParameterPage& page) : page_(page) {}

  [[nodiscard]] bool Serves() const override { return true; }
  /// Up to the first point that is empty in the device; one that it doesn't give is empty in the reading.
  [[nodiscard]] LnrReading Read(ProgressBar& bar) override;
  bool BeginWriting() override { return page_.EnterProgrammingMode(); }
  bool Write(std::span<const PointTexts> points, ProgressBar& bar) override;

 private:
  enum class Answer { Point, End, Wrong, NoDialogue };

  [[nodiscard]] String Send(const String& data) const;
  [[nodiscard]] bool Ask(const String& data, StringView expected) const { return Send(data) == expected; }
  /// Reads a point; begins the dialogue where none is open.
  Answer ReadPoint(int point, PointTexts& texts);
  bool WriteAll(std::span<const PointTexts> points, ProgressBar& bar) const;
  [[nodiscard]] bool WritePoint(std::size_t number, const PointTexts& point) const;

  ParameterPage& page_;
  bool open_ = false;  ///< the device waits for the number of the next point to give
};

}  // namespace korva
