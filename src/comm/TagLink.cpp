#include "comm/TagLink.h"

#include <utility>

#include "lang/TextNumbers.h"
#include "settings/TagPassword.h"
#include "text/Fields.h"

namespace zek {

void TagLink::Open(Topic& topic, const Attempt& attempt, Steps& steps) {
  pollFaultReported_ = false;
  if (!LogOn() || !attempt.IsLatest()) return;
  if (!topic.Tag.empty()) {
    tags_.TagWrite(topic.Tag, "2");
    topic.TagState = 2;
  }
  steps.After(topic.Tag.empty() ? 0 : p_.settings.ConnectDelayTime, [this, name = topic.TopicName] {
    if (tags_.TagWrite(name, "transparent open") == 0) return;
    open_ = name;
    events_.OnLinkUp();
  });
}

void TagLink::Abandon(Topic& topic, Steps& steps) {
  open_.clear();
  if (!topic.Tag.empty()) {
    tags_.TagWrite(topic.Tag, "1");
    topic.TagState = 1;
  }
  steps.After(topic.Tag.empty() ? 0 : p_.settings.DisconnectDelayTime, [this] { tags_.Close(); });
}

bool TagLink::Close(Topic& topic, Steps& steps) {
  if (tags_.TagWrite(topic.TopicName, "transparent close") == 0) return false;
  open_.clear();
  if (!topic.Tag.empty()) {
    topic.TagState = 1;
    steps.After(p_.settings.DisconnectDelayTime,
                [this, tag = topic.Tag] { tags_.TagWrite(tag, "1"); });
  }
  steps.After(0, [this] { tags_.Close(); });
  return true;
}

void TagLink::EndSession(TopicTable& topics) {
  if (!LogOn()) return;
  for (std::int16_t index = 0; index < topics.TopicCount(); ++index) {
    Topic& topic = topics[index];
    if (topic.Tag.empty() || topic.TagState == 0) continue;
    tags_.TagWrite(topic.Tag, "0");
    topic.TagState = 0;
  }
  tags_.Close();
}

bool TagLink::LogOn() {
  TagPassword password = ReadTagPassword(p_.profile);
  passwordLost_ = password.kind == TagPassword::Kind::Lost;
  if (passwordLost_) return false;
  password_ = std::move(password.text);
  return tags_.Open(p_.profile.ReadIni("General", "ComputerName", ""),
                    p_.profile.ReadIni("General", "UserName", ""), password_) != 0;
}

LinkState TagLink::State() const {
  return open_.empty() ? LinkState::Closed : LinkState::Connected;
}

void TagLink::Poll() {
  const std::string reply = tags_.TagRead(open_);
  if (reply.empty()) {
    ReportPollFault();
  } else {
    events_.OnLinkText(reply + "\n");
  }
}

void TagLink::ReportPollFault() {
  const std::string fault = TakeFault();
  if (fault.empty() || std::exchange(pollFaultReported_, true)) return;
  events_.OnLinkFault(fault);
}

bool TagLink::Write(std::string_view command) {
  return tags_.TagWrite(open_, std::string(command) + (NeedsReturn(command) ? "\r" : "")) != 0;
}

TextLoss TagLink::Receive(std::string_view bytes, const HandOver& handOver) {
  handOver(bytes);
  return TextLoss::None;
}

// The controller may repeat the password. A short one is kept: it may occur by chance.
std::string_view TagLink::Secret() const {
  constexpr std::size_t tooShort = 4;
  return password_.size() < tooShort ? std::string_view() : password_;
}

std::string TagLink::Describe(const Topic& topic) const {
  const std::string name = "Topic '" + topic.TopicName + "'";
  return topic.Tag.empty() ? name : "Tag '" + topic.Tag + "' (" + name + ")";
}

std::string TagLink::Where(const Topic& /*topic*/) const {
  return p_.profile.ReadIni("General", "ComputerName", "");
}

// The server is not at fault if it was not asked.
std::int32_t TagLink::ErrorText() const {
  return passwordLost_ ? text::kTagPasswordLost : text::kTagError;
}

// The object's message may repeat the arguments of a call, the password among them.
std::string TagLink::TakeFault() {
  if (passwordLost_) return p_.messages.Text(text::kTagPasswordLost);
  return WithoutSecret(tags_.TakeFault(), password_);
}

}  // namespace zek
