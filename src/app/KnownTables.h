#pragma once

#include <string>
#include <variant>
#include <vector>

#include "app/ZV_Proc.h"
#include "findings/FindingSearch.h"
#include "findings/Findings.h"
#include "settings/SpecialDayNames.h"

namespace zek {

/// The table of one catalogue as it is edited.
using EditedTable = std::variant<WeekdayTable, CalendarTable, ExceptionTable>;

/// The tables of a time control as far as they are known, with own numbers (`OwnNumbers`).
struct KnownTables {
  ControlTables tables;

  bool All() const { return tables.known.All(); }
  void Put(const EditedTable& table);
};

/// A catalogue that is open, and its content.
struct OpenCatalogue {
  Catalogue catalogue;
  const CatalogueContent& content;
};

/// Reads the tables of a node from its local copies, without messages; `open` comes instead of its
/// copy.
KnownTables ReadKnownTables(const ZV_Proc& proc, const Selection& node,
                            const OpenCatalogue* open = nullptr);

/// What findings depend on now. What takes long to prove is left to a `FindingSearch`.
FindingContext ContextNow(const ZV_Proc& proc);

/// Search the weekdays or the exceptions of a control for what can be judged by what is known. With
/// `lines`, also what controls of a ZEK1 share.
FindingSearch SearchControl(Catalogue catalogue, const KnownTables& control, bool lines,
                            const FindingContext& context);
/// Searches a calendar: that of `any`. `controls` are all of its controller, to judge whether a
/// date is without effect; empty if one of them is not known.
FindingSearch SearchCalendar(const KnownTables& any, std::vector<Schedule> controls,
                             const FindingContext& context);

}  // namespace zek
