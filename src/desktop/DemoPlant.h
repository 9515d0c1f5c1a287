#pragma once

#include <array>
#include <memory>
#include <string>

#include <wx/eventfilter.h>
#include <wx/process.h>

namespace zek {

/// The demonstration: a new folder with its settings, languages and plant, and the simulated plant
/// as another process on a free port. Both go when it is destroyed.
class DemoPlant {
 public:
  DemoPlant() = default;
  DemoPlant(const DemoPlant&) = delete;
  DemoPlant& operator=(const DemoPlant&) = delete;
  ~DemoPlant();

  /// Copies the languages in `folders` ("": none; a later one replaces those before), of which the
  /// settings in `iniPath` choose one. Returns why it failed, or "". Paths and messages are UTF-8.
  std::string Start(const std::array<std::string, 2>& folders, const std::string& iniPath);

  /// The program directory of the demonstration.
  const std::string& Folder() const { return folder_; }
  /// The name of its first controller.
  const std::string& Topic() const { return topic_; }

 private:
  std::string Prepare(const std::array<std::string, 2>& folders, const std::string& demoFolder);
  std::string StartPlant(const std::string& program);
  std::string ReadPort() const;
  std::string WriteSettings(const std::string& port, const std::string& iniPath);

  std::string folder_;
  std::string topic_;
  wxProcess* process_ = nullptr;  // the toolkit's when detached
  long pid_ = 0;
};

/// While it exists, the title of every window that opens begins with "DEMO".
class DemoTitles final : private wxEventFilter {
 public:
  DemoTitles() { wxEvtHandler::AddFilter(this); }
  DemoTitles(const DemoTitles&) = delete;
  DemoTitles& operator=(const DemoTitles&) = delete;
  ~DemoTitles() override { wxEvtHandler::RemoveFilter(this); }

 private:
  int FilterEvent(wxEvent& event) override;
};

}  // namespace zek
