// zekview-sim: the simulated plant.

#include <csignal>
#include <iostream>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <wx/app.h>

#include "plant/PlantFolder.h"
#include "plant/PlantOptions.h"
#include "sim/PlantDde.h"
#include "sim/PlantServer.h"
#include "system/Process.h"

namespace {

using zek::sim::PlantOptions;

constexpr int kWrongUsage = 2;

int Fail(const std::string& message) {
  std::cerr << "zekview-sim: " << message << '\n';
  return kWrongUsage;
}

class PlantApp : public wxAppConsole {
 public:
  PlantApp(zek::sim::Plant plant, PlantOptions options)
      : plant_(std::move(plant)), options_(std::move(options)) {}

  bool OnInit() override {  // keeps the toolkit from parsing the command line
#ifdef __UNIX__             // Windows ends it at once; finished catalogues are already saved
    const auto end = [](int /*signal*/) { wxAppConsole::GetInstance()->ExitMainLoop(); };
    SetSignalHandler(SIGINT, end);
    SetSignalHandler(SIGTERM, end);
#endif
    return true;
  }

  int OnRun() override {
    zek::sim::PlantServer server(plant_, options_);
    if (!server.Listen()) {
      return Fail("port " + std::to_string(options_.port) + " on 127.0.0.1 is not available");
    }
    zek::sim::PlantDde dde(plant_, [&server] { server.SaveChanges(); });
    const std::string error = dde.Serve(options_);
    if (!error.empty()) return Fail(error);
    std::cout << server.Port() << std::endl;
    return wxAppConsole::OnRun();
  }

 private:
  zek::sim::Plant plant_;
  PlantOptions options_;
};

}  // namespace

int main(int argc, char** argv) {
  zek::PrepareStandardStreams();
  PlantOptions options = zek::sim::ReadPlantOptions(zek::ProgramArguments(argc, argv));
  if (!options.error.empty()) return Fail(options.error + " (--help shows the options)");
  if (!options.help.empty()) {
    std::cout << options.help;
    return 0;
  }
  zek::sim::LoadedPlant loaded = zek::sim::LoadPlant(options.folder);
  if (!loaded.error.empty()) return Fail(loaded.error);
  for (zek::sim::Outstation& outstation : loaded.plant.outstations) {
    outstation.replaces = options.replaces;
  }
  // The toolkit deletes the application at its end.
  auto app = std::make_unique<PlantApp>(std::move(loaded.plant), std::move(options));
  wxAppConsole::SetInstance(app.release());
  int toolkitArguments = 1;
  return wxEntry(toolkitArguments, argv);
}
