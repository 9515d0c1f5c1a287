#include "app/TopicList.h"

#include <utility>

#include "app/StartSession.h"
#include "text/Fields.h"

namespace zek {
namespace {

constexpr std::string_view kSection = "Topics";
constexpr std::int16_t kListAll = 2;  // `DialogMode`

// The line of a controller in the settings file as it is written there.
std::optional<std::pair<std::string, std::string>> LineOf(const ZV_Proc& proc,
                                                          const std::string& name) {
  for (const std::string& entry : proc.profile.ReadSection(kSection, kTopicsBuffer).entries) {
    const std::size_t equals = entry.find('=');
    if (equals == std::string::npos || entry.starts_with(';')) continue;
    if (EqualNoCase(entry.substr(0, equals), name))
      return std::pair(entry.substr(0, equals), entry.substr(equals + 1));
  }
  return std::nullopt;
}

bool Settle(ZV_Proc& proc, const std::optional<FileError>& error) {
  if (error) proc.ToUser().Tell(*error);
  LoadTopics(proc);
  proc.tree.clear();  // of the topics before; the browser builds its own when it opens
  proc.selection = {};
  return !error;
}

}  // namespace

bool SaveTopic(ZV_Proc& proc, const TopicEntry& entry) {
  if (!proc.connection.Disconnect()) return false;
  const auto before = LineOf(proc, entry.name).value_or(std::pair(entry.name, std::string()));
  auto error = proc.profile.WriteIni(kSection, before.first, TopicValue(entry, before.second));
  if (!error && proc.profile.ReadIni("General", "DialogMode", "").empty()) {
    error = proc.profile.WriteIni("General", "DialogMode", "ALL");
    proc.settings.DialogMode = kListAll;
  }
  return Settle(proc, error);
}

bool RemoveTopic(ZV_Proc& proc, const std::string& name) {
  if (!proc.connection.Disconnect()) return false;
  const auto line = LineOf(proc, name);
  return Settle(proc, line ? proc.profile.RemoveIni(kSection, line->first) : std::nullopt);
}

Contact TestTopic(ZV_Proc& proc, const TopicEntry& entry) {
  if (!proc.connection.Disconnect()) return Contact::None;
  const auto topic = ParseTopic(entry.name + "=" + TopicValue(entry, {}), proc.settings.TagMode);
  if (!topic) return Contact::None;
  const std::int16_t index = proc.topics.Add(*topic);
  proc.connection.Connect(index);
  Contact contact = Contact::None;
  if (proc.connection.CurrentTopic == index) {
    const bool sent = proc.connection.SendCommand("");
    contact = sent && !proc.connection.ReplyLine.empty() ? Contact::Answers : Contact::Silent;
  }
  // What the other side keeps open still needs its topic.
  if (proc.connection.Disconnect()) proc.topics.RemoveLast();
  return contact;
}

}  // namespace zek
