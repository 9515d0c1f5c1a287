#include "faults/Dialogue.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "support/Transfers.h"
#include "text/Fields.h"

namespace zek::faults {
namespace {

std::string Unescaped(const std::string& text) {
  std::string bytes;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text[at] != '\\') {
      bytes += text[at];
      continue;
    }
    const char code = text.at(++at);
    if (code == 'x') {
      bytes += static_cast<char>(std::stoi(text.substr(at + 1, 2), nullptr, 16));
      at += 2;
    } else {
      bytes += code == 'r' ? '\r' : code == 'n' ? '\n' : code;
    }
  }
  return bytes;
}

void TakeHead(Dialogue& dialogue, const std::string& line) {
  const std::string kind(GetField(line, 0, " "));
  dialogue.write = kind.starts_with("write");
  dialogue.catalogue = kind.ends_with("sdc")   ? Catalogue::Sdc
                       : kind.ends_with("wdc") ? Catalogue::Wdc
                                               : Catalogue::Ovc;
  dialogue.generation = GetField(line, 1, " ");
  dialogue.address = GetField(line, 2, " ");
  if (dialogue.address == "DDE") dialogue.address.clear();
}

void TakeEntry(Dialogue& dialogue, const std::string& line) {
  const std::size_t blank = line.find(' ');
  const std::string word = line.substr(0, blank);
  const std::string rest = blank == std::string::npos ? "" : Unescaped(line.substr(blank + 1));
  if (word == "connect") dialogue.steps.emplace_back();
  if (word == ">") dialogue.steps.push_back({rest, {}});
  if (word == "<") dialogue.steps.back().answer += rest;
  if (word == "result") dialogue.result = rest == "true";
  if (word == "value") dialogue.value = rest;
  if (word == "line") dialogue.lines.push_back(rest);
  if (word.starts_with("read-") || word.starts_with("write-")) TakeHead(dialogue, line);
}

}  // namespace

std::size_t Dialogue::AnswerBytes() const {
  std::size_t bytes = 0;
  for (const Step& step : steps) bytes += step.answer.size();
  return bytes;
}

std::vector<Dialogue> LoadDialogues(const std::string& folder) {
  std::vector<Dialogue> dialogues;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    Dialogue& dialogue = dialogues.emplace_back();
    dialogue.name = entry.path().stem().string();
    std::ifstream file(entry.path());
    for (std::string line; std::getline(file, line);) TakeEntry(dialogue, line);
  }
  return dialogues;
}

Replay::Replay(const Dialogue& dialogue) : dialogue_(dialogue) {
  std::string ini = "[General]\r\nDisconnectTime=60\r\nGetTSCTimeout=5\r\nAlwaysUseDSS=yes\r\n";
  for (const char* section : {"[GetDelay]\r\n", "[SaveDelay]\r\n"}) {
    ini += section;
    for (const char key : std::string("ABCDEFGH")) ini += std::string("Delay") + key + "=0\r\n";
  }
  files.files["/ini/ZEKView.INI"] = ini + "[Topics]\r\nX=YES," + dialogue.generation + "," +
                                    dialogue.address + ",Plant\r\n[X]\r\nAHU1=Air\r\n";
  Load("");
  Select("X/AHU1");
  for (test::MemoryTransport* link : {&socket, &dde}) {
    link->onConnected = [this] { Answer(""); };
    link->onSent = [this](std::string_view bytes) { Answer(std::string(bytes)); };
  }
}

Outcome Replay::Run(const std::vector<std::size_t>& cuts) {
  cuts_ = &cuts;
  step_ = 0;
  place_ = 0;
  astray_.clear();
  proc.log.Replace({});
  prompts.answers = {true, true};
  test::Fetched got{false, dialogue_.lines, dialogue_.value};
  if (dialogue_.write) {
    got.done = test::Send(proc, dialogue_.catalogue, got.lines, got.value);
  } else {
    got = test::Fetch(proc, dialogue_.catalogue);
  }
  if (step_ != dialogue_.steps.size()) astray_ += "ends before the dialogue does";
  return {got.done, got.value, got.lines, proc.log.Lines(), astray_};
}

void Replay::Answer(const std::string& sent) {
  if (step_ >= dialogue_.steps.size() || dialogue_.steps[step_].sent != sent) {
    astray_ += "[" + sent + "]";
    return;
  }
  const std::string& answer = dialogue_.steps[step_++].answer;
  // A DDE server puts its greeting into one text.
  const bool whole = dialogue_.address.empty() && sent.empty();
  std::size_t from = 0;
  const std::size_t end = place_ + answer.size();
  for (auto cut = std::upper_bound(cuts_->begin(), cuts_->end(), place_);
       cut != cuts_->end() && *cut < end && !whole; ++cut) {
    Say(answer.substr(from, *cut - place_ - from));
    from = *cut - place_;
  }
  Say(answer.substr(from));
  place_ = end;
}

void Replay::Say(const std::string& part) {
  if (part.empty()) return;
  lastSaid_ = std::max(lastSaid_ + 1, turn.Now() + 10);
  const int wait = static_cast<int>(lastSaid_ - turn.Now());
  if (dialogue_.address.empty()) {
    dde.Say("0001>" + part, wait);
  } else {
    socket.Say(part, wait);
  }
}

}  // namespace zek::faults
