#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "comm/TopicTable.h"
#include "lang/LanguageTexts.h"
#include "settings/Profile.h"
#include "system/Prompts.h"

namespace zek {

/// The buffer into which the section of an object is read whole.
inline constexpr std::size_t kObjectBuffer = 2048;

/// The pictures of the browser's tree, with the numbers of its image list.
enum class NodePicture : std::int8_t {
  EmptyObject = 1,
  Object = 2,
  TimeControl1 = 3,  // of a ZEK1 controller
  TimeControl2 = 4,
};

/// A node of the browser: an object (root) or one of its time controls (child).
struct TreeNode {
  std::string Key;   // "_" object; of a time control "_" object "_" pick-list table "_" child
  std::string Text;  // "Description [Address/TopicName]" or "label [name]"
  NodePicture Picture = NodePicture::EmptyObject;
  std::int16_t Object = 0;            // the object's index in the topic table
  std::optional<std::size_t> Parent;  // place of the root node in the tree; a root has none
  std::string TscName;                // the time control's name; "" of a root
  std::int32_t PickListTable = 0;     // the number behind "TXI_"; 0 = none

  bool IsTimeControl() const { return Parent.has_value(); }
};

/// All nodes in the order in which the browser shows them: each root before its children.
using ObjectTree = std::vector<TreeNode>;

/// Builds the tree from the objects' sections of the settings file. Tells of a section that was
/// cut and of labels with "[", which are left out.
ObjectTree BuildObjectTree(const TopicTable& topics, const Profile& profile,
                           const LanguageTexts& texts, Prompts& prompts);

/// "root" or "root\child".
std::string FullPath(const ObjectTree& tree, std::size_t node);

/// "TOPIC" or "TOPIC/TSC": the name by which `FindNode` finds the node.
std::string NodeName(const ObjectTree& tree, const TopicTable& topics, std::size_t node);

/// The place of the node that "TOPIC" or "TOPIC/TSC" names, in any case.
std::optional<std::size_t> FindNode(const ObjectTree& tree, const TopicTable& topics,
                                    std::string_view name);

}  // namespace zek
