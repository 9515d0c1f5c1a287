#include "app/TopicList.h"

#include <utility>

#include "app/StartSession.h"
#include "lang/TextNumbers.h"
#include "text/Fields.h"

namespace zek {
namespace {

constexpr std::string_view kSection = "Topics";
constexpr std::int16_t kListAll = 2;  // `DialogMode`
constexpr int kAnswerSeconds = 10;

// The topics of the file. The table has those that fit in a smaller buffer.
ProfileSection Section(const ZV_Proc& proc) {
  return proc.profile.ReadSection(kSection, kWholeSection);
}

// The line of a controller in the settings file as it is written there.
std::optional<std::pair<std::string, std::string>> LineOf(const ProfileSection& section,
                                                          const std::string& name) {
  for (const std::string& entry : section.entries) {
    const std::size_t equals = entry.find('=');
    if (equals == std::string::npos || entry.starts_with(';')) continue;
    if (EqualNoCase(entry.substr(0, equals), name))
      return std::pair(entry.substr(0, equals), entry.substr(equals + 1));
  }
  return std::nullopt;
}

// The number of the text that says why a line can't be written: it may have something that the user
// has not seen.
std::optional<std::int32_t> Obstacle(const ZV_Proc& proc, const ProfileSection& section,
                                     bool hasLine, const std::string& name) {
  if (hasLine && proc.topics.Find(name) < 0) return text::kTopicNotRead;
  const ProfileSection shown = proc.profile.ReadSection(kSection, kTopicsBuffer);
  const bool isCut = shown.cut && !shown.entries.empty() &&
                     EqualNoCase(GetField(shown.entries.back(), 0, "="), name);
  return section.cut || isCut ? std::optional(text::kTopicsTooLong) : std::nullopt;
}

bool Settle(ZV_Proc& proc, const std::optional<FileError>& error) {
  if (error) proc.ToUser().Tell(*error);
  LoadTopics(proc);
  proc.tree.clear();  // of the topics before; the browser builds its own when it opens
  proc.selection = {};
  return !error;
}

Contact Ask(ZV_Proc& proc, std::int16_t topic) {
  Connection& connection = proc.connection;
  connection.Connect(topic);
  const auto isConnected = [&] { return connection.CurrentTopic == topic; };
  if (isConnected() && connection.SendCommand("") && connection.IsPolled()) {
    proc.countdowns.DelayCountdown = TicksOf(kAnswerSeconds);
    proc.waits.While([&] {
      return isConnected() && connection.FirstLine.empty() && proc.countdowns.DelayCountdown > 0;
    });
  }
  if (proc.waits.Stopped()) return Contact::Stopped;
  if (!isConnected()) return Contact::None;
  return connection.FirstLine.empty() ? Contact::Silent : Contact::Answers;
}

}  // namespace

bool SaveTopic(ZV_Proc& proc, const TopicEntry& entry) {
  if (!proc.connection.Disconnect()) return false;
  const ProfileSection section = Section(proc);
  const auto line = LineOf(section, entry.name);
  if (const auto obstacle = Obstacle(proc, section, line.has_value(), entry.name)) {
    proc.ToUser().Tell(Icon::Exclamation, *obstacle, {entry.name});
    return false;
  }
  const auto before = line.value_or(std::pair(entry.name, std::string()));
  auto error = proc.profile.WriteIni(kSection, before.first, TopicValue(entry, before.second));
  if (!error && proc.profile.ReadIni("General", "DialogMode", "").empty()) {
    error = proc.profile.WriteIni("General", "DialogMode", "ALL");
    proc.settings.DialogMode = kListAll;
  }
  return Settle(proc, error);
}

bool RemoveTopic(ZV_Proc& proc, const std::string& name) {
  if (!proc.connection.Disconnect()) return false;
  const auto line = LineOf(Section(proc), name);
  return Settle(proc, line ? proc.profile.RemoveIni(kSection, line->first) : std::nullopt);
}

Contact TestTopic(ZV_Proc& proc, const TopicEntry& entry) {
  Waits::Cancellable cancellable(proc.waits);
  if (!proc.connection.Disconnect()) return Contact::None;
  const auto line = LineOf(Section(proc), entry.name);  // has the topic's tag
  const std::string value = TopicValue(entry, line ? line->second : std::string());
  const auto topic = ParseTopic(entry.name + "=" + value, proc.settings.TagMode);
  if (!topic) return Contact::None;
  const std::int16_t index = proc.topics.Add(*topic);
  const Contact contact = Ask(proc, index);
  cancellable.TakeBack();
  // What the other side keeps open still needs its topic.
  if (proc.connection.Disconnect()) proc.topics.RemoveLast();
  return contact;
}

}  // namespace zek
