#pragma once

#include <span>
#include <string_view>

#include "sim/compensation.h"
#include "sim/family.h"

namespace korva::sim {

/// Power-up value of a number item of group 01, without a unit. All other numbers come up as 0, save zero,
/// span and the fine values, which follow from the input type and the prefix.
/// \param family  Family word.
/// \param model   Definition file without its ending, such as "QHN1".
/// \param item    Two digits.
std::string_view PowerUpNumber(std::string_view family, std::string_view model, std::string_view item);

/// An alarm value of a counter. It may be written with a direction behind it, "1000 (UP)", of which the
/// device takes the number alone.
struct AlarmValue {
  std::string_view model;  ///< Definition file without its ending.
  std::string_view item;   ///< Item of group 01.
  std::string_view unit;   ///< Stands behind the value in each reply; may be empty.
};

/// The alarm value on an item of group 01; null when it is none.
const AlarmValue* FindAlarmValue(std::string_view model, std::string_view item);

/// The count of group 01 that a command item sets to 0; empty when the item is no command.
std::string_view CountOfCommand(std::string_view item);

/// Models that take their time to answer.
bool AnswersSlowly(std::string_view model);

/// Items that a model can't use while another item holds a certain choice.
struct NeedlessRule {
  std::string_view model;  ///< Definition file without its ending, or its beginning when `beginning` is set.
  bool beginning;          ///< All models that begin so.
  std::string_view selector;  ///< Item of group 01 whose choice decides.
  std::string_view codes;     ///< Codes of that choice, separated by blanks; or
  std::string_view text;      ///< its text.
  std::string_view items;     ///< Items of group 01 that are of no use then, separated by blanks.
};

std::span<const NeedlessRule> NeedlessRules();

/// Items of group 01, separated by blanks, that are of no use with an input of this list of a class.
std::string_view ItemsWithout(std::string_view input_list);

/// How model QUO spells its input types, by the row of the type: the first device version in a short form,
/// all later ones in a long form. \return empty for a row beyond the last type.
std::string_view SensorText(std::size_t row, std::string_view system_text);

/// Model whose devices spell their input types by version.
inline constexpr std::string_view kVersionedModel = "QUO";

/// Models that refuse a number which ends with its point.
bool RefusesTrailingPoint(std::string_view model);

/// What a model of two outputs corrects of its sensor's circuit.
Compensation::Kind CorrectsItsSensor(std::string_view model);

/// The linearizer table of a model of the families in which only some models have one.
TableShape TableOfModel(std::string_view model);

/// Whether a list of words separated by blanks holds the word.
bool HasWord(std::string_view words, std::string_view word);

}  // namespace korva::sim
