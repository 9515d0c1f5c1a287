#include "comm/TagLink.h"

#include <utility>

#include "comm/TopicLine.h"
#include "lang/TextNumbers.h"
#include "settings/TagPassword.h"
#include "text/Fields.h"

namespace zek {
namespace {

constexpr int kAnswerSeconds = 30;  // for a call; the object may wait for a controller meanwhile
constexpr int kEndSeconds = 15;     // for all calls at the end of the program

}  // namespace

TagLink::Answer TagLink::Hand(TagServer::Call call) {
  const auto answer = std::make_shared<TagAnswer>();
  ++unanswered_;
  tags_.Begin(std::move(call), [this, answer](const TagAnswer& got) {
    *answer = got;
    if (fault_.empty()) fault_ = WithoutPassword(got.fault);
    Answered();
  });
  return answer;
}

void TagLink::Answered() {
  --unanswered_;
  silentTicks_ = 0;
}

// Without the password the server is not asked.
TagLink::Answer TagLink::LogOn() {
  TagPassword password = ReadTagPassword(p_.profile);
  passwordLost_ = password.kind == TagPassword::Kind::Lost;
  if (passwordLost_) return std::make_shared<TagAnswer>(TagAnswer{true, 0, {}, {}});
  password_ = std::move(password.text);
  const auto setting = [this](std::string_view key) {
    return p_.profile.ReadIni("General", key, "");
  };
  return Hand([computer = setting("ComputerName"), user = setting("UserName"),
               password = password_](TagObject& object, TagAnswer& answer) {
    answer.status = object.Open(computer, user, password);
  });
}

TagLink::Answer TagLink::Put(const std::string& tag, const std::string& value) {
  return Hand([tag, value](TagObject& object, TagAnswer& answer) {
    answer.status = object.TagWrite(tag, value);
  });
}

void TagLink::Switch(const std::string& lineTag, std::int16_t state) {
  if (lineTag.empty()) return;
  Put(lineTag, std::to_string(state));
  for (std::int16_t index = 0; index < p_.topics.TopicCount(); ++index) {
    if (p_.topics[index].Tag == lineTag) p_.topics[index].TagState = state;
  }
}

void TagLink::LogOff() {
  Hand([](TagObject& object, TagAnswer& answer) { answer.status = object.Close(); });
}

// A server that still owes an answer gets no new calls: they would all be made when it wakes up.
void TagLink::Open(const Topic& topic, const Attempt& /*attempt*/, Steps& steps) {
  pollFaultReported_ = silent_ = begun_ = failed_ = false;
  opening_.reset();
  closing_.reset();
  line_ = topic.Tag;
  Then(steps, [this] {
    fault_.clear();  // of the connection before, whose calls are answered only now
    logOn_ = LogOn();
    begun_ = !passwordLost_;
  });
  Then(steps, [this] {
    failed_ = logOn_->status == 0;
    if (!failed_) Switch(line_, 2);
  });
  Then(steps, [] {});
  steps.Add(
      line_.empty() ? 0 : p_.settings.ConnectDelayTime, [this] { return failed_; }, [] {});
  Then(steps, [this, name = topic.TopicName] { opening_ = Put(name, "transparent open"); });
  Then(steps, [this, name = topic.TopicName] {
    if (opening_->status == 0) return;
    open_ = name;
    events_.OnLinkUp();
  });
}

void TagLink::Then(Steps& steps, Steps::Action act) {
  steps.Add(
      kAnswerSeconds, [this] { return failed_ || unanswered_ == 0; },
      [this, act = std::move(act)] {
        if (!failed_ && unanswered_ > 0) {
          failed_ = silent_ = true;
          fault_ = p_.messages.Text(text::kTagSilent);
        }
        if (!failed_) act();
      });
}

void TagLink::AwaitAnswers(Steps& steps) {
  steps.Add(
      kAnswerSeconds, [this] { return silent_ || unanswered_ == 0; }, [] {});
}

void TagLink::Abandon(const Topic& topic, Steps& steps) {
  open_.clear();
  if (!begun_) return;
  const bool refused = !opening_ || (opening_->arrived && opening_->status == 0);
  if (!refused) Put(topic.TopicName, "transparent close");
  Switch(line_, 1);
  steps.After(line_.empty() ? 0 : p_.settings.DisconnectDelayTime, [this] { LogOff(); });
  AwaitAnswers(steps);
}

// If the wait is ended before the answer, by the user or the end of the program, it counts as
// closed: the call is made all the same.
bool TagLink::Close(const Topic& topic, const Attempt& attempt, Steps& steps) {
  if (!closing_) closing_ = Put(topic.TopicName, "transparent close");
  const Answer answer = closing_;
  p_.waits.While([&] { return !answer->arrived && !open_.empty(); });
  if (!attempt.IsLatest()) return true;
  closing_.reset();
  if (open_.empty()) return true;  // given up meanwhile
  if (answer->arrived && answer->status == 0) return false;
  open_.clear();
  if (!line_.empty()) {
    steps.After(p_.settings.DisconnectDelayTime, [this, line = line_] { Switch(line, 1); });
  }
  steps.After(0, [this] { LogOff(); });
  AwaitAnswers(steps);
  return true;
}

void TagLink::AwaitAnswers() const {
  p_.waits.While([this] { return p_.countdowns.WaitCountdown > 0 && unanswered_ > 0; });
}

void TagLink::Finish() {
  const Waits::Finishing finishing(p_.waits);
  p_.countdowns.WaitCountdown = TicksOf(kEndSeconds);
  AwaitAnswers();
}

void TagLink::EndSession() {
  const Waits::Finishing finishing(p_.waits);
  p_.countdowns.WaitCountdown = TicksOf(kEndSeconds);
  const Answer logOn = LogOn();
  AwaitAnswers();
  if (logOn->arrived && logOn->status == 0) return;
  for (std::int16_t index = 0; index < p_.topics.TopicCount(); ++index) {
    if (p_.topics[index].TagState != 0) Switch(p_.topics[index].Tag, 0);
  }
  LogOff();
  AwaitAnswers();
}

LinkState TagLink::State() const {
  return open_.empty() ? LinkState::Closed : LinkState::Connected;
}

// Reads once all other calls are answered, so that a slow server does not collect reads.
void TagLink::Poll() {
  if (unanswered_ > 0) {
    if (++silentTicks_ >= TicksOf(kAnswerSeconds)) GiveUp();
    return;
  }
  ++unanswered_;
  tags_.Begin(
      [tag = open_](TagObject& object, TagAnswer& answer) { answer.text = object.TagRead(tag); },
      [this, tag = open_](const TagAnswer& answer) {
        Answered();
        TakeReply(tag, answer);
      });
}

void TagLink::TakeReply(const std::string& tag, const TagAnswer& answer) {
  if (tag != open_) return;
  if (!answer.text.empty()) return events_.OnLinkText(answer.text + "\n");
  const std::string fault = WithoutPassword(answer.fault);
  if (fault.empty() || std::exchange(pollFaultReported_, true)) return;
  events_.OnLinkFault(fault);
}

void TagLink::GiveUp() {
  silent_ = true;
  const std::string name = std::exchange(open_, {});
  if (!closing_) Put(name, "transparent close");
  Switch(line_, 1);
  LogOff();
  events_.OnLinkError({text::kTagSilent, {}});
}

bool TagLink::Write(std::string_view command) {
  const std::string tag = open_;
  const Answer answer = Put(tag, std::string(command) + (NeedsReturn(command) ? "\r" : ""));
  p_.waits.While([&] { return !answer->arrived && open_ == tag; });
  return answer->status != 0;
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
  const std::string name = TopicLine(topic.TopicName);
  return topic.Tag.empty() ? name : "Tag '" + topic.Tag + "' (" + name + ")";
}

std::string TagLink::Where(const Topic& /*topic*/) const {
  return p_.profile.ReadIni("General", "ComputerName", "");
}

// The server is not at fault if it was not asked.
std::int32_t TagLink::ErrorText() const {
  if (passwordLost_) return text::kTagPasswordLost;
  return silent_ ? text::kTagSilent : text::kTagError;
}

std::string TagLink::TakeFault() {
  if (passwordLost_) return p_.messages.Text(text::kTagPasswordLost);
  return std::exchange(fault_, {});
}

// The object's message may repeat the arguments of a call, the password among them.
std::string TagLink::WithoutPassword(const std::string& fault) const {
  return WithoutSecret(fault, password_);
}

}  // namespace zek
