#pragma once

#include <array>

#include "files/parameter_page.h"

namespace korva {

// Keys of the lists of inputs, one for each class of the input.
inline constexpr StringView kDirectInputs = u"$I10DC";
inline constexpr StringView kThermocoupleInputs = u"$I10TC";
inline constexpr StringView kResistanceInputs = u"$I10RTD";
inline constexpr StringView kPotentiometerInputs = u"$I10PM";
/// All of them, in the order of $I00.
inline constexpr std::array<StringView, 4> kInputClasses = {kDirectInputs, kThermocoupleInputs,
                                                            kResistanceInputs, kPotentiometerInputs};

/// The class of the input and what it means for the rest of the page of family LiteUniv. The class is that of
/// the list which holds the text of item 10, and the key $I10 means that list. The class decides which of the
/// temperature unit, the compensation of the cold junction, the burnout and the linearizer there are: the
/// others are neither shown nor read, checked or sent, but keep what they hold. Without a class there is none
/// of them.
class InputClass final : public PagePart {
 public:
  /// Adds itself to the page, which outlives this. Stands behind the part that converts temperatures.
  explicit InputClass(ParameterPage& page);

  void DefinitionRead() override { Settle(); }
  void PageBuilt() override;
  /// The unit of zero and span and of the values on their scale, and that of the sensor's signal.
  [[nodiscard]] std::optional<String> UnitOf(int row) const override;
  /// What a file lacks of its class comes up with its default.
  void SettleTabs(TabMoment moment) override;
  /// A class takes its first input. An input brings its range, an output type its own.
  void ChoiceMade(const Choice& choice) override;
  [[nodiscard]] std::function<void()> Keep() override {
    return [this] { Settle(); };
  }

  /// Takes the class that item 10 has now into the flags of the definition, so that what is read, checked and
  /// sent from then on goes by it. True when it is another one than before.
  bool Settle();
  /// Key of the present class's list; empty for none.
  [[nodiscard]] StringView Key() const { return page_.Def.ChosenList(); }

 private:
  [[nodiscard]] StringView KeyOfInput() const;
  void TakeClass(const String& text);
  void SetFlag(int row, bool has);
  void HideRow(int row);
  void ShowClass();
  void ShowUnits();
  [[nodiscard]] String UnitOfScale() const;
  [[nodiscard]] String UnitOfSignal() const;
  [[nodiscard]] String UnitOfInput() const;
  [[nodiscard]] String TemperatureUnit() const;

  ParameterPage& page_;
};

}  // namespace korva
