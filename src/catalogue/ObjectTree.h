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

/// The size of the buffer for an object's section.
inline constexpr std::size_t kObjectBuffer = 2048;

/// The pictures of the browser's tree, numbered as in its image list.
enum class NodePicture : std::int8_t {
  EmptyObject = 1,
  Object = 2,
  TimeControl1 = 3,  // of a ZEK1 controller
  TimeControl2 = 4,
};

/// A node of the browser: an object (root) or one of its time controls (child).
struct TreeNode {
  std::string Key;   // object: "_" object; time control: "_" object "_" pick-list table "_" child
  std::string Text;  // "Description [Address/TopicName]" or "label [name]"
  NodePicture Picture = NodePicture::EmptyObject;
  std::int16_t Object = 0;            // the object's index in the topic table
  std::optional<std::size_t> Parent;  // index of the root node in the tree; empty for a root
  std::string TscName;                // the time control's name; "" of a root
  std::int32_t PickListTable = 0;     // the number after "TXI_"; 0 = no pick-list

  bool IsTimeControl() const { return Parent.has_value(); }
};

/// All nodes in the browser's order: each root before its children.
using ObjectTree = std::vector<TreeNode>;

/// Builds the tree from the objects' sections of the settings file. Shows a message for each
/// section that was cut and for labels with "[", which are left out; then `TellSharedPlaces`.
ObjectTree BuildObjectTree(const TopicTable& topics, const Profile& profile,
                           const LanguageTexts& texts, Prompts& prompts);

/// Returns the names of the "PLT" controls of an object, in the order of the tree.
std::vector<std::string> PltControlsOf(const ObjectTree& tree, std::int16_t object);

/// Returns "root" or "root\child".
std::string FullPath(const ObjectTree& tree, std::size_t node);

/// Returns the name that `FindNode` finds: "TOPIC" or "TOPIC/TSC".
std::string NodeName(const ObjectTree& tree, const TopicTable& topics, std::size_t node);

/// Returns the index of the node named "TOPIC" or "TOPIC/TSC", in upper or lower case.
std::optional<std::size_t> FindNode(const ObjectTree& tree, const TopicTable& topics,
                                    std::string_view name);

}  // namespace zek
