#include <gtest/gtest.h>

#include "comm/LogPlace.h"
#include "comm/LogSearch.h"
#include "comm/LogText.h"
#include "support/CaseFile.h"
#include "support/TestSession.h"

namespace zek {
namespace {

// The log of a session, what a window shows of it, a search in it, and its file. Each word is a
// method or what happens; "see" gives what is shown, "files" the files of the log, "told" the
// messages. "many 300 x" adds the lines 0x to 299x, "open 5" shows a file of five lines.
class LogPlayer : public test::TestSession {
 public:
  std::string Play(const std::string& line) {
    const std::size_t blank = std::min(line.find(' '), line.size());
    const std::string what = line.substr(0, blank);
    const std::string text = line.substr(std::min(blank + 1, line.size()));
    const auto number = std::strtoll(text.c_str(), nullptr, 10);
    if (what == "add") proc.log.Add(text);
    if (what == "connect") proc.connection.Connect(1);
    if (what == "say") socket.SayNow(text);
    if (what == "sent") proc.log.AddSent(text);
    for (auto i = 0; what == "many" && i < number; ++i)
      proc.log.Add(std::to_string(i) + text.substr(text.find(' ') + 1));
    if (what == "open")
      proc.log.Replace(std::vector<std::string>(static_cast<std::size_t>(number), "file"));
    place_.Update();
    if (what == "page") place_.SetPage(static_cast<std::size_t>(number));
    if (what == "scroll") place_.ScrollBy(number);
    if (what == "go") place_.GoTo(number, text.ends_with("mark"));
    if (what == "by") place_.GoBy(number, text.ends_with("mark"));
    if (what == "end") place_.ToEnd();
    if (what == "all") place_.MarkAll();
    if (what == "seek") search_.Seek(text, false);
    if (what == "seek-times") search_.Seek(text, true);
    if (what == "nearest") Found(search_.Nearest(place_.Cursor()));
    if (what == "next") Found(search_.Next());
    if (what == "previous") Found(search_.Previous());
    if (what == "see") return See();
    if (what == "text")
      return Shown(
          LogText(proc.log, place_.Marked().first, place_.Marked().second, text == "times"));
    File(what, text);
    if (what == "files") return Files();
    if (what == "told") return Told();
    return {};
  }

 private:
  void Found(std::optional<std::uint64_t> line) {
    if (line) place_.GoToFound(*line);
  }

  void File(const std::string& what, const std::string& text) {
    if (what == "file")
      proc.sessionFile.Begin(proc.log, text.substr(0, text.find(' ')),
                             std::stoi(text.substr(text.find(' '))));
    if (what == "wait") proc.waits.WaitSeconds(static_cast<std::int16_t>(std::stoi(text)));
    if (what == "night") turn.Block(16LL * 3600 * 1000);
    if (what == "full") files.failWrites = FileError::Reason::Full;
    if (what == "well") files.failWrites.reset(), files.onAppend = [] {};
    if (what == "slow") files.onAppend = [this, text] { ++writes_, turn.Block(std::stoi(text)); };
    if (what == "end-session") proc.EndSessionFile();
    if (what == "keep") files.files["/s/" + text] = "";
  }

  std::string See() {
    place_.Update();
    search_.Update();
    const auto [first, end] = place_.Marked();
    const auto name = [this](std::uint64_t line) { return LogLine(proc.log, line, false); };
    std::string seen = name(place_.Top()) + ".." +
                       name(std::min(place_.Top() + place_.Page(), proc.log.End()) - 1);
    seen += first == end ? "" : " marked " + name(first) + ".." + name(end - 1);
    if (search_.Active())
      seen += " " + std::to_string(search_.Place()) + " of " + std::to_string(search_.Total());
    return seen + (place_.Follows() ? " follows" : "");
  }

  static std::string Shown(std::string text) {
    std::erase(text, '\r');
    std::replace(text.begin(), text.end(), '\n', '/');
    return text;
  }
  std::string Files() {
    std::string all;
    for (const auto& [path, bytes] : files.files) {
      if (!path.starts_with("/s/")) continue;
      const std::string content = Shown(bytes);
      const auto lines = std::count(content.begin(), content.end(), '/');
      all += (all.empty() ? "" : "; ") + path + " ";
      all += lines > 9 ? std::to_string(lines) + " lines, last " +
                             content.substr(content.rfind('/', content.size() - 2) + 1)
                       : content;
    }
    return all + (writes_ > 0 ? "; " + std::to_string(std::exchange(writes_, 0)) + " writes" : "");
  }
  std::string Told() {
    std::string told;
    for (const std::string& each : std::exchange(prompts.shown, {}))
      told += "<" + Shown(each) + ">";
    return told;
  }

  LogPlace place_{proc.log};
  LogSearch search_{proc.log};
  int writes_ = 0;
};

TEST(Log, Cases) {
  test::CheckCases("log.txt", [](const test::TextCase& each) {
    LogPlayer player;
    std::string outcome;
    for (const std::string& line : each.given) {
      const std::string shown = player.Play(line);
      if (!shown.empty()) outcome += shown + "\n";
    }
    return outcome;
  });
}

}  // namespace
}  // namespace zek
