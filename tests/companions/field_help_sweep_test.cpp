// On every model the help tells the limits by which the check judges, in each unit of temperature and under
// each input type.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>

#include "companions/field_help.h"
#include "core/numbers.h"
#include "core/text_utilities.h"
#include "pages/page_bench.h"
#include "support/page_parts.h"
#include "transfer/value_check.h"

namespace korva::test {
namespace {

/// Keys of two fields that are the ends of one range.
struct Ends {
  StringView low;
  StringView high;
};
constexpr auto kPairs = std::to_array<Ends>({{.low = u"14", .high = u"15"},
                                             {.low = u"12", .high = u"13"},
                                             {.low = u"42", .high = u"43"},
                                             {.low = u"19", .high = u"20"},
                                             {.low = u"14_0", .high = u"14_100"},
                                             {.low = u"12_0", .high = u"12_100"},
                                             {.low = u"42_0", .high = u"42_100"}});
constexpr double kStep = 0.01;
constexpr StringView kHuge = u"987654321";

class HelpSweep : public PageBench {
 public:
  explicit HelpSweep(const String& model) : model_(model) {
    Connect(model);
    Choose(model);
    TakeTables();
    Upload();
    TakeBoxes();
  }

  /// How many fields with a range were tried.
  int TryAll() {
    int ranged = 0;
    FillBlanks();
    SettlePairs();
    for (int row = 0; row < Page().Def.Data().Rows(); ++row) {
      TextField* field = Page().IsNumberRow(row) ? &FieldOf(row) : nullptr;
      if (field != nullptr && field->Visible() && field->Enabled() && !field->Locked()) {
        ranged += Try(row, *field) ? 1 : 0;
      }
    }
    return ranged;
  }

  int TryEachType() {
    ComboBox* box = nullptr;
    for (int row = 0; row < Page().Def.Data().Rows(); ++row) {
      if (Page().DataCell(row, kItem) == u"10" && !Page().DataCell(row, kComboIndex).empty()) {
        box = &Page().Combo[LeadingInteger(Page().DataCell(row, kComboIndex))];
      }
    }
    int ranged = 0;
    for (std::size_t entry = 0; box != nullptr && !box->Locked() && entry < box->Entries().size(); ++entry) {
      type_ = ToUtf8(box->Entries()[entry]);
      Do([&] { box->UserPicks(static_cast<int>(entry)); });
      ranged += TryEachUnit();
    }
    return ranged;
  }

  int TryEachUnit() {
    int ranged = TryAll();
    for (int unit = 0; unit < Page().optTempUnit.Count(); ++unit) {
      OptionButton& button = Page().optTempUnit[unit];
      if (button.Visible() && button.Enabled() && !button.Value()) {
        Do([&] { button.Click(); });
        ranged += TryAll();
      }
    }
    return ranged;
  }

 private:
  /// A choice may empty fields, and a blank one would end the check before any value is judged.
  void FillBlanks() {
    for (int row = 0; row < Page().Def.Data().Rows(); ++row) {
      TextField* field = Page().IsNumberRow(row) && !Page().MayBeBlank(row) ? &FieldOf(row) : nullptr;
      if (field != nullptr && field->Visible() && !field->Locked() && field->Text().empty()) {
        Put(*field, 1);
      }
    }
  }

  /// Puts the ends of each range where the check takes them, since a step of it that fails ends it: a
  /// converted temperature may lie a fraction outside.
  void SettlePairs() {
    for (const Ends& pair : kPairs) {
      TextField* low = Page().FindField(pair.low);
      TextField* high = Page().FindField(pair.high);
      const auto range =
          low == nullptr ? std::nullopt : Part<ValueCheck>(Page()).RangeOfRow(Page().FindDataRow(pair.low));
      if (range && high != nullptr && !low->Locked() && !high->Locked() && !std::isinf(range->low)) {
        Put(*low, range->low);
        Put(*high, range->high);
      }
    }
  }

  TextField& FieldOf(int row) { return Page().Text[LeadingInteger(Page().DataCell(row, kTextIndex))]; }

