#pragma once

#include <string>

namespace zek {

/// The first columns of an export record: `BatchObject`, `BatchDuc` and `BatchDestination`.
struct RecordLabels {
  std::string object;
  std::string duc;
  std::string destination;
};

}  // namespace zek
