#pragma once

#include "files/parameter_page.h"

namespace korva {

/// The frame of the settings that a user rarely needs: it is closed until he opens it. A check that finds a
/// fault inside opens it, so that what is wrong can be seen.
class DetailFrame final : public PagePart {
 public:
  /// Adds itself and its controls to the page, which outlives this.
  explicit DetailFrame(Page& page);

  void SetCaptions(Language language) override;
  /// Looks at the controls that the page's design has put into the frame.
  void WatchContents();

  Frame fraDetailInfo{"fraDetailInfo"};
  Button cmdDetailInfo{"cmdDetailInfo"};
  Button cmdCloseInfo{"cmdCloseInfo"};

 private:
  void Show(bool open);

  Page& page_;
};

}  // namespace korva
