#include "comm/TopicTable.h"

#include <algorithm>

#include "lang/Messages.h"
#include "lang/TextNumbers.h"
#include "text/Fields.h"

namespace zek {
std::optional<Topic> ParseTopic(std::string_view entry, bool tagMode) {
  if (entry.starts_with(';') || entry.find('=') == std::string_view::npos) return std::nullopt;
  const std::string_view name = GetField(entry, 0, "=");
  const std::string_view fields = GetField(entry, 1, "=");
  const std::string_view list = GetField(fields, 0, ",");
  Topic topic;
  topic.TopicName = tagMode ? std::string(name) : UpperCase(name);
  topic.ShowInList = EqualNoCase(list, "YES") || list == "1";
  const bool zek2 = GetField(fields, 1, ",").find('2') != std::string_view::npos;
  topic.TopicType = zek2 ? Generation::Zek2 : Generation::Zek1;
  topic.Address = UpperCase(Trim(GetField(fields, 2, ",")));
  topic.Description = GetField(fields, 3, ",");
  topic.Tag = GetField(fields, 4, ",");
  topic.HasDus = !GetField(topic.Address, 2, ":").empty();
  return topic;
}

std::string TopicText(const Topic& topic) {
  return topic.Description + " [" + topic.Address + "/" + topic.TopicName + "]";
}

void TopicTable::LoadTopics(const Profile& profile, const Settings& settings,
                            const LanguageTexts& texts, Prompts& prompts) {
  const std::vector<Topic> before = std::exchange(topics_, {});
  std::size_t leftOut = 0;
  const ProfileSection section = profile.ReadSection("Topics", kTopicsBuffer);
  for (const std::string& entry : section.entries) {
    std::optional<Topic> topic = ParseTopic(entry, settings.TagMode);
    if (!topic) continue;
    for (const Topic& old : before)
      if (old.TopicName == topic->TopicName && old.Tag == topic->Tag)
        topic->TagState = old.TagState;
    if (topics_.size() == kMaxTopics) {
      ++leftOut;
    } else {
      topics_.push_back(std::move(*topic));
    }
  }
  if (section.cut) {
    prompts.Show(Icon::Exclamation,
                 texts.Text(text::kTopicsCut) + "\r\n" + std::to_string(section.length) + " (>" +
                     std::to_string(kTopicsBuffer) + ")\r\n" + texts.Text(text::kTopicsCutAdvice));
  }
  if (leftOut > 0) {
    prompts.Show(Icon::Exclamation, Message(texts.Text(text::kTooManyTopics),
                                            {std::to_string(kMaxTopics), std::to_string(leftOut)}));
  }
}

std::int16_t TopicTable::Find(std::string_view name) const {
  const auto found = std::find_if(topics_.begin(), topics_.end(), [name](const Topic& topic) {
    return EqualNoCase(topic.TopicName, name);
  });
  return found == topics_.end() ? std::int16_t{-1}
                                : static_cast<std::int16_t>(found - topics_.begin());
}

std::vector<std::int16_t> TopicTable::Listed(const Settings& settings) const {
  std::vector<std::int16_t> listed;
  if (settings.DialogMode == 0) return listed;
  for (std::int16_t index = 0; index < TopicCount(); ++index) {
    if (settings.DialogMode == 2 || (*this)[index].ShowInList) listed.push_back(index);
  }
  if (settings.TopicComboIndex == 0) {
    std::stable_sort(listed.begin(), listed.end(), [this](std::int16_t a, std::int16_t b) {
      return SortKey(TopicText((*this)[a])) < SortKey(TopicText((*this)[b]));
    });
  }
  return listed;
}

}  // namespace zek
