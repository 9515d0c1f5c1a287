#pragma once

#include "app/ZV_Proc.h"
#include "findings/Findings.h"

namespace zek {

/// The contents of a control's three catalogues.
struct ControlContents {
  const CatalogueContent& weekdays;
  const CatalogueContent& calendar;
  const CatalogueContent& exceptions;
};

/// Reads the tables of a time control, and what the settings say of its values and days.
ControlTables ControlTablesOf(const ZV_Proc& proc, const Selection& node,
                              const ControlContents& contents);

}  // namespace zek
