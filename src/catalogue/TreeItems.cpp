#include "catalogue/TreeItems.h"

#include <algorithm>
#include <map>
#include <utility>

#include "lang/Messages.h"
#include "text/Fields.h"

namespace zek {
namespace {

using Groups = std::vector<std::string>;

// {"School", "DUC 1"} of "School/DUC 1/Air [AHU1]". A label has no "[".
Groups GroupsOf(std::string_view text) {
  Groups groups;
  std::string_view label = text.substr(0, text.find('['));
  for (std::size_t slash = 0; (slash = label.find('/')) != std::string_view::npos;) {
    groups.emplace_back(Trim(label.substr(0, slash)));
    label.remove_prefix(slash + 1);
  }
  return groups;
}

// The groups that all controls of an object have in common.
Groups GroupsOfAllBelow(const ObjectTree& tree, std::size_t object) {
  std::optional<Groups> common;
  for (std::size_t node = object + 1; node < tree.size() && tree[node].Parent == object; ++node) {
    const Groups groups = GroupsOf(tree[node].Text);
    if (!common) common = groups;
    const auto ends = std::mismatch(common->begin(), common->end(), groups.begin(), groups.end());
    common->erase(ends.first, common->end());
  }
  return common.value_or(Groups());
}

// The path without the controller's address, whose digits are in nearly every number.
std::string NamesOf(const ObjectTree& tree, std::size_t node) {
  const TreeNode& leaf = tree.at(node);
  std::string root = tree.at(leaf.Parent.value_or(node)).Text;
  const std::size_t address = root.rfind(" [") + 2;
  root.erase(address, root.rfind('/') + 1 - address);
  return leaf.Parent ? root + "\\" + leaf.Text : root;
}

class Grouping {
 public:
  void Add(std::string text, const Groups& groups, std::size_t node) {
    items_.push_back({std::move(text), GroupAt(groups), node});
  }
  std::vector<TreeItem> Take() { return std::move(items_); }

 private:
  std::optional<std::size_t> GroupAt(const Groups& groups) {
    std::optional<std::size_t> at;
    Groups path;
    for (const std::string& name : groups) {
      path.push_back(name);
      const auto [found, isNew] = places_.try_emplace(path, items_.size());
      if (isNew) items_.push_back({name, at, std::nullopt});
      at = found->second;
    }
    return at;
  }

  std::vector<TreeItem> items_;
  std::map<Groups, std::size_t> places_;  // index of a group's item
};

}  // namespace

std::string_view LastPart(std::string_view nodeText) {
  const std::size_t slash = nodeText.substr(0, nodeText.find('[')).rfind('/');
  return Trim(slash == std::string_view::npos ? nodeText : nodeText.substr(slash + 1));
}

std::vector<TreeItem> ItemsByObject(const ObjectTree& tree) {
  std::vector<TreeItem> items;
  for (std::size_t node = 0; node < tree.size(); ++node)
    items.push_back({tree[node].Text, tree[node].Parent, node});
  return items;
}

std::vector<TreeItem> ItemsByPlace(const ObjectTree& tree, const TopicTable& topics,
                                   std::string_view wholeObject) {
  Grouping grouping;
  for (std::size_t node = 0; node < tree.size(); ++node) {
    const std::string& text = tree[node].Text;
    if (tree[node].IsTimeControl()) {
      grouping.Add(std::string(LastPart(text)), GroupsOf(text), node);
    } else {
      grouping.Add(Message(wholeObject, {topics[tree[node].Object].Description}),
                   GroupsOfAllBelow(tree, node), node);
    }
  }
  return grouping.Take();
}

std::vector<std::size_t> NodesWith(const ObjectTree& tree, std::string_view wanted) {
  const std::string upper = UpperCase(wanted);
  std::vector<std::size_t> found;
  for (std::size_t node = 0; node < tree.size(); ++node) {
    const std::string path = UpperCase(FullPath(tree, node));
    const std::string names = UpperCase(NamesOf(tree, node));
    std::string_view rest = upper;
    bool all = true;
    while (!rest.empty() && all) {
      const std::string_view word = GetField(rest, 0, " ");
      const bool address = word.find_first_of(".:") != std::string_view::npos;
      all = (address ? path : names).find(word) != std::string::npos;
      rest.remove_prefix(std::min(word.size() + 1, rest.size()));
    }
    if (all) found.push_back(node);
  }
  return found;
}

std::vector<std::size_t> NodesAround(const std::vector<TreeItem>& items, std::size_t item) {
  const bool isLeaf = std::none_of(items.begin(), items.end(),
                                   [item](const TreeItem& each) { return each.parent == item; });
  if (isLeaf) item = items.at(item).parent.value_or(item);
  std::vector<bool> below(items.size());
  std::vector<std::size_t> nodes;
  for (std::size_t at = item; at < items.size(); ++at) {
    below[at] = at == item || (items[at].parent && below[*items[at].parent]);
    if (below[at] && items[at].node) nodes.push_back(*items[at].node);
  }
  return nodes;
}

}  // namespace zek
