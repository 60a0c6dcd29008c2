#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <tuple>
#include <utility>
#include <vector>

#include "core/control.h"
#include "platform/string.h"

namespace korva {

/// What stood at places of one kind, and what stands there now. Places where both are the same are left out.
template <typename Place, typename Value>
class Changes {
 public:
  struct Sides {
    Value before;
    Value after;
    [[nodiscard]] const Value& At(bool after_it) const { return after_it ? after : before; }
  };

  /// The value of a place became another one; what changed there before goes on to it.
  void Add(const Place& place, const Value& before, const Value& after) {
    const auto at = sides_.try_emplace(place, Sides{before, after}).first;
    at->second.after = after;
    if (at->second.before == after) {
      sides_.erase(at);
    }
  }
  /// The same, of all places of later changes.
  void AddAll(const Changes& later) {
    for (const auto& [place, sides] : later.sides_) {
      Add(place, sides.before, sides.after);
    }
  }
  /// Keeps what stands at a place that has not changed.
  void Keep(const Place& place, const Value& value) { sides_.try_emplace(place, Sides{value, value}); }

  [[nodiscard]] bool Has(const Place& place) const { return sides_.contains(place); }
  /// The change at a place; nullptr for none.
  [[nodiscard]] const Sides* Find(const Place& place) const {
    const auto at = sides_.find(place);
    return at == sides_.end() ? nullptr : &at->second;
  }
  [[nodiscard]] bool Empty() const { return sides_.empty(); }
  [[nodiscard]] std::size_t Size() const { return sides_.size(); }
  [[nodiscard]] auto begin() const { return sides_.begin(); }
  [[nodiscard]] auto end() const { return sides_.end(); }

 private:
  std::map<Place, Sides> sides_;
};

/// What an edit can change on a control.
struct ControlState {
  String text;                                         ///< of a field or a box, else the caption
  std::shared_ptr<const std::vector<String>> entries;  ///< of a box; the same object while they are the same
  Look look = Look::Normal;
  bool visible = true;
  bool enabled = true;
  bool locked = false;
  bool numeric = false;
  bool marked = false;
  bool outside = false;
  bool on = false;
  bool operator==(const ControlState&) const = default;
};

/// What an edit can change on a cell of a table.
struct CellState {
  String text;
  Look look = Look::Normal;
  bool operator==(const CellState&) const = default;
};

/// The same of a tab.
struct TabState {
  String caption;
  bool enabled = true;
  bool operator==(const TabState&) const = default;
};

/// Group and item of the set; in group kBesideItems what else it holds.
using SetPlace = std::pair<int, int>;
inline constexpr int kBesideItems = -1;
/// The number of a table, and row and column in it.
using CellPlace = std::tuple<std::size_t, int, int>;

/// What has changed on a page. Controls and tables go by their numbers in a PageMirror.
struct PageChange {
  Changes<SetPlace, String> set;
  Changes<std::size_t, ControlState> controls;
  Changes<CellPlace, CellState> cells;
  Changes<int, TabState> tabs;

  [[nodiscard]] bool Empty() const {
    return set.Empty() && controls.Empty() && cells.Empty() && tabs.Empty();
  }
  [[nodiscard]] std::size_t Size() const { return set.Size() + controls.Size() + cells.Size() + tabs.Size(); }
  void Add(const PageChange& later) {
    set.AddAll(later.set);
    controls.AddAll(later.controls);
    cells.AddAll(later.cells);
    tabs.AddAll(later.tabs);
  }
};

}  // namespace korva