  void Put(TextField& field, double number) { PutText(field, ShortestText(number)); }
  void PutText(TextField& field, StringView text) {
    Do([&] { field.UserTypes(String(text)); });
  }
  /// How a field looks behind the check, which refuses something when and only when a field is marked.
  Look CheckedLook(const TextField& field) {
    const std::vector<std::string> outside = FieldsThat([](const TextField& one) { return one.Outside(); });
    Check();
    TakeBoxes();
    const std::vector<std::string> bad =
        FieldsThat([](const TextField& one) { return one.ShownLook() == Look::Bad; });
    EXPECT_EQ(outside.empty(), bad.empty())
        << ToUtf8(model_) << " " << type_ << " " << (bad.empty() ? outside : bad).front();
    return field.ShownLook();
  }
  template <typename Condition>
  std::vector<std::string> FieldsThat(const Condition& condition) {
    std::vector<std::string> names;
    for (int row = 0; row < Page().Def.Data().Rows(); ++row) {
      const bool checked = Page().IsNumberRow(row) && Part<ValueCheck>(Page()).RangeOfRow(row);
      if (checked && condition(FieldOf(row))) {
        names.push_back(ToUtf8(Page().DataCell(row, kItem) + u" = " + FieldOf(row).Text()));
      }
    }
    return names;
  }

  std::string Where(int row, const TextField& field) {
    return ToUtf8(model_) + " " + type_ + " Item " + ToUtf8(Page().DataCell(row, kItem)) + " = " +
           ToUtf8(field.Text());
  }

  /// True when the check has a range for the field.
  bool Try(int row, TextField& field) {
    const std::optional<FieldRange> range = Part<ValueCheck>(Page()).RangeOfRow(row);
    const String before = field.Text();
    if (!range) {
      PutText(field, kHuge);
      EXPECT_NE(CheckedLook(field), Look::Bad) << Where(row, field);
    } else if (!TryPair(row, field, *range)) {
      TryEnds(row, field, *range, range->low, range->high);
    }
    PutText(field, before);
    CheckedLook(field);
    return range.has_value();
  }

  bool TryPair(int row, TextField& field, const FieldRange& range) {
    const String& key = Page().DataCell(row, kItem);
    for (const Ends& pair : kPairs) {
      if (key != pair.low && key != pair.high) {
        continue;
      }
      const bool low = key == pair.low;
      TextField* other = Page().FindField(low ? pair.high : pair.low);
      const double span = range.rises ? kStep : range.span;
      if (other == nullptr || (span == 0 && std::isinf(range.low))) {
        return false;
      }
      const double by_span = range.high - span;
      const double suppressed = range.suppression * range.high / (1 + range.suppression);
      const double most = low && range.suppression > 0 ? std::min(by_span, suppressed) : by_span;
      const String before = other->Text();
      Put(*other, low ? range.high : range.low);
      TryEnds(row, field, range, low ? range.low : range.low + span, low ? most : range.high);
      TryTooNear(row, field, *other, low ? most + kStep : range.low + span - kStep);
      PutText(*other, before);
      return true;
    }
    return false;
  }

  /// A number that is good by itself and too near to the other end of its pair.
  void TryTooNear(int row, TextField& field, TextField& other, double number) {
    Put(field, number);
    if (Part<ValueCheck>(Page()).RangeOfRow(row)->Takes(number)) {
      EXPECT_TRUE(field.Outside()) << Where(row, field);
      EXPECT_TRUE(other.Outside()) << Where(row, field);
      EXPECT_EQ(CheckedLook(field), Look::Bad) << Where(row, field);
      EXPECT_EQ(other.ShownLook(), Look::Bad) << Where(row, field);
    }
  }

  /// `least` and `most` are what the check takes while the other end of a pair stands at its limit.
  void TryEnds(int row, TextField& field, const FieldRange& range, double least, double most) {
    for (const double inside : {least, most}) {
      if (std::isinf(inside)) {
        continue;
      }
      Put(field, inside);
      EXPECT_FALSE(field.Outside()) << Where(row, field);
      EXPECT_EQ(CheckedLook(field), Look::Normal) << Where(row, field);
    }
    for (const double outside : {range.low - kStep, range.high + kStep}) {
      if (std::isinf(outside)) {
        continue;
      }
      Put(field, outside);
      EXPECT_TRUE(field.Outside()) << Where(row, field);
      EXPECT_EQ(CheckedLook(field), Look::Bad) << Where(row, field);
      EXPECT_FALSE(field.Outside()) << Where(row, field) << " is marked by the check";
      Put(field, least);
      CheckedLook(field);
    }
  }

  String model_;
  std::string type_;
};

TEST(FieldHelpSweepTest, HelpAndCheckAgreeOnTheLimitsOfEveryFieldOfEveryModel) {
  int ranged = 0;
  for (const String& model : AllModels()) {
    ranged += HelpSweep(model).TryEachUnit();
  }
  EXPECT_GT(ranged, 0);
}

TEST(FieldHelpSweepTest, HelpAndCheckAgreeUnderEachInputType) {
  int ranged = 0;
  for (const String& model : AllModels()) {
    ranged += HelpSweep(model).TryEachType();
  }
  EXPECT_GT(ranged, 0);
}

}  // namespace
}  // namespace korva::test
