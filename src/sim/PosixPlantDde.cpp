#include "sim/PlantDde.h"

namespace zek::sim {

class PlantDde::Server {};

// NOLINTNEXTLINE(performance-unnecessary-value-param): same signature as on Windows
PlantDde::PlantDde(Plant& /*plant*/, std::function<void()> /*settled*/) {}

PlantDde::~PlantDde() = default;

// NOLINTNEXTLINE(readability-convert-member-functions-to-static): not static on Windows
std::string PlantDde::Serve(const PlantOptions& options) {
  return options.ddeServices.empty() ? std::string() : "--dde: this system has no DDE";
}

}  // namespace zek::sim
