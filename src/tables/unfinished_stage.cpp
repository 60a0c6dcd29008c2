#include "tables/unfinished_stage.h"

#include "core/text_utilities.h"

namespace korva {

namespace {

void AddLine(String& text, const String& line) { text += (text.empty() ? u"" : u"\n") + line; }

}  // namespace

void UnfinishedStage::Bank::Follow(const String& before, const String& now) {
  if (before == now) {
    undone_ = undone_ && fits_ != now;
  } else if (!undone_) {
    undone_ = true;
    fits_ = before;
  }
}

void UnfinishedStage::ModelChosen(const String& def_file) {
  if (def_file_ != def_file) {
    def_file_ = def_file;
    input = {};
    output = {};
    model_text_ = {};
    Tell();
  }
}

// The next stage takes its fields from a text that broke off as from any other, so that what it writes can be
// wrong for good. What was read before the first that broke off is what they should be.
void UnfinishedStage::ModelTextWritten(const ModelText& text, bool written) {
  if (model_text_.tail.empty()) {
    model_text_ = text;
  }
  model_text_.tags = text.tags;
  if (written && model_text_.Whole() == text.Whole()) {
    model_text_ = {};
  }
}

void UnfinishedStage::Tell() {
  String text;
  if (input.Undone()) {
    AddLine(text, page_.Words(TextKey::InputBankUnfinished));
  }
  if (output.Undone()) {
    AddLine(text, page_.Words(TextKey::OutputBankUnfinished));
  }
  if (!model_text_.tail.empty()) {
    AddLine(text, Filled(page_.Words(TextKey::ModelTextUnfinished), {model_text_.Whole()}));
  }
  page_.Notes.Tell(Notice::Unfinished, text);
}

}  // namespace korva
