#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "comm/Transfer.h"
#include "formats/Generation.h"

namespace zek {

/// The three catalogues of a time control.
enum class Catalogue { Sdc, Wdc, Ovc };

/// What is different between them. All time controls of a controller share one calendar. A ZEK1 has
/// one weekday and one exception catalogue for all its time controls; on a ZEK2 each control has
/// its own, and the commands name the control.
struct CatalogueKind {
  std::string_view name;  // in commands ("LIST WDC", ".WDC"), file names and export records
  TransferKind read;
  TransferKind write;
  bool ofControl;  // on a ZEK2 each control has its own, with a ".DFV" value
  // What stands behind the control's name then:
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

/// One catalogue of one node of the browser.
struct CatalogueId {
  Catalogue catalogue = Catalogue::Wdc;
  std::int16_t object = -1;  // the controller's index in the topic table
  std::string control;       // name of the time control; "" for the node of the whole object
  Generation generation = Generation::Zek1;
  /// The name of its local copy, windows-1252; "" when the node has no such catalogue.
  std::string localFile;

  const CatalogueKind& Kind() const { return KindOf(catalogue); }

  /// It belongs to the one control and has a ".DFV" value.
  bool IsOfControl() const { return Kind().ofControl && generation == Generation::Zek2; }

  /// The command that lists it.
  std::string ListCommand() const {
    return "LIST " + (IsOfControl() ? control + std::string(Kind().listed) : Name());
  }

  /// The command before its lines.
  std::string SelectorCommand() const {
    return IsOfControl() ? control + std::string(Kind().selected) : "." + Name();
  }

  bool operator==(const CatalogueId&) const = default;

 private:
  std::string Name() const { return std::string(Kind().name); }
};

}  // namespace zek
