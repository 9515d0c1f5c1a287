#pragma once

#include <string>
#include <string_view>

namespace zek::sim {

/// Shows on standard error what came from a client or went to it: "3 < DUS:3<13>".
void PrintTraffic(const std::string& client, bool received, std::string_view bytes);

}  // namespace zek::sim
