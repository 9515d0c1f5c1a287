#include <gtest/gtest.h>
#include <sstream>

#include "commands/Commands.h"
#include "support/SessionPlayer.h"
#include "text/Lines.h"

namespace zek::cli {
namespace {

// Runs the command line program in a test session: "run get WDC ONE" gives its status, its output,
// its messages, and what the controller received. "input" is its standard input, "_" a blank.
// "wdc LINE", "sdc LINE" and "ovc LINE" add to the local copies of TWO/TSC1, which "plan" empties.
// "titles FILE" shows the titles in a picture, "shows FILE TEXT" the lines with TEXT in a file.
// "tag-reply 15 text" is what the tag server replies after 15 polls; "tag-calls" shows its calls,
// each of which lasts 100 ms after "tag-blocks 100".
class CommandPlayer : public test::SessionPlayer {
 public:
  CommandPlayer() {
    files.files["/zek/zek_lang.046"] = "0=Svenska" + test::NamedLanguage();
    profile.WriteIni("General", "Language", "046");
  }

 protected:
  std::string Do(const std::string& what, const std::string& rest) override {
    if (what == "no-language") files.files.erase("/zek/zek_lang.046");
    if (what == "dus") pieces = false;
    if (what == "input") input_ = rest + "\n";
    for (const auto& [kind, copy] : kCopies) {
      if (what == "plan") files.files[copy].clear();
      if (what == kind) files.files[copy] += rest + "\r\n";
    }
    if (what == "event") events_ += "BEGIN:VEVENT/" + rest + "/END:VEVENT/";
    if (what == "event")
      files.files["/zek/d.ics"] = Lined("BEGIN:VCALENDAR/" + events_ + "END:VCALENDAR/");
    if (what == "broken") files.files["/zek/d.ics"] = Lined(rest);
    if (what == "rows") files.files["/zek/d.csv"] = Lined(rest);
    if (what == "long" || what == "folded") {
      const std::size_t size = std::stoul(rest);
      std::string& file = files.files["/zek/d.ics"] = "BEGIN:VCALENDAR\r\nX:";
      while (file.size() < size) file += what == "long" ? "aaaaaaaaa" : "aaaaaaaaa\r\n ";
    }
    if (what == "no-tags") tags.exists = false;
    if (what == "no-sockets") hasSockets_ = false;
    if (what == "tag-reply") {
      tags.replies.resize(std::stoul(rest.substr(0, rest.find(' '))));  // polls without a reply
      tags.replies.push_back(rest.substr(rest.find(' ') + 1));
    }
    if (what == "tag-blocks") tagServer.blocks = [ms = std::stoi(rest)](auto&) { return ms; };
    if (what == "tag-calls") return TagCalls();
    if (what == "titles") return Titles(rest);
    if (what == "shows")
      return LinesWith(rest.substr(0, rest.find(' ')), rest.substr(rest.find(' ') + 1));
    return what == "run" ? Run(rest) : SessionPlayer::Do(what, rest);
  }

 private:
  std::string Run(const std::string& line) {
    std::vector<std::string> words;
    std::istringstream all(line);
    for (std::string word; all >> word;) words.push_back(word);
    const Arguments arguments = ParseArguments(words);
    if (!arguments.error.empty()) return "usage";
    std::istringstream in(input_);
    std::ostringstream out;
    std::ostringstream err;
    CliPrompts cliPrompts(err);
    ZV_Proc program({files, profile, turn, cliPrompts, socket, dde, tagServer,
                     [] { return LocalTime{2026, 11, 21, 8, 30, 59}; }});
    program.settings.ProgramPath = "/zek/";
    program.settings.IniPath = "/ini/";
    turn.tick = [&program] { program.Tick(); };
    Console console{program, cliPrompts, in, out, err, [] {}, [this] { return hasSockets_; }};
    const auto ended = StartCommands(console, arguments);
    const ExitStatus status = ended ? *ended : RunCommand(console, arguments);
    turn.tick = [] {};
    return std::to_string(status) + ": " + Printed(out) + " <" + Printed(err) + ">" + Got();
  }
  std::string TagCalls() {
    std::string calls;
    for (const std::string& call : std::exchange(tags.calls, {})) calls += "[" + call + "] ";
    return Shown(calls);
  }
  std::string Titles(const std::string& file) {
    const std::string svg = test::Filled(files.files[file]);
    std::string titles;
    for (std::size_t at = 0; (at = svg.find("<title>", at)) != std::string::npos; at += 7)
      titles += "[" + svg.substr(at + 7, svg.find("</title>", at) - at - 7) + "]";
    return titles + (svg.find("kRuleAssumed") == std::string::npos ? " unexplained" : "");
  }
  std::string LinesWith(const std::string& file, const std::string& text) {
    const std::string content = test::Filled(files.files[file]);
    std::string shown;
    for (std::string_view rest = content; !rest.empty();) {
      const std::string_view line = TakeLine(rest);
      if (line.find(text) != std::string_view::npos) shown.append("[").append(line) += "]";
    }
    return shown;
  }
  static std::string Printed(const std::ostringstream& stream) {
    return Shown(Windows1252FromUtf8(test::Filled(stream.str())));
  }

  inline static const std::map<std::string, std::string> kCopies = {
      {"wdc", "/zek/f127_0_0_1_5100_3 Second TSC1.TXT"},
      {"sdc", "/zek/f127_0_0_1_5100_3 Second SDC.TXT"},
      {"ovc", "/zek/f127_0_0_1_5100_3 Second TSC1 EXC.TXT"}};

  std::string input_;
  std::string events_;
  bool hasSockets_ = true;
};

TEST(Commands, Cases) {
  for (const char* const file :
       {"commands.txt", "forecast.txt", "findings.txt", "import.txt", "plan.txt"}) {
    test::CheckCases(
        file, [](const test::TextCase& given) { return CommandPlayer().PlayAll(given.given); });
  }
}

}  // namespace
}  // namespace zek::cli
