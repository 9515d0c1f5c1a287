#include "catalogue/CopyStates.h"

#include "catalogue/SharedCatalogue.h"

namespace zek {
namespace {

constexpr std::size_t kToMinutes = 16;  // characters of "2026-11-22 08:30"

}  // namespace

CopyState CopyStates::Of(const CatalogueId& id) {
  if (id.localFile.empty()) return {};
  auto found = files_.find(id.localFile);
  if (found == files_.end()) found = files_.emplace(id.localFile, Read(id)).first;
  CopyState state = found->second;
  if (!state.unsent || !id.IsPartOfShared()) return state;
  std::map<std::string, bool>& controls = controls_[id.localFile];
  auto own = controls.find(id.control);
  if (own == controls.end()) own = controls.emplace(id.control, HasOwnUnsent(id)).first;
  state.unsent = own->second;
  return state;
}

CopyState CopyStates::Read(const CatalogueId& id) const {
  if (!copies_.Exists(id)) return {};
  const auto known = records_.Known(id);
  if (!known) return {true, {}, false};
  return {true, known->time.substr(0, kToMinutes),
          !HaveSameLines(copies_.Peek(id), known->content)};
}

bool CopyStates::HasOwnUnsent(const CatalogueId& id) const {
  const auto known = records_.Known(id);
  CatalogueContent own;
  CatalogueContent there;
  own.lines = SplitLines(id, copies_.Peek(id).lines).own;
  if (known) there.lines = SplitLines(id, known->content.lines).own;
  return !HaveSameLines(own, there);
}

void CopyStates::Forget(const std::string& localFile) {
  files_.erase(localFile);
  controls_.erase(localFile);
}

void CopyStates::ForgetAll() {
  files_.clear();
  controls_.clear();
}

}  // namespace zek
