#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "comm/Transfer.h"
#include "formats/Generation.h"
#include "formats/LineOwner.h"

namespace zek {

/// The three catalogues of a time control.
enum class Catalogue { Sdc, Wdc, Ovc };

/// How the catalogues differ. All time controls of a controller share one calendar. A ZEK1 has one
/// weekday and one exception catalogue for all its time controls. On a ZEK2 each control has its
/// own, and the commands name the control.
struct CatalogueKind {
  std::string_view name;  // in commands ("LIST WDC", ".WDC"), file names and export records
  TransferKind read;
  TransferKind write;
  bool ofControl;  // on a ZEK2 each control has its own, with a ".DFV" value
  // The text after the control's name in that case:
  std::string_view listed;    // in "LIST NAME"
  std::string_view selected;  // in the command before the lines
  std::string_view file;      // in the name of the local copy
};

/// In the order of `Catalogue`.
inline constexpr std::array<CatalogueKind, 3> kCatalogueKinds{{
    {"SDC", TransferKind::ReadSdc, TransferKind::WriteSdc, false, {}, {}, {}},
    {"WDC", TransferKind::ReadWdc, TransferKind::WriteWdc, true, {}, ".WDC", {}},
    {"OVC", TransferKind::ReadOvc, TransferKind::WriteOvc, true, ".EXC", ".EXC", " EXC"},
}};

inline const CatalogueKind& KindOf(Catalogue catalogue) {
  return kCatalogueKinds.at(static_cast<std::size_t>(catalogue));
}

/// Names one catalogue of a node of the browser.
struct CatalogueId {
  Catalogue catalogue = Catalogue::Wdc;
  std::int16_t object = -1;  // the controller's index in the topic table
  std::string control;       // name of the time control; "" for the node of the whole object
  Generation generation = Generation::Zek1;
  /// The file name of its local copy, in windows-1252; "" when the node has no such catalogue.
  std::string localFile;
  std::string topic;                     // the controller's name in the topic table
  std::vector<std::string> pltControls;  // of the object, see `LineOwner`
  /// The controls of a shared catalogue that are meant together; `control` is "" then.
  std::vector<std::string> group = {};

  /// Returns the catalogue for each control that is meant, for one control only this one.
  std::vector<CatalogueId> Each() const {
    std::vector<CatalogueId> each(std::max<std::size_t>(group.size(), 1), *this);
    for (std::size_t i = 0; i < group.size(); ++i) each[i].control = group[i];
    for (CatalogueId& one : each) one.group.clear();
    return each;
  }

  /// Returns the owner of the lines that an editor of this catalogue shows.
  LineOwner Owner() const { return {control, generation, pltControls}; }

  const CatalogueKind& Kind() const { return KindOf(catalogue); }

  /// True when the catalogue belongs to one control and has a ".DFV" value.
  bool IsOfControl() const { return Kind().ofControl && generation == Generation::Zek2; }

  /// True when the catalogue has the lines of all controls of the controller.
  bool IsShared() const { return Kind().ofControl && generation == Generation::Zek1; }

  /// True when controls of a shared catalogue are meant, not the whole catalogue.
  bool IsPartOfShared() const { return IsShared() && (!control.empty() || !group.empty()); }

  /// Returns "TOPIC/CONTROL", or "TOPIC" for the node of a whole object.
  std::string Node() const { return control.empty() ? topic : topic + "/" + control; }

  /// Returns the command that lists the catalogue.
  std::string ListCommand() const {
    return "LIST " + (IsOfControl() ? control + std::string(Kind().listed) : Name());
  }

  /// Returns the command that precedes the lines when the catalogue is sent.
  std::string SelectorCommand() const {
    return IsOfControl() ? control + std::string(Kind().selected) : "." + Name();
  }

  bool operator==(const CatalogueId&) const = default;

 private:
  std::string Name() const { return std::string(Kind().name); }
};

/// The source of a catalogue's lines. A local copy may contain lines that were never sent.
enum class LinesFrom { Nowhere, Controller, LocalCopy };

/// The content of a catalogue: at most `kMaxCatalogueLines` lines as a controller lists them.
struct CatalogueContent {
  std::vector<std::string> lines;
  std::optional<std::string> dfv;  // the ".DFV" value; empty if unknown or absent
  LinesFrom from = LinesFrom::Nowhere;
  std::size_t linesDropped = 0;  // listed lines beyond the limit
  bool replacesUnsent = false;   // the local copy had unsent changes; the history has it now
  bool kept = false;             // a listing that is the local copy now
};

}  // namespace zek
