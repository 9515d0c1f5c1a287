#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "app/ZV_Proc.h"
#include "catalogue/Catalogue.h"
#include "catalogue/CommandText.h"
#include "catalogue/LastRead.h"
#include "settings/FileProfile.h"
#include "support/FakeTags.h"
#include "support/MemoryFiles.h"
#include "support/MemoryLink.h"
#include "support/ScriptedPrompts.h"
#include "support/VirtualTurn.h"

namespace zek::test {

/// A whole session in memory and virtual time, with one ZEK1 object (ONE, no DUS) and one ZEK2
/// object (TWO, DUS 3). Texts show their number: "T422".
class TestSession {
 public:
  explicit TestSession(const std::string& general = "") {
    files.files["/ini/ZEKView.INI"] =
        "[General]\r\nDisconnectTime=60\r\nGetTSCTimeout=5\r\nAlwaysUseDSS=no\r\n"
        "AlwaysUseLocal=no\r\nDialogMode=ALL\r\n" +
        general +
        "[GetDelay]\r\nDelayA=1\r\nDelayB=1\r\nDelayD=1\r\n"
        "[SaveDelay]\r\nDelayA=1\r\nDelayB=1\r\nDelayC=1\r\nDelayD=1\r\n"
        "DelayE=1\r\nDelayF=1\r\nDelayG=1\r\nDelayH=1\r\n"
        "[Topics]\r\nONE=YES,1,127.0.0.1:5100,First\r\nTWO=YES,2,127.0.0.1:5100:3,Second\r\n"
        "LOC=YES,1,,Local DDE\r\nNET=no,1,PLANT2,Network DDE,NETTAG\r\n"
        "[ONE]\r\nAHU1=Plant 1/DUC 1/Heating;2\r\n"
        "[TWO]\r\nTSC1=Plant 2/DUC 3/Air\r\nPLT7=Plant 2/DUC 3/Light;1\r\n";
    proc.settings.ProgramPath = "/zek/";
    proc.settings.IniPath = "/ini/";
    std::string language;
    for (int number = 0; number < 800; ++number) {
      language += std::to_string(number) + "=T" + std::to_string(number) + "\r\n";
    }
    proc.texts.Read(language);
    Load("");
    turn.tick = [this] { proc.connection.Tick(); };
  }

  // Start-up with that command line.
  void Load(std::string_view commandLine) {
    LoadSettings(proc.settings, commandLine, profile, proc.texts, prompts);
    proc.topics.LoadTopics(profile, proc.settings, proc.texts, prompts);
    proc.tree = BuildObjectTree(proc.topics, profile, proc.texts, prompts);
  }

  void Select(std::string_view node) {
    SelectNode(proc, FindNode(proc.tree, proc.topics, node).value());
  }

  // The selected node's catalogues. What was got is in `GotLines` and `GotDfv`.
  bool Get(Catalogue catalogue = Catalogue::Wdc) { return GetCatalogue(proc, catalogue); }
  const std::vector<std::string>& GotLines() const { return proc.transfer.CatalogueLines; }
  const std::string& GotDfv() const { return proc.transfer.CatalogueDfv; }
  int LinesDropped() const { return proc.transfer.LinesDropped; }
  /// `dfv`: nothing when the controller's value is not known.
  bool Save(std::vector<std::string> lines, Catalogue catalogue = Catalogue::Wdc,
            const std::optional<std::string>& dfv = ".") {
    Put(std::move(lines), dfv);
    return SaveCatalogue(proc, catalogue);
  }
  bool SaveWhatWasGot(Catalogue catalogue) { return SaveCatalogue(proc, catalogue); }
  /// Saves while an editor's table holds what its lines do not.
  bool SaveWithout(std::vector<std::string> notInLines, std::vector<std::string> lines) {
    proc.transfer.NotInLines = std::move(notInLines);
    return Save(std::move(lines));
  }
  bool Sendable(std::vector<std::string> lines) {
    Put(std::move(lines), ".");
    return CheckSendable(proc, Catalogue::Wdc);
  }

  // What a write is compared with.
  LastRead ReadBefore(Catalogue catalogue = Catalogue::Wdc) const {
    return LastReadOf(proc, catalogue);
  }
  void ReadLocalCopyBefore() { RememberLocalCopy(proc, Catalogue::Wdc); }
  void ReadAnotherBefore() { proc.transfer.Last.LocalFile = "another catalogue"; }
  bool Verifying() const { return proc.transfer.Verifying; }
  /// Another reader has fetched a catalogue of this topic whole, or none has.
  void FetchedBefore(std::int16_t topic) {
    proc.transfer.CatalogueLoaded = true;
    proc.transfer.LoadedTopic = topic;
  }

  // Its local copy.
  bool LoadCopy(Catalogue catalogue) { return LoadLocalCopy(proc, catalogue); }
  bool Store(std::vector<std::string> lines) {
    Put(std::move(lines), std::nullopt);
    return StoreLocalCopy(proc, Catalogue::Wdc, std::nullopt);
  }
  bool Erase() { return EraseLocalCopy(proc, Catalogue::Wdc); }
  bool Restore(const KeptCopy& kept) { return RestoreLocalCopy(proc, Catalogue::Wdc, kept); }
  auto Compare(const KeptCopy& kept) const { return CompareWithKept(proc, Catalogue::Wdc, kept); }
  std::vector<KeptCopy> Kept() { return HistoryOf(proc, Catalogue::Wdc).Kept(); }

  MemoryFiles files;
  FileProfile profile{files, "/ini/ZEKView.INI"};
  VirtualTurn turn;
  ScriptedPrompts prompts;
  MemoryLink socket{turn};
  MemoryLink dde{turn};
  FakeTags tags;
  ZV_Proc proc{Outside{files, profile, turn, prompts, socket, dde, tags}};

 private:
  void Put(std::vector<std::string> lines, const std::optional<std::string>& dfv) {
    proc.transfer.CatalogueLines = std::move(lines);
    proc.transfer.CatalogueDfv = dfv.value_or(".");
    proc.transfer.DfvKnown = dfv.has_value();
  }
};

}  // namespace zek::test
