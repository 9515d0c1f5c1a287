// The password of the tag log-on appears in no text that a user can read, whatever error happens
// and whatever the tag object reports.

#include <gtest/gtest.h>
#include <iostream>

#include "export/BatchExport.h"
#include "support/TestSession.h"
#include "text/Fields.h"

namespace zek {
namespace {

TEST(Secret, IsHiddenInAnyCaseWhereverItStands) {
  const struct {
    const char* text;
    const char* secret;
    const char* hidden;
  } cases[] = {
      {"Open: user/hemligt failed", "hemligt", "Open: user/*** failed"},
      {"HEMLIGT hemligthemligt", "Hemligt", "*** ******"},
      {"p\xE5ssword", "P\xC5SS", "***word"},
      {"nothing", "hemligt", "nothing"},
      {"nothing", "", "nothing"},
      {"", "x", ""},
      {"aaa", "aa", "***a"},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(WithoutSecret(each.text, each.secret), each.hidden) << each.text;
  }
}

// The faults of a tag object in a session.
struct Mood {
  const char* name;
  bool opens;
  std::set<std::string> refused;
  bool echoes;
  bool readsEcho;  // its replies contain the password too
};

const Mood kMoods[] = {
    {"willing", true, {}, false, false},
    {"closed", false, {}, false, false},
    {"closed and talkative", false, {}, true, false},
    {"talkative", true, {}, true, false},
    {"repeating", true, {}, true, true},
    {"no transparent open", true, {"transparent open"}, true, false},
    {"no transparent close", true, {"transparent close"}, true, true},
    {"no commands", true, {"LIST\r", "LIST TSC1\r", "\x05"}, true, true},
    {"no link tag", true, {"2", "1", "0"}, true, false},
};

class TagSession : public test::TestSession {
 public:
  TagSession()
      : TestSession("TagMode=YES\r\nUserName=user\r\nComputerName=server\r\nLogCommands=yes\r\n") {
    proc.sessionFile.Begin(proc.log, "/zek/log-*.txt", 0);
  }

  void Set(const std::string& password, const Mood& mood) {
    profile.WriteIni("General", "Password", password);
    tags.opens = mood.opens;
    tags.refused = mood.refused;
    tags.echoes = mood.echoes;
    if (!mood.readsEcho) return;
    for (int i = 0; i < 400; ++i)
      tags.replies.push_back((i % 2 == 0 ? "0001>log-on " : "0001>ERROR ") + password + " ok\r\n");
  }

  // Does everything that a user can do in tag mode.
  void Use() {
    const std::int16_t net = proc.topics.Find("NET");
    proc.connection.Connect(net);
    proc.connection.SendCommand("LIST");
    proc.connection.SendCommand("LOGON " + profile.ReadIni("General", "Password", ""));
    proc.waits.WaitSeconds(2);
    Select("TWO/TSC1");
    static_cast<void>(Get());
    proc.transfer.CatalogueLines = {"1000 !TSC1"};
    prompts.answers = {true};
    static_cast<void>(SaveWhatWasGot(Catalogue::Wdc));
    BatchExport batch(proc);
    batch.Start();
    while (batch.Tick()) proc.waits.RunPending();
    batch.StoreReport();
    proc.connection.Disconnect();
    proc.connection.CloseAllTags();
    proc.EndSessionFile();
  }

  // All texts on the screen and in files afterwards.
  std::vector<std::string> Read() const {
    std::vector<std::string> all = prompts.shown;
    all.insert(all.end(), proc.log.Lines().begin(), proc.log.Lines().end());
    const StatusPanels& status = proc.status;
    all.insert(all.end(), {status.Connection, status.Progress, status.Transfer, status.Waiting,
                           status.Sequence});
    for (const auto& [path, bytes] : files.files) {
      if (path != "/ini/ZEKView.INI") all.push_back(path + bytes);
    }
    return all;
  }
};

constexpr const char* kPasswords[] = {"Hemligt7", "p\xE5ss\xF6rd", "%1%2", "***secret***",
                                      "a b c!"};

TEST(Password, StandsNowhere) {
  int texts = 0;
  int told = 0;
  for (const char* const password : kPasswords) {
    for (const Mood& mood : kMoods) {
      TagSession each;
      each.Set(password, mood);
      each.Use();
      EXPECT_EQ(each.tags.password, password) << "the object gets it";
      for (const std::string& text : each.Read()) {
        ++texts;
        if (UpperCase(text).find(UpperCase(password)) == std::string::npos) continue;
        ++told;
        ADD_FAILURE() << mood.name << ": " << text;
      }
    }
  }
  std::cout << "figure: texts without the password: " << texts - told << " of " << texts << '\n';
}

TEST(Password, EncryptedElsewhereIsToldAndNotSent) {
  TagSession each;
  each.Set("{dpapi}" + std::string(300, 'A'), kMoods[0]);
  each.Use();
  EXPECT_EQ(each.tags.password, "");
  EXPECT_FALSE(each.prompts.shown.empty());
  for (const std::string& call : each.tags.calls) EXPECT_FALSE(call.starts_with("Open")) << call;
}

}  // namespace
}  // namespace zek
