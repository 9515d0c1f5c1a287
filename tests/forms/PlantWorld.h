#pragma once

#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <wx/app.h>

#include "catalogue/Catalogue.h"
#include "comm/SystemTransports.h"
#include "plant/PlantConversation.h"
#include "settings/FileProfile.h"
#include "support/ScriptedPrompts.h"
#include "support/TemporaryFolder.h"
#include "support/Transfers.h"
#include "system/DiskFiles.h"
#include "text/Windows1252.h"
#include "wxbase/WxTurn.h"

namespace zek::window {

/// A connection to a simulated plant in memory. Replies arrive in later turns of the event loop.
class PlantLink final : public Transport {
 public:
  explicit PlantLink(sim::Plant& plant) : plant_(plant) {}

  bool silent = false;            // accepts commands without an answer
  bool answersOpen = true;        // false: a connect gets no answer
  std::vector<std::string> sent;  // all bytes of each connection

  void Open(const LinkTarget& /*target*/) override {
    ++opened_;
    state_ = LinkState::Opening;
    conversation_.emplace(plant_);
    sent.emplace_back();
    if (!answersOpen) return;
    Post([this] {
      state_ = LinkState::Connected;
      Events().OnLinkText(conversation_->Greeting());
    });
  }
  bool Send(std::string_view bytes) override {
    if (state_ != LinkState::Connected) return false;
    sent.back() += bytes;
    if (silent) return true;
    Post([this, reply = conversation_->Receive(bytes)] {
      if (!reply.empty()) Events().OnLinkText(reply);
    });
    return true;
  }
  /// Sends a line without a request.
  void Say(const std::string& line) {
    Post([this, text = "0001>" + line + "\r\n\xFF"] { Events().OnLinkText(text); });
  }
  bool AllSent() const override { return true; }
  void Close() override {
    ++opened_;
    state_ = LinkState::Closed;
  }
  LinkState State() const override { return state_; }

 private:
  template <class Event>
  void Post(Event event) {
    wxTheApp->CallAfter([this, opened = opened_, event = std::move(event)] {
      if (opened == opened_) event();
    });
  }

  sim::Plant& plant_;
  std::optional<sim::PlantConversation> conversation_;
  LinkState state_ = LinkState::Closed;
  unsigned opened_ = 0;  // replies of an earlier connection are dropped
};

/// The outside world of the program: a real timer and a small plant with the ZEK1 controller SKOLA
/// and the ZEK2 controller KONTOR. It has its own program directory and settings.
struct PlantWorld {
  explicit PlantWorld(std::string_view commandLine = {}, std::string_view ini = kIni) {
    EXPECT_FALSE(files.Write(directory + "ZEKView.INI", ini).has_value());
    session.settings.ProgramPath = directory;
    session.settings.IniPath = directory;
    EXPECT_TRUE(LoadSettings(session.settings, commandLine, profile, session.texts, prompts));
    prompts.shown.clear();  // messages about settings that a test left out
    session.topics.LoadTopics(profile, session.settings, session.texts, prompts);
    ticks.Begin();
  }

  void Select(std::string_view node) {
    session.tree = BuildObjectTree(session.topics, profile, session.texts, prompts);
    SelectNode(session, FindNode(session.tree, session.topics, node).value());
  }
  /// A catalogue of the selected node, fetched or from its local copy.
  CatalogueContent Get(Catalogue catalogue) {
    return session.catalogues.GetCatalogue(session.selection.Id(catalogue)).value();
  }
  bool IsVerifying() const {
    return session.waits.CanCancel() &&
           session.status.Transfer.starts_with(session.Text(text::kVerifying));
  }

  static sim::Plant SmallPlant() {
    sim::Outstation old;
    old.weekday = {"VECKODAGAR",
                   {{1000,
                     " 1000 !AHU1        !MO..FR       !07:00..16:30             !21"
                     "       !17"}}};
    sim::Outstation modern;
    modern.generation = Generation::Zek2;
    modern.dus = 3;
    modern.controls = {{"TF2", {"VECKODAGAR", {}}, {"UNDANTAG", {}}, "21.5"}};
    return {{old, modern}};
  }

  static constexpr std::string_view kIni =
      "[General]\nSortTopics=no\nDialogMode=ALL\nDisconnectTime=300\nGetTSCTimeout=5\n"
      "AlwaysUseDSS=yes\n[TCPIP]\nSendTimeOut=5\n"
      "[GetDelay]\nDelayA=0\nDelayB=0\nDelayD=0\n"
      "[SaveDelay]\nDelayA=0\nDelayB=0\nDelayC=0\nDelayD=0\nDelayE=0\nDelayF=0\nDelayG=0\n"
      "DelayH=0\n"
      "[Topics]\nSKOLA=YES,ZEK1,plant:5100,Bj\xF6rkskolan\nKONTOR=YES,ZEK2,plant:5100:3,Kontoret\n"
      "[SKOLA]\nAHU1=Skolan/DUC 1/Ventilation aula;1\nVS1=Skolan/DUC 1/V\xE4rme\n"
      "[KONTOR]\nTF2=Kontoret/DUC 3/Till\xE4gg;1\n[TXI_1]\nAv=0\nDag=20.5\n";

  DiskFiles files;
  test::TemporaryFolder folder;
  std::string directory = folder.Name();
  FileProfile profile{files, directory + "ZEKView.INI"};
  WxTurn turn;
  test::ScriptedPrompts prompts;
  sim::Plant plant = SmallPlant();
  PlantLink link{plant};
  WxLater later;
  WithoutDde dde{later.Post()};
  SystemTags tags{later.Post()};
  ZV_Proc session{Outside{files, profile, turn, prompts, link, dde, tags}};
  WxTick ticks{[this] { session.Tick(); }};
};

}  // namespace zek::window
