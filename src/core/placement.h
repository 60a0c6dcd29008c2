#pragma once

#include <functional>
#include <map>
#include <set>
#include <string_view>
#include <vector>

#include "core/control.h"
#include "core/design.h"
#include "core/tab_control.h"

namespace korva {

class Page;

/// On which tab each control of a page stands, and in which order, as its design says. Marks the tabs on
/// which a bad value stands.
class Placement {
 public:
  /// `tabs` outlives the placement.
  explicit Placement(TabControl& tabs) : tabs_(tabs) {}
  Placement(const Placement&) = delete;
  Placement& operator=(const Placement&) = delete;
  ~Placement() = default;

  /// Places the page's controls by its design, once. Throws RuntimeFailure for a name that the page has not.
  void Apply(const Design& design, const Page& page);
  /// Tab on which the control stands, -1 for a control that is always in view.
  [[nodiscard]] int TabOf(const Control& control) const;
  /// The line of the design in which the control stands, in whose place soever; nullptr for a control that is
  /// always in view. An option button has the line of its frame.
  [[nodiscard]] const DesignRow* RowOf(const Control& control) const;
  /// The first control that is shown and `wanted`, in the order of tabs, boxes and lines; nullptr for none.
  [[nodiscard]] Control* FirstShown(const std::function<bool(const Control&)>& wanted) const;

 private:
  void PlaceGroup(const DesignGroup& group, const Page& page, int tab);
  void PlaceControl(std::string_view name, const DesignGroup& group, const Page& page, int tab);
  /// Marks the tab of a control that became bad or good.
  void FollowBad(const Control& control, int tab);

  TabControl& tabs_;
  std::map<const Control*, int> tabs_of_;
  std::map<const Control*, const DesignRow*> rows_of_;
  std::vector<Control*> placed_;  ///< by the design, in its order
  std::set<const Control*> bad_;  ///< of these, the shown ones with a bad value
};

}  // namespace korva
