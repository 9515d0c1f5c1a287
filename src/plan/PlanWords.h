#pragma once

#include <string>

#include "lang/LanguageTexts.h"
#include "plan/ChangeList.h"
#include "plan/Plan.h"
#include "settings/SpecialDayNames.h"

// Plans and changes in the words of the program's language, windows-1252.
namespace zek {

/// The kinds of changes, in the order in which a user chooses among them.
enum class ChangeKind { GiveType, TakeType, AddException, EndException, AddRow, EndRow };
inline constexpr std::size_t kChangeKinds = 6;

std::string NameOf(ChangeKind kind, const LanguageTexts& texts);

/// "Undantag: lägg till  2026-12-24 08:00 .. 2026-12-26 17:00  21 / 16"
std::string ChangeInWords(const ListedChange& change, const LanguageTexts& texts,
                          const SpecialDayNames& names, char decimalSeparator);

/// What became of a catalogue: "klar".
std::string ResultOf(const PlanLine& line, const LanguageTexts& texts);
/// "Veckodagar"
std::string CatalogueOf(const PlanLine& line, const LanguageTexts& texts);
/// "nya: 3, tas bort: 1 (AHU1,AHU2)", or the reason.
std::string RemarkOf(const PlanLine& line, const LanguageTexts& texts);

/// "2 h 5 min", "1 min 20 s"
std::string DurationText(std::int64_t seconds);

}  // namespace zek
