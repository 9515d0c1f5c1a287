#include "catalogue/ObjectTree.h"

#include <algorithm>

#include "catalogue/SharedPlaces.h"
#include "formats/LineNumbers.h"
#include "lang/Messages.h"
#include "lang/TextNumbers.h"
#include "text/Fields.h"
#include "text/Numbers.h"

namespace zek {
namespace {

constexpr double kLargestTable = 2147483647;

std::int32_t TableNumber(std::string_view text) {
  return static_cast<std::int32_t>(std::clamp(Val(text), -kLargestTable, kLargestTable));
}

// Names with "{" or "(" keep their case; all others become upper case.
std::string EntryName(std::string_view written) {
  return written.find_first_of("{(") == std::string_view::npos ? UpperCase(written)
                                                               : std::string(written);
}

// Adds one object with its time controls to the tree.
class ObjectReader {
 public:
  ObjectReader(ObjectTree& tree, const Topic& topic, std::int16_t object)
      : tree_(tree), topic_(topic), object_(object), root_(tree.size()) {
    TreeNode node;
    node.Key = "_" + std::to_string(object);
    node.Text = TopicText(topic);
    node.Object = object;
    tree_.push_back(std::move(node));
  }

  // Returns a label that was refused because it contains "[", with its position; otherwise nothing.
  std::optional<std::string> TakeEntry(std::string_view entry) {
    if (entry.starts_with(';') || entry.find('=') == std::string_view::npos) return std::nullopt;
    const std::string name = EntryName(GetField(entry, 0, "="));
    const std::string_view value = GetField(entry, 1, "=");
    const std::string_view label = GetField(value, 0, ";");
    if (label.find('[') != std::string_view::npos) {
      return " (" + topic_.Address + "/" + topic_.TopicName + "/" + name + "/" +
             std::string(label) + ")";
    }
    if (!label.empty() && !name.empty())
      AddChild(name, label, TableNumber(GetField(value, 1, ";")));
    return std::nullopt;
  }

 private:
  void AddChild(const std::string& name, std::string_view label, std::int32_t table) {
    TreeNode node;
    node.Key = "_" + std::to_string(object_) + "_" + std::to_string(table) + "_" +
               std::to_string(children_++);
    node.Text = std::string(label) + " [" + name + "]";
    node.Picture = topic_.TopicType == Generation::Zek1 ? NodePicture::TimeControl1
                                                        : NodePicture::TimeControl2;
    node.Object = object_;
    node.Parent = root_;
    node.TscName = GetField(GetField(name, 0, "["), 0, "]");
    node.PickListTable = table;
    tree_.push_back(std::move(node));
    tree_[root_].Picture = NodePicture::Object;
  }

  ObjectTree& tree_;
  const Topic& topic_;
  std::int16_t object_;
  std::size_t root_;
  int children_ = 0;
};

}  // namespace

ObjectTree BuildObjectTree(const TopicTable& topics, const Profile& profile,
                           const LanguageTexts& texts, Prompts& prompts) {
  ObjectTree tree;
  for (std::int16_t index = 0; index < topics.TopicCount(); ++index) {
    const Topic& topic = topics[index];
    ProfileSection section;
    // The platform's functions do not accept a section without a name.
    if (!topic.TopicName.empty()) section = profile.ReadSection(topic.TopicName, kObjectBuffer);
    if (section.cut) {
      prompts.Show(Icon::Information, SectionCutMessage(texts, topic.TopicName, section.length));
    }
    ObjectReader reader(tree, topic, index);
    for (const std::string& entry : section.entries) {
      if (entry.empty()) break;
      if (const auto refused = reader.TakeEntry(entry)) {
        prompts.Show(Icon::Information, texts.Text(text::kLabelRefused) + *refused);
      }
    }
  }
  TellSharedPlaces(tree, topics, {texts, prompts});
  return tree;
}

std::vector<std::string> PltControlsOf(const ObjectTree& tree, std::int16_t object) {
  std::vector<std::string> names;
  for (const TreeNode& node : tree)
    if (node.Object == object && IsPltName(node.TscName)) names.push_back(node.TscName);
  return names;
}

std::string FullPath(const ObjectTree& tree, std::size_t node) {
  const TreeNode& leaf = tree.at(node);
  return leaf.Parent ? tree[*leaf.Parent].Text + "\\" + leaf.Text : leaf.Text;
}

std::string NodeName(const ObjectTree& tree, const TopicTable& topics, std::size_t node) {
  const TreeNode& named = tree.at(node);
  const std::string& topic = topics[named.Object].TopicName;
  return named.IsTimeControl() ? topic + "/" + named.TscName : topic;
}

std::optional<std::size_t> FindNode(const ObjectTree& tree, const TopicTable& topics,
                                    std::string_view name) {
  for (std::size_t node = 0; node < tree.size(); ++node)
    if (EqualNoCase(NodeName(tree, topics, node), name)) return node;
  return std::nullopt;
}

}  // namespace zek
