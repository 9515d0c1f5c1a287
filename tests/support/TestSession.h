#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "app/ZV_Proc.h"
#include "settings/FileProfile.h"
#include "support/FakeTags.h"
#include "support/MemoryFiles.h"
#include "support/MemoryTransport.h"
#include "support/ScriptedPrompts.h"
#include "support/VirtualTurn.h"

namespace zek::test {

/// A complete session in memory and virtual time, with one ZEK1 object (ONE, no DUS) and one ZEK2
/// object (TWO, DUS 3). Each text is its number: "T422".
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
    for (int number = 0; number < 1000; ++number) {
      language += std::to_string(number) + "=T" + std::to_string(number) + "\r\n";
    }
    proc.texts.Read(language);
    Load("");
    turn.tick = [this] { proc.Tick(); };
  }

  // Starts with that command line.
  void Load(std::string_view commandLine) {
    LoadSettings(proc.settings, commandLine, profile, proc.texts, prompts);
    proc.topics.LoadTopics(profile, proc.settings, proc.texts, prompts);
    proc.tree = BuildObjectTree(proc.topics, profile, proc.texts, prompts);
  }

  void Select(std::string_view node) {
    SelectNode(proc, FindNode(proc.tree, proc.topics, node).value());
  }

  // The selected node's catalogues. `Got` contains what was fetched.
  bool Get(Catalogue catalogue = Catalogue::Wdc) {
    const auto content = proc.catalogues.GetCatalogue(Id(catalogue));
    Got = content.value_or(CatalogueContent());
    return content.has_value();
  }
  const std::vector<std::string>& GotLines() const { return Got.lines; }
  std::string GotDfv() const { return Got.dfv.value_or("."); }
  int LinesDropped() const { return static_cast<int>(Got.linesDropped); }
  /// `dfv`: empty if the controller's value is not known.
  bool Save(std::vector<std::string> lines, Catalogue catalogue = Catalogue::Wdc,
            const std::optional<std::string>& dfv = ".") {
    return proc.catalogues.SaveCatalogue(Id(catalogue), {std::move(lines), dfv, {}}).Done();
  }
  bool SaveWhatWasGot(Catalogue catalogue) { return Save(Got.lines, catalogue, Got.dfv); }
  /// Saves while an editor's table contains entries that its lines do not.
  bool SaveWithout(std::vector<std::string> notInLines, std::vector<std::string> findings) {
    CatalogueDraft draft{{}, ".", std::move(notInLines)};
    draft.findings = std::move(findings);
    return proc.catalogues.SaveCatalogue(Id(), draft).Done();
  }

  // What a write is compared with.
  CatalogueContent ReadBefore(Catalogue catalogue = Catalogue::Wdc) const {
    return proc.catalogues.LastKnown(Id(catalogue));
  }
  void ForgetRead() { proc.records.ForgetKnown(Id()); }

  // Its local copy.
  bool Store(const std::vector<std::string>& lines) {
    return proc.copies.Store(Id(), lines, std::nullopt);
  }
  bool Erase() { return proc.copies.Erase(Id()); }
  bool Restore(const KeptCopy& kept) { return proc.copies.Restore(Id(), kept); }
  auto Compare(const KeptCopy& kept) const { return proc.copies.CompareWith(Id(), kept); }
  std::vector<KeptCopy> Kept() { return proc.copies.HistoryOf(Id()).Kept(); }

  CatalogueId Id(Catalogue catalogue = Catalogue::Wdc) const {
    return proc.selection.Id(catalogue);
  }

  CatalogueContent Got;
  MemoryFiles files;
  FileProfile profile{files, "/ini/ZEKView.INI"};
  VirtualTurn turn;
  ScriptedPrompts prompts;
  MemoryTransport socket{turn};
  MemoryTransport dde{turn};
  FakeTags tags;
  FakeTagServer tagServer{tags, turn};
  ZV_Proc proc{Outside{files,
                       profile,
                       turn,
                       prompts,
                       socket,
                       dde,
                       tagServer,
                       [this] { return turn.Clock(); },
                       {"operator", "DESK", "7"}}};
};

}  // namespace zek::test
