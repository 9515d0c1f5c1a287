#include "catalogue/CatalogueChanges.h"

#include <algorithm>
#include <map>
#include <set>
#include <span>
#include <tuple>

#include "formats/CatalogueLine.h"

namespace zek {
namespace {

using Entries = std::vector<CatalogueEntry>;

// The key for comparing two catalogues. Entries with equal keys correspond.
auto KeyOf(const CatalogueEntry& entry) {
  const bool unreadable = entry.kind == CatalogueEntry::Kind::Unreadable;
  return std::tuple(std::string_view(entry.control), entry.kind, entry.day, entry.time,
                    unreadable ? std::string_view(entry.says) : std::string_view());
}

bool ByKey(const CatalogueEntry& left, const CatalogueEntry& right) {
  return KeyOf(left) < KeyOf(right);
}

// True when both are equal; their stop values count only if both have one.
bool SaysTheSame(const CatalogueEntry& before, const CatalogueEntry& after) {
  return before.says == after.says &&
         (before.surplus.empty() || after.surplus.empty() || before.surplus == after.surplus);
}

struct Found {
  ChangeKind kind;
  DropReason reason;
  const CatalogueEntry* before;  // null for an added entry
  const CatalogueEntry* after;   // null for a removed entry
  std::int64_t lastDay;

  const CatalogueEntry& Entry() const { return before != nullptr ? *before : *after; }
};

class Comparison {
 public:
  Comparison(Entries before, Entries after, const CatalogueRules& rules)
      : rules_(rules), before_(std::move(before)), after_(std::move(after)) {
    for (const CatalogueEntry& entry : after_) numbers_.insert(entry.number);
    std::stable_sort(before_.begin(), before_.end(), ByKey);
    std::stable_sort(after_.begin(), after_.end(), ByKey);
    Walk();
    PairByNumber();
    JoinDays();
  }

  std::vector<CatalogueChange> Take() const {
    std::vector<CatalogueChange> changes;
    changes.reserve(found_.size());
    const auto text = [this](const CatalogueEntry* entry, std::int64_t lastDay) {
      return entry == nullptr ? std::string() : EntryText(*entry, lastDay, rules_);
    };
    for (const Found& each : found_) {
      changes.push_back({each.kind, text(each.before, each.lastDay), text(each.after, each.lastDay),
                         each.reason});
    }
    return changes;
  }

 private:
  // Walks through both sides by key.
  void Walk() {
    auto before = before_.cbegin();
    auto after = after_.cbegin();
    while (before != before_.cend() || after != after_.cend()) {
      const bool first =
          after == after_.cend() || (before != before_.cend() && !ByKey(*after, *before));
      const CatalogueEntry& key = first ? *before : *after;
      const auto beforeEnd = std::upper_bound(before, before_.cend(), key, ByKey);
      const auto afterEnd = std::upper_bound(after, after_.cend(), key, ByKey);
      Match({before, beforeEnd}, {after, afterEnd});
      before = beforeEnd;
      after = afterEnd;
    }
  }

  void Match(std::span<const CatalogueEntry> before, std::span<const CatalogueEntry> after) {
    std::vector<const CatalogueEntry*> left;
    for (const CatalogueEntry& entry : after) left.push_back(&entry);
    std::vector<const CatalogueEntry*> unmatched;
    for (const CatalogueEntry& entry : before) {
      const auto same = std::find_if(left.begin(), left.end(), [&entry](const auto* other) {
        return SaysTheSame(entry, *other);
      });
      if (same == left.end()) {
        unmatched.push_back(&entry);
        continue;
      }
      if (!entry.surplus.empty() && (*same)->surplus.empty()) {
        Add(ChangeKind::Dropped, DropReason::PltStopValue, &entry, *same);
      }
      left.erase(same);
    }
    const std::size_t pairs = std::min(unmatched.size(), left.size());
    for (std::size_t i = 0; i < pairs; ++i)
      Add(ChangeKind::Changed, DropReason::None, unmatched[i], left[i]);
    for (std::size_t i = pairs; i < unmatched.size(); ++i) AddGone(*unmatched[i]);
    for (std::size_t i = pairs; i < left.size(); ++i)
      Add(ChangeKind::Added, DropReason::None, nullptr, left[i]);
  }

  void AddGone(const CatalogueEntry& entry) {
    const DropReason reason = ReasonOf(entry);
    const bool dropped = reason != DropReason::None && reason != DropReason::Overwritten;
    Add(dropped ? ChangeKind::Dropped : ChangeKind::Removed, reason, &entry, nullptr);
  }

  DropReason ReasonOf(const CatalogueEntry& entry) const {
    if (rules_.shared && !rules_.control.empty() && entry.control != LineName(rules_.control)) {
      if (entry.number > 0 && numbers_.count(entry.number) > 0) return DropReason::Overwritten;
      return DropReason::OtherControl;
    }
    if (entry.starred) return DropReason::Starred;
    if (entry.kind == CatalogueEntry::Kind::Unreadable) return DropReason::Unreadable;
    if (entry.tooMany) return DropReason::TooManyExceptions;
    return DropReason::None;
  }

