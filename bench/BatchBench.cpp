#include <array>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "Limits.h"
#include "export/BatchExport.h"
#include "settings/FileProfile.h"
#include "support/FakeTags.h"
#include "support/MemoryTransport.h"
#include "support/ScriptedPrompts.h"
#include "support/VirtualTurn.h"
#include "system/DiskFiles.h"

namespace zek::bench {
namespace {

constexpr int kControls = 4;  // per object
constexpr int kManyObjects = 300;
constexpr int kFewObjects = 30;

// A plant in local copies, in a directory that is deleted afterwards.
class StoredPlant {
 public:
  explicit StoredPlant(int objects) {
    std::filesystem::create_directories(directory_);
    std::string topics = "[General]\r\nAlwaysUseDSS=no\r\nSDCLastYear=2099\r\n[Topics]\r\n";
    std::string sections;
    for (int object = 0; object < objects; ++object) {
      const std::string name = "T" + std::to_string(object);
      topics += name + "=YES,2,H:1,O" + std::to_string(object) + "\r\n";
      sections += "[" + name + "]\r\n";
      for (int control = 0; control < kControls; ++control)
        sections += "AHU" + std::to_string(control) + "=Object/DUC 1/Air\r\n";
    }
    files.Write(directory_ + "ZEKView.INI", topics + sections);
    proc.settings.ProgramPath = directory_;
    LoadSettings(proc.settings, "/LOCAL", profile_, proc.texts, prompts_);
    proc.topics.LoadTopics(profile_, proc.settings, proc.texts, prompts_);
    proc.tree = BuildObjectTree(proc.topics, profile_, proc.texts, prompts_);
    for (std::size_t node = 0; node < proc.tree.size(); ++node) StoreCopies(node);
  }
  StoredPlant(const StoredPlant&) = delete;
  StoredPlant& operator=(const StoredPlant&) = delete;
  ~StoredPlant() { std::filesystem::remove_all(directory_); }

  // The files, in the order in which an export reads them.
  const std::array<std::vector<std::string>, 3>& Copies() const { return copies_; }
  std::string Directory() const { return directory_; }

  DiskFiles files;

 private:
  void StoreCopies(std::size_t node) {
    if (!proc.tree[node].IsTimeControl()) return;
    SelectNode(proc, node);
    const std::string& name = proc.selection.TscName;
    std::string week = ".DFV = 17\r\n";
    for (int line = 0; line < 10; ++line) {
      week += " 100" + std::to_string(line) + " !" + name +
              "        !MO..FR       !07:00..16:30             !21        !17         \r\n";
    }
    std::string calendar;
    for (int day = 1; day <= 28; ++day) {
      const std::string two = (day < 10 ? "0" : "") + std::to_string(day);
      calendar += " 1000 !" + two + "-DEC-2026              !SD1\r\n";
    }
    const std::string exceptions =
        ".DFV = 17\r\n1     24-DEC-2026..26-DEC-2026 !08:00..17:00 !21    !16\r\n";
    const std::array texts = {week, calendar, exceptions};
    const LocalFileNames& local = proc.selection.LocalFiles;
    const std::array names = {local.WDC, local.SDC, local.OVC};
    for (std::size_t kind = 0; kind < texts.size(); ++kind) {
      copies_.at(kind).push_back(directory_ + names.at(kind));
      files.Write(copies_.at(kind).back(), texts.at(kind));
    }
  }

  std::string directory_ = (std::filesystem::temp_directory_path() / "zekview-bench/").string();
  FileProfile profile_{files, directory_ + "ZEKView.INI"};
  test::VirtualTurn turn_;
  test::ScriptedPrompts prompts_;
  test::MemoryTransport socket_{turn_};
  test::MemoryTransport dde_{turn_};
  test::FakeTags tags_;
  test::FakeTagServer tagServer_{tags_, turn_};
  std::array<std::vector<std::string>, 3> copies_;

 public:
  ZV_Proc proc{Outside{files, profile_, turn_, prompts_, socket_, dde_, tagServer_,
                       [] { return LocalTime{2026, 11, 21, 8, 30, 0}; }}};
};

void ExportPlant(benchmark::State& state, int objects) {
  StoredPlant plant(objects);
  BatchExport batch(plant.proc);
  for (auto _ : state) {
    batch.Start();
    while (batch.Tick()) {
    }
  }
  if (!batch.Report().Succeeded()) {
    const auto& failures = batch.Report().failures;
    state.SkipWithError(failures.empty() ? "nothing exported" : failures[0].Line().c_str());
  }
}

// The minimal work of an export: read every file and write the same number of bytes.
void ReadAndWrite(benchmark::State& state) {
  StoredPlant plant(kManyObjects);
  BatchExport batch(plant.proc);
  batch.Start();
  while (batch.Tick()) {
  }
  using File = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;
  std::vector<char> bytes(1 << 16);
  for (auto _ : state) {
    for (std::size_t kind = 0; kind < plant.Copies().size(); ++kind) {
      const std::vector<std::string>& copies = plant.Copies().at(kind);
      const std::size_t size = std::filesystem::file_size(batch.Report().files.at(kind));
      const File written(std::fopen((plant.Directory() + "bare").c_str(), "wb"), std::fclose);
      for (const std::string& copy : copies) {
        const File read(std::fopen(copy.c_str(), "rb"), std::fclose);
        benchmark::DoNotOptimize(std::fread(bytes.data(), 1, bytes.size(), read.get()));
        std::fwrite(bytes.data(), 1, size / copies.size(), written.get());
      }
    }
  }
}

}  // namespace

void AddBatch(std::vector<Limit>& limits) {
  constexpr double mostOfBare = 3;
  constexpr double mostOfFew = 1.25;
  AddBenchmark("export of 300 objects", kManyObjects,
               [](benchmark::State& state) { ExportPlant(state, kManyObjects); });
  AddBenchmark("export of 30 objects", kFewObjects,
               [](benchmark::State& state) { ExportPlant(state, kFewObjects); });
  AddBenchmark("export, bare reads and writes", kManyObjects, ReadAndWrite);
  limits.push_back({"export of 300 objects / reading and writing the same bytes",
                    "export of 300 objects", "export, bare reads and writes", mostOfBare});
  limits.push_back({"export of 300 objects / of 30, time for an object", "export of 300 objects",
                    "export of 30 objects", mostOfFew});
}

}  // namespace zek::bench
