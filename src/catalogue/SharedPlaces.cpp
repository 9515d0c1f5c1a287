#include "catalogue/SharedPlaces.h"

#include <map>
#include <set>
#include <string>
#include <utility>

#include "catalogue/CopyFormat.h"
#include "formats/LineOwner.h"
#include "lang/TextNumbers.h"
#include "text/Fields.h"

namespace zek {
namespace {

void TellBlocks(const ObjectTree& tree, const TopicTable& topics, const Messages& messages) {
  std::map<std::pair<std::int16_t, int>, std::set<std::string>> controls;  // by object and block
  for (std::int16_t object = 0; object < topics.TopicCount(); ++object) {
    if (topics[object].TopicType == Generation::Zek2) continue;
    for (const std::string& name : PltControlsOf(tree, object))
      controls[{object, BlockOf(name)}].insert(name);
  }
  for (const auto& [place, names] : controls) {
    if (names.size() < 2) continue;
    std::string list;
    for (const std::string& name : names) list += (list.empty() ? "" : ", ") + name;
    messages.Tell(Icon::Exclamation, text::kBlockShared, {topics[place.first].TopicName, list});
  }
}

// Tells whether the node, and not another one, stands for a catalogue.
bool Represents(const TreeNode& node, Generation generation, Catalogue catalogue) {
  const bool ofControl = KindOf(catalogue).ofControl && generation == Generation::Zek2;
  return node.IsTimeControl() == ofControl;
}

// Collects the nodes that use the file of another node.
class FileUsers {
 public:
  FileUsers(const ObjectTree& tree, const TopicTable& topics) : tree_(tree), topics_(topics) {}

  void Add(std::size_t node) {
    const Topic& topic = topics_[tree_[node].Object];
    const LocalFileNames files = LocalFilesOf(topic, tree_[node]);
    for (const Catalogue catalogue : {Catalogue::Sdc, Catalogue::Wdc, Catalogue::Ovc}) {
      if (Represents(tree_[node], topic.TopicType, catalogue)) Add(node, files[catalogue]);
    }
  }

  const std::string& Lines() const { return lines_; }

 private:
  void Add(std::size_t node, const std::string& file) {
    const std::string name = NodeName(tree_, topics_, node);
    const std::string& first = users_.emplace(UpperCase(file), name).first->second;
    if (first != name && told_.emplace(first, name).second) {
      lines_.append("\n").append(first).append(", ").append(name).append(": ").append(file);
    }
  }

  const ObjectTree& tree_;
  const TopicTable& topics_;
  std::map<std::string, std::string> users_;  // by file: the name of the first node
  std::set<std::pair<std::string, std::string>> told_;
  std::string lines_;
};

}  // namespace

void TellSharedPlaces(const ObjectTree& tree, const TopicTable& topics, const Messages& messages) {
  TellBlocks(tree, topics, messages);
  FileUsers users(tree, topics);
  for (std::size_t node = 0; node < tree.size(); ++node) users.Add(node);
  if (users.Lines().empty()) return;
  messages.prompts.Show(Icon::Exclamation, messages.Text(text::kFilesShared) + users.Lines());
}

}  // namespace zek