  void Add(ChangeKind kind, DropReason reason, const CatalogueEntry* before,
           const CatalogueEntry* after) {
    found_.push_back({kind, reason, before, after, 0});
    found_.back().lastDay = found_.back().Entry().day;
  }

  // Pairs an entry removed and an entry added on the same day in lines with the same number: the
  // entry moved to another time.
  void PairByNumber() {
    const auto placeOf = [](const CatalogueEntry& entry) {
      return std::tuple(std::string_view(entry.control), entry.kind, entry.day, entry.number);
    };
    std::map<decltype(placeOf(before_.front())), std::size_t> removed;
    for (std::size_t i = 0; i < found_.size(); ++i)
      if (found_[i].kind == ChangeKind::Removed) removed.emplace(placeOf(*found_[i].before), i);
    for (Found& each : found_) {
      if (each.kind != ChangeKind::Added) continue;
      const auto place = removed.find(placeOf(*each.after));
      if (place == removed.end()) continue;
      Found& other = found_[place->second];
      other = {ChangeKind::Changed, DropReason::None, other.before, each.after, other.lastDay};
      each.after = nullptr;
      removed.erase(place);
    }
    std::erase_if(found_, [](const Found& each) { return !each.before && !each.after; });
  }

  static auto SameChange(const Found& found) {
    const auto says = [](const CatalogueEntry* entry) {
      return entry == nullptr
                 ? std::tuple(std::string_view(), std::string_view())
                 : std::tuple(std::string_view(entry->says), std::string_view(entry->surplus));
    };
    const CatalogueEntry& entry = found.Entry();
    return std::tuple(found.kind, found.reason, std::string_view(entry.control), entry.kind,
                      entry.time, says(found.before), says(found.after));
  }

  void JoinDays() {
    std::stable_sort(found_.begin(), found_.end(), [](const Found& left, const Found& right) {
      return std::tuple(SameChange(left), left.lastDay) <
             std::tuple(SameChange(right), right.lastDay);
    });
    std::vector<Found> joined;
    for (const Found& each : found_) {
      if (!joined.empty() && SameChange(joined.back()) == SameChange(each) &&
          IsNextDay(rules_, joined.back().lastDay, each.lastDay)) {
        joined.back().lastDay = each.lastDay;
      } else {
        joined.push_back(each);
      }
    }
    std::stable_sort(joined.begin(), joined.end(), [](const Found& left, const Found& right) {
      return std::tuple(left.kind, left.reason, KeyOf(left.Entry())) <
             std::tuple(right.kind, right.reason, KeyOf(right.Entry()));
    });
    found_ = std::move(joined);
  }

  const CatalogueRules& rules_;
  Entries before_;
  Entries after_;
  std::set<int> numbers_;  // of the lines of `after_`
  std::vector<Found> found_;
};

void RemoveValue(Entries& entries) {
  std::erase_if(entries, [](const auto& e) { return e.kind == CatalogueEntry::Kind::Value; });
}

// A repeated entry counts once.
void RemoveRepeats(Entries& entries) {
  const auto whole = [](const CatalogueEntry& entry) {
    return std::tuple(KeyOf(entry), std::string_view(entry.says));
  };
  std::stable_sort(entries.begin(), entries.end(), [&whole](const auto& left, const auto& right) {
    return whole(left) < whole(right);
  });
  const auto end = std::unique(
      entries.begin(), entries.end(),
      [&whole](const auto& left, const auto& right) { return whole(left) == whole(right); });
  entries.erase(end, entries.end());
}

}  // namespace

std::vector<CatalogueChange> ChangesBetween(const CatalogueContent& before,
                                            const CatalogueContent& after,
                                            const CatalogueRules& rules) {
  Entries old = EntriesOf(before, rules);
  if (!after.dfv) RemoveValue(old);
  return Comparison(std::move(old), EntriesOf(after, rules), rules).Take();
}

std::vector<CatalogueChange> FaultsOf(const CatalogueContent& sent, const CatalogueContent& fetched,
                                      const CatalogueRules& rules) {
  Entries wanted = EntriesOf(sent, rules);
  Entries there = EntriesOf(fetched, rules);
  if (!sent.dfv) RemoveValue(there);
  RemoveRepeats(wanted);
  RemoveRepeats(there);
  if (rules.shared && !rules.control.empty()) {
    std::erase_if(there, [&](const CatalogueEntry& entry) {
      if (entry.control == LineName(rules.control)) return false;
      return std::none_of(wanted.begin(), wanted.end(), [&entry](const CatalogueEntry& each) {
        return KeyOf(each) == KeyOf(entry);
      });
    });
  }
  std::vector<CatalogueChange> faults =
      Comparison(std::move(wanted), std::move(there), rules).Take();
  for (CatalogueChange& fault : faults) {
    if (fault.kind == ChangeKind::Dropped) {
      fault.kind = fault.after.empty() ? ChangeKind::Removed : ChangeKind::Changed;
    }
    fault.reason = DropReason::None;
  }
  return faults;
}

}  // namespace zek
