#pragma once

#include <functional>
#include <utility>
#include <vector>

#include "core/panel.h"
#include "core/texts.h"

namespace korva {

/// One value that is not the same on the page and in what it is compared with.
struct Difference {
  String item;  ///< "01/14_0" as the definition names it; of a table "table", with row and column of a point
  String caption;       ///< what the definition calls it
  String page;          ///< as the page shows it, with its unit
  String other;         ///< the same of the device or the file
  bool silent = false;  ///< the device gave no answer
  bool untold = false;  ///< it refused the item, or its answer holds no value

  bool operator==(const Difference&) const = default;
};

/// What the last comparison of the page found. It stays until the next one.
class Comparison {
 public:
  enum class With { Nothing, Device, File };
  /// What became of the reading. Only where it is complete, differences are told.
  enum class Outcome { Complete, Broken, OtherModel };

  void Take(With with, const String& model, Outcome outcome, std::vector<Difference> differences) {
    with_ = with;
    model_ = model;
    outcome_ = outcome;
    differences_ = std::move(differences);
    ++number_;
    for (const auto& action : observers_) {
      action();
    }
  }

  [[nodiscard]] With What() const { return with_; }
  [[nodiscard]] const String& Model() const { return model_; }
  [[nodiscard]] Outcome Result() const { return outcome_; }
  [[nodiscard]] const std::vector<Difference>& Differences() const { return differences_; }
  [[nodiscard]] unsigned Number() const { return number_; }
  /// `action` is called after each comparison.
  void Observe(std::function<void()> action) { observers_.push_back(std::move(action)); }

 private:
  With with_ = With::Nothing;
  String model_;
  Outcome outcome_ = Outcome::Broken;
  unsigned number_ = 0;
  std::vector<Difference> differences_;
  std::vector<std::function<void()>> observers_;
};

/// The window that shows a comparison.
class ComparisonPanel final : public Panel {
 public:
  /// The comparison outlives this.
  explicit ComparisonPanel(Comparison& comparison);

  [[nodiscard]] String Title() const override { return Words(TextKey::Comparison); }
  [[nodiscard]] String Heading() const override;
  [[nodiscard]] std::vector<String> Heads() const override;
  [[nodiscard]] int EndRow() const override { return static_cast<int>(comparison_.Differences().size()); }
  [[nodiscard]] std::vector<String> Cells(int row) const override;
  [[nodiscard]] unsigned Generation() const override { return comparison_.Number(); }

 private:
  const Comparison& comparison_;
};

}  // namespace korva
