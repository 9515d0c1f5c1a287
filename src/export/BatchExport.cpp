#include "export/BatchExport.h"

#include <algorithm>
#include <utility>

#include "comm/TopicLine.h"
#include "export/CatalogueRecords.h"
#include "lang/Messages.h"
#include "lang/TextNumbers.h"
#include "system/OtherPrompts.h"
#include "system/Paths.h"
#include "text/Lines.h"

namespace zek {
namespace {
std::string BatchDirectory(const Settings& settings) { return settings.ProgramPath + "Batch"; }

// The messages about one topic, each on one line, without the line that names it.
class TopicPrompts final : public UnattendedPrompts {
 public:
  TopicPrompts(std::string topicName, LogPrompts::Log take)
      : topicName_(std::move(topicName)), take_(std::move(take)) {}

 private:
  void Tell(Icon /*icon*/, const std::string& message, const std::string& /*details*/) override {
    take_(OnOneLine(WithoutTopicLine(message, topicName_)));
  }
  bool AnswerTo(const std::string& question, const std::string& /*details*/) override {
    take_(OnOneLine(question));
    return false;
  }

  std::string topicName_;
  LogPrompts::Log take_;
};

}  // namespace

BatchExport::~BatchExport() {
  if (!IsRunning()) return;
  Cancel();
  Finish();
}

void BatchExport::Start() {
  Batch& batch = proc_.batch;
  if (batch.IsRunning()) return;
  batch.State = BatchState::Started;
  batch.IncludeBatchHeader = ReadYesNo(proc_.profile, "General", "IncludeBatchHeader", "yes");
  passes_.clear();
  if (batch.Kinds.WDC) passes_.push_back({BatchState::WdcPass, BatchFile(Catalogue::Wdc)});
  if (batch.Kinds.SDC) passes_.push_back({BatchState::SdcPass, BatchFile(Catalogue::Sdc)});
  if (batch.Kinds.OVC) passes_.push_back({BatchState::OvcPass, BatchFile(Catalogue::Ovc)});
  for (Pass& pass : passes_) {
    pass.file.Open(proc_.files, BatchDirectory(proc_.settings), proc_.now());
    if (batch.IncludeBatchHeader) pass.file.WriteHeader(proc_.now());
  }
  loadedObject_ = -1;
  report_ = {};
  const auto controls = std::count_if(proc_.tree.begin(), proc_.tree.end(),
                                      [](const TreeNode& node) { return node.IsTimeControl(); });
  report_.planned = static_cast<std::size_t>(controls) * passes_.size();
  batch.Steps = report_.planned;
  batch.Step = 0;
  report_.plantCut = batch.PlantCut;
  proc_.status.Changed();
}

bool BatchExport::Tick() {
  if (stepping_ || !IsRunning()) return false;
  stepping_ = true;
  Step();
  stepping_ = false;
  return IsRunning();
}

void BatchExport::Step() {
  Batch& batch = proc_.batch;
  if (proc_.turn.Quitting()) Cancel();
  if (batch.State == BatchState::Started) {
    batch.BatchNodeIndex = 0;
    batch.State = BatchState::WdcPass;
  }
  if (batch.BatchNodeIndex >= proc_.tree.size()) NextState();
  const std::size_t node = batch.BatchNodeIndex;
  if (node < proc_.tree.size()) Select(node);
  if (batch.State == BatchState::Finishing) {
    Finish();
    return;
  }
  const auto pass = std::find_if(passes_.begin(), passes_.end(),
                                 [&](const Pass& each) { return each.state == batch.State; });
  if (pass != passes_.end() && node < proc_.tree.size() && proc_.tree[node].IsTimeControl()) {
    Export(*pass, node);
  }
  ++batch.BatchNodeIndex;
}

// Called after a pass has visited all nodes.
void BatchExport::NextState() {
  Batch& batch = proc_.batch;
  batch.BatchNodeIndex = 0;
  if (batch.State == BatchState::Finishing) return;
  loadedObject_ = -1;
  if (batch.State == BatchState::WdcPass) {
    batch.State = BatchState::SdcPass;
  } else if (batch.State == BatchState::SdcPass) {
    batch.State = BatchState::OvcPass;
  } else {
    batch.State = BatchState::Finishing;
    if (!batch.IncludeBatchHeader) return;
    for (Pass& pass : passes_) pass.file.WriteFinished(proc_.now());
  }
}

void BatchExport::Select(std::size_t node) {
  SelectNode(proc_, node);
  // On a ZEK2 each time control has its own catalogues: nothing fetched before applies.
  if (proc_.selection.generation == Generation::Zek2) loadedObject_ = -1;
  proc_.batch.Labels = LabelsOf(proc_.tree[node]);
  Selected(node);
}

void BatchExport::Export(Pass& pass, std::size_t node) {
  Batch& batch = proc_.batch;
  batch.Node = NodeName(proc_.tree, proc_.topics, node);
  batch.Kind = KindOf(pass.file.Kind()).name;
  ++batch.Step;
  proc_.status.Changed();
  told_.clear();
  const Topic& topic = proc_.topics[proc_.tree[node].Object];
  TopicPrompts prompts(topic.TopicName, [this](const std::string& line) { TakeMessage(line); });
  const PromptsInstead noBoxes(proc_.prompts, prompts);
  batch.BatchBusy = true;
  const bool tried = FetchAndWrite(pass);
  batch.BatchBusy = false;
  if (!tried) return;
  if (told_.empty()) {
    ++pass.exported;
    return;
  }
  constexpr std::size_t longest = 300;  // characters; a controller's line can have any length
  std::string why = told_.front().substr(0, longest);
  if (told_.size() > 1) {
    why = Message(Text(text::kBatchMoreMessages), {why, std::to_string(told_.size() - 1)});
  }
  report_.failures.push_back({batch.Node, batch.Kind, std::move(why)});
}

// Afterwards `told_` contains the errors. Returns false if the catalogue was not tried: after a
// cancel, or without an open file, which the report lists once for all nodes.
bool BatchExport::FetchAndWrite(Pass& pass) {
  if (!pass.file.IsOpen()) return false;
  const CatalogueId id = proc_.selection.Id(pass.file.Kind());
  const std::optional<CatalogueContent> content = Fetch(id);
  if (!content) {
    if (proc_.batch.State == BatchState::Finishing || proc_.turn.Quitting()) return false;
    if (told_.empty()) TakeMessage(Text(text::kNoAnswer));
    return true;
  }
  // Messages during the fetch of a complete catalogue are not errors.
  if (content->linesDropped == 0) told_.clear();
  if (content->replacesUnsent) NoteReplaced(id);
  const LoadedCatalogue loaded =
      LoadCatalogue(id, *content, proc_.batch.Labels, proc_.settings, proc_.Numbers());
  const auto error = pass.file.WriteRecords(loaded.records);
  if (error) TakeMessage(FileMessage(proc_.texts, *error));
  return true;
}

// The history has the copy that the listing replaced.
void BatchExport::NoteReplaced(const CatalogueId& id) {
  const std::string note =
      Message(Text(text::kUnsentReplaced), {id.Node() + " " + std::string(id.Kind().name)});
  report_.notes.push_back(note);
  proc_.log.Add(note);
}

// A batch ignores old local copies but, unless `AlwaysUseDSS` is set, fetches a shared catalogue
// only once. In local mode it uses the local copies.
std::optional<CatalogueContent> BatchExport::Fetch(const CatalogueId& id) {
  const bool loaded = loadedObject_ == id.object && !proc_.settings.AlwaysUseDSS;
  const CopyUse use = proc_.settings.LocalMode || loaded ? CopyUse::Take : CopyUse::PassOver;
  std::optional<CatalogueContent> content = proc_.catalogues.GetCatalogue(id, use);
  if (content && content->from == LinesFrom::Controller) {
    const bool whole = content->kept && content->linesDropped == 0;
    loadedObject_ = whole ? id.object : std::int16_t{-1};
  }
  return content;
}

void BatchExport::TakeMessage(const std::string& line) {
  told_.push_back(line);
  proc_.log.Add(proc_.batch.Node + " " + proc_.batch.Kind + ": " + line);
}

void BatchExport::Cancel() {
  if (!IsRunning() || proc_.batch.State == BatchState::Finishing) return;
  proc_.batch.State = BatchState::Finishing;
  proc_.batch.BatchBusy = false;
  if (stepping_) proc_.waits.Cancel();
  report_.stopped = true;
  for (Pass& pass : passes_) pass.file.WriteStopped(proc_.now());
  proc_.status.Changed();
}

void BatchExport::Finish() {
  for (Pass& pass : passes_) {
    pass.file.Close();
    if (pass.file.Error()) {
      std::vector<std::string>& errors = report_.fileErrors;
      std::string message = FileMessage(proc_.texts, *pass.file.Error());
      if (std::find(errors.begin(), errors.end(), message) == errors.end())
        errors.push_back(std::move(message));
    }
    if (!pass.file.IsInPlace()) continue;
    report_.exported += pass.exported;
    report_.files.push_back(pass.file.Path());
  }
  proc_.log.Add(report_.Headline(proc_.texts));
  for (const std::string& error : report_.fileErrors) proc_.log.Add(error);
  proc_.batch.State = BatchState::Idle;
  proc_.batch.BatchBusy = false;
  proc_.batch.Succeeded = report_.Succeeded();
  proc_.batch.Outcome = report_.Headline(proc_.texts) + "\r\n";
  for (const std::string& line : report_.Details(proc_.texts)) proc_.batch.Outcome += line + "\r\n";
  proc_.status.SetTransfer(Text(text::kBatchFinished));
}

void BatchExport::StoreReport() {
  std::string text;
  for (const std::string& note : proc_.batch.Notes) text += note + "\r\n";
  text += proc_.batch.Outcome;
  const std::string path =
      WithSeparator(BatchDirectory(proc_.settings)) + "BATCH" + FileStamp(proc_.now()) + ".TXT";
  const auto error = proc_.files.Write(path, text);
  if (!error) return;
  proc_.prompts.Show(Icon::Exclamation, FileMessage(proc_.texts, *error));
  for (const std::string& line : report_.Details(proc_.texts)) proc_.prompts.Show(Icon::None, line);
}

std::string BatchProgress(const ZV_Proc& proc) {
  const Batch& batch = proc.batch;
  if (!batch.IsRunning() || batch.Step == 0) return {};
  return Message(proc.Text(text::kBatchProgress),
                 {batch.Node, batch.Kind, std::to_string(batch.Step), std::to_string(batch.Steps),
                  std::to_string(batch.Steps - batch.Step)});
}

}  // namespace zek
