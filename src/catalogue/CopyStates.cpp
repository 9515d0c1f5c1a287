#include "catalogue/CopyStates.h"

#include "catalogue/SharedCatalogue.h"

namespace zek {
CopyState CopyStates::Of(const CatalogueId& id) {
  if (id.localFile.empty()) return {};
  auto found = files_.find(id.localFile);
  if (found == files_.end()) found = files_.emplace(id.localFile, Read(id)).first;
  const CopyState& state = found->second;
  if (!(state.unsent || state.fewer) || !id.IsPartOfShared()) return state;
  std::map<std::string, CopyState>& controls = controls_[id.localFile];
  auto own = controls.find(id.control);
  if (own == controls.end()) own = controls.emplace(id.control, OfControl(id, state)).first;
  return own->second;
}

CopyState CopyStates::Read(const CatalogueId& id) const {
  if (!copies_.Exists(id)) return {};
  CopyState state;
  state.exists = true;
  const auto known = records_.Known(id);
  if (!known) {
    state.unsent = records_.AnySendingFailed(id);
    return state;
  }
  state.time = ToTheMinute(known->time);
  const CatalogueContent copy = copies_.Peek(id);
  state.unsent = HasMoreThan(copy, known->content);
  state.fewer = HasMoreThan(known->content, copy);
  return state;
}

CopyState CopyStates::OfControl(const CatalogueId& id, CopyState shared) const {
  const auto known = records_.Known(id);
  CatalogueContent own;
  CatalogueContent there;
  own.lines = SplitLines(id, copies_.Peek(id).lines).own;
  if (known) there.lines = SplitLines(id, known->content.lines).own;
  shared.unsent = HasMoreThan(own, there);
  shared.fewer = HasMoreThan(there, own);
  return shared;
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
