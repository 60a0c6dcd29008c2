#pragma once

#include "core/page.h"

namespace korva {

/// What a stage that broke off left undone in the device, for the status area.
///
/// The device's types may be the new ones then while what belongs to them is not. Neither the device nor the
/// next download tells it: that finds no change, and copies nothing. So it is told until a later stage has
/// brought it, or another model is chosen.
class UnfinishedStage {
 public:
  /// A calibration that has to follow its type.
  class Bank {
   public:
    /// The device had the type `before` and is to have `now`.
    void Follow(const String& before, const String& now);
    /// The calibration of the new type is being copied; until that has ended it fits no type.
    void Begin() { *this = Bank(true); }
    void End() { undone_ = false; }
    [[nodiscard]] bool Undone() const { return undone_; }

    Bank() = default;

   private:
    explicit Bank(bool undone) : undone_(undone) {}

    bool undone_ = false;  ///< the type may be written, the calibration is not
    String fits_;          ///< the type that it still fits; empty for none
  };

  /// The text that tells a device's model, by its fields.
  struct ModelText {
    String head;
    String tags;
    String tail;  ///< never empty in a whole one

    [[nodiscard]] String Whole() const { return head + u'-' + tags + u'-' + tail; }
  };

  /// The page outlives this.
  explicit UnfinishedStage(Page& page) : page_(page) {}

  /// The definition of a model's file was read: what is undone in a device of another one is not told.
  void ModelChosen(const String& def_file);
  /// `text`, of fields read from the device but for its tags, was written; false: its writing broke off.
  void ModelTextWritten(const ModelText& text, bool written);
  /// Shows what is undone; nothing when nothing is.
  void Tell();

  Bank input;   ///< by the type of the converter
  Bank output;  ///< by the output type

 private:
  Page& page_;
  String def_file_;
  ModelText model_text_;  ///< as it should be; without a tail for one that is whole
};

}  // namespace korva
