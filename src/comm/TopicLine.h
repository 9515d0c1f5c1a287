#pragma once

#include <string>

namespace zek {

/// How a message names a topic; often on a line of its own, see `Link::Describe`.
inline std::string TopicLine(const std::string& topicName) { return "Topic '" + topicName + "'"; }

/// Removes that line from a message for a list that names the topic itself.
inline std::string WithoutTopicLine(std::string message, const std::string& topicName) {
  const std::string line = "\r\n" + TopicLine(topicName);
  const std::size_t at = message.find(line);
  if (at == std::string::npos) return message;
  const std::size_t end = at + line.size();
  if (end == message.size() || message[end] == '\r') message.erase(at, line.size());
  return message;
}

}  // namespace zek
