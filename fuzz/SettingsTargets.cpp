#include <array>
#include <tuple>

#include "Demand.h"
#include "MemoryProfile.h"
#include "Targets.h"
#include "catalogue/ObjectTree.h"
#include "formats/ExceptionText.h"
#include "settings/Settings.h"
#include "system/OtherPrompts.h"
#include "text/Lines.h"

namespace zek::fuzz {
namespace {

LogPrompts NoPrompts() {
  return LogPrompts([](const std::string& /*line*/) {});
}

using TopicParts =
    std::tuple<std::string, std::string, std::string, Generation, bool, std::string, bool>;

TopicParts PartsOf(const Topic& topic) {
  return {topic.TopicName,  topic.Address, topic.Description, topic.TopicType,
          topic.ShowInList, topic.Tag,     topic.HasDus};
}

std::string EntryOf(const Topic& topic) {
  return topic.TopicName + "=" + (topic.ShowInList ? "YES," : "no,") +
         std::to_string(static_cast<int>(topic.TopicType)) + "," + topic.Address + "," +
         topic.Description + "," + topic.Tag;
}

using NodeParts = std::tuple<std::string, std::string, std::string, std::int32_t>;

NodeParts PartsOf(const TreeNode& node) {
  return {node.Key, node.Text, node.TscName, node.PickListTable};
}

// "label [name]" and the table as the line that they came from.
std::string EntryOf(const TreeNode& node) {
  const std::size_t bracket = node.Text.find('[');
  return node.Text.substr(bracket + 1, node.Text.size() - bracket - 2) + "=" +
         node.Text.substr(0, bracket - 1) + ";" + std::to_string(node.PickListTable);
}

TopicTable OneTopic(std::int16_t type) {
  const MemoryProfile profile("[Topics]\r\nONE=YES," + std::to_string(type) + ",,One\r\n");
  LogPrompts prompts = NoPrompts();
  TopicTable topics;
  topics.LoadTopics(profile, {}, {}, prompts);
  return topics;
}

}  // namespace

// The first line is a value that is written; the rest is the file.
void Settings(std::string_view input) {
  const LanguageTexts texts;
  LogPrompts prompts = NoPrompts();
  const std::string value(TakeLine(input));
  MemoryProfile profile{std::string(input)};
  zek::Settings settings;
  if (LoadSettings(settings, "", profile, texts, prompts)) {
    Demand(settings.DisconnectTicks >= 300 && settings.GetTSCTimeoutTicks >= 25,
           "times keep their minimum");
  }
  ReadExceptionOptions({profile, {texts, prompts}}, Generation::Zek2);
  const std::string other = profile.ReadIni("General", "SortTopics", "-");
  if (profile.WriteIni("General", "Language", value)) return;
  const std::string once = profile.Text();
  const std::string read = profile.ReadIni("General", "Language", "?");
  Demand(value.find(read) != std::string::npos, "a value that was written is read");
  Demand(profile.ReadIni("General", "SortTopics", "-") == other, "no other value changes");
  Demand(!profile.WriteIni("General", "Language", value) && profile.Text() == once,
         "writing a value again changes nothing");
}

void Language(std::string_view input) {
  std::array<std::string, 6> read;
  std::string built;
  LanguageTexts texts;
  texts.Read(input);
  for (std::size_t number = 0; number < read.size(); ++number) {
    read.at(number) = texts.Text(static_cast<std::int32_t>(number));
    built += std::to_string(number) + "=" + read.at(number) + "\r\n";
  }
  LanguageTexts again;
  again.Read(built);
  for (std::size_t number = 0; number < read.size(); ++number) {
    Demand(again.Text(static_cast<std::int32_t>(number)) == read.at(number),
           "a text that was built reads the same");
  }
}

// The entries of section "Topics".
void Topics(std::string_view input) {
  const MemoryProfile profile("[Topics]\r\n" + std::string(input));
  LogPrompts prompts = NoPrompts();
  zek::Settings settings;
  settings.TagMode = input.size() % 2 == 1;
  settings.DialogMode = 2;
  TopicTable topics;
  topics.LoadTopics(profile, settings, {}, prompts);
  Demand(topics.Listed(settings).size() == static_cast<std::size_t>(topics.TopicCount()),
         "every topic is listed once");
  for (std::int16_t index = 0; index < topics.TopicCount(); ++index) {
    const auto again = ParseTopic(EntryOf(topics[index]), settings.TagMode);
    Demand(again && PartsOf(*again) == PartsOf(topics[index]),
           "a topic that was built is the same");
    Demand(topics.Find(topics[index].TopicName) <= index, "a topic is found by its name");
  }
}

// The entries of an object's section.
void Objects(std::string_view input) {
  const TopicTable topics = OneTopic(input.size() % 2 == 0 ? 1 : 2);
  LogPrompts prompts = NoPrompts();
  const auto treeOf = [&](std::string_view entries) {
    return BuildObjectTree(topics, MemoryProfile("[ONE]\r\n" + std::string(entries)), {}, prompts);
  };
  const ObjectTree tree = treeOf(input);
  std::string built;
  for (std::size_t node = 1; node < tree.size(); ++node) built += EntryOf(tree[node]) + "\r\n";
  if (built.size() >= kObjectBuffer) return;
  const ObjectTree again = treeOf(built);
  Demand(again.size() == tree.size(), "as many nodes are read as were built");
  for (std::size_t node = 0; node < tree.size(); ++node) {
    Demand(PartsOf(again[node]) == PartsOf(tree[node]), "a node that was built is the same");
    Demand(FindNode(tree, topics, NodeName(tree, topics, node)) <= node, "a node is found");
  }
}

}  // namespace zek::fuzz
