#include "lang/BuiltInTexts.h"

#include <algorithm>
#include <array>

#include "lang/TextNumbers.h"
#include "text/Windows1252.h"

namespace zek {
namespace {

struct BuiltIn {
  std::int32_t number;
  std::string_view text;
};

constexpr auto kBuiltIns = std::to_array<BuiltIn>({
    {text::kSettingTooLarge,
     "Värdet i ZEKView.INI är för stort: [%1] %2: %3. Största tillåtna värde är %4."_w1252},
    {text::kFileFailed, "Filen %1: %2"_w1252},
    {text::kFileMissing, "filen eller mappen finns inte."_w1252},
    {text::kFileDenied, "åtkomst nekad."_w1252},
    {text::kDiskFull, "disken är full."_w1252},
    {text::kFileReadOnly, "mappen eller disken är skrivskyddad."_w1252},
    {text::kFileTooLarge, "filen är för stor."_w1252},
    {text::kTooManyTopics,
     "Inställningsfilen har fler än %1 förbindelser. %2 har utelämnats."_w1252},
    {text::kConnecting, "Ansluter till"_w1252},
    {text::kConnectFailed, "Kan inte ansluta till"_w1252},
    {text::kDisconnectFailed, "Förbindelsen kunde inte kopplas ner."_w1252},
    {text::kNotConnected, "Ej ansluten"_w1252},
    {text::kLinkLost, "Förbindelsen med %1 har brutits."_w1252},
    {text::kTextDropped,
     "--- Svaret saknar radslut: mer än 65536 tecken, de äldsta har slängts ---"_w1252},
    {text::kSocketError, "TCP/IP anslutningsfel (%1)"_w1252},
    {text::kInvalidTopic, "Ogiltig Topic '%1'!"_w1252},
    {text::kHostUnknown, "okänd dator"_w1252},
    {text::kUnreachable, "datorn kan inte nås eller nekar förbindelsen"_w1252},
    {text::kPortInvalid, "ogiltig port"_w1252},
    {text::kConnectionBroken, "förbindelsen bröts"_w1252},
    {text::kWaitConnect, "Väntar på förbindelse"_w1252},
    {text::kWaitClose, "Väntar på nerkoppling"_w1252},
    {text::kWaitPause, "Paus"_w1252},
    {text::kWaitAnswer, "Väntar på svar"_w1252},
    {text::kWaitListing, "Tar emot, %1 rader"_w1252},
    {text::kSendingLine, "Sänder rad %1 av %2"_w1252},
    {text::kAttempt, "försök %1 av 3"_w1252},
    {text::kLocalCopyTooLong, "Filen %1 har fler än %2 rader och kan inte användas."_w1252},
    {text::kNoSuchCatalogue, "Objektet har ingen egen katalog av det slaget."_w1252},
    {text::kSending, "Sänder"_w1252},
    {text::kListingTooLong,
     "Katalogen i DUC har fler än %1 rader. %2 rader får inte plats och har utelämnats."_w1252},
    {text::kCommandUnfit, "Kommandot innehåller tecken som DUC inte känner till."_w1252},
    {text::kYes, "&Ja"_w1252},
    {text::kNo, "&Nej"_w1252},
    {text::kLinesLost,
     "Antal rader i katalogen som inte kunde läsas: %1. De finns inte kvar när katalogen har sparats. Spara ändå?"_w1252},
    {text::kLinesLostTitle, "Spara katalogen"_w1252},
    {text::kCatalogueFull,
     "En katalog kan ha högst %1 rader, och %2 får inte plats. Inget har sparats."_w1252},
    {text::kLineNumberTooLarge,
     "Radnumret %1 är för stort, det största tillåtna är %2. Inget har sparats."_w1252},
    {text::kValueTooLong,
     "Värdet %1 (%2) är för långt, högst %3 tecken får plats. Inget har sparats."_w1252},
    {text::kDatesWrong, "Felaktiga tider i SDC (rad %1)"_w1252},
    {text::kCalendarCut,
     "Kalendern har plats för %1 datum. Från och med rad %2 är inte alla datum inlästa."_w1252},
    {text::kCalendarFull,
     "Kalendern har plats för %1 datum, och så många finns redan. Inget har ändrats."_w1252},
    {text::kCalendarYear,
     "Datum i år %1 kan inte ges en dagtyp, tillåtna år är %2 till %3. Det sista året bestäms av %4 (nu %5) i avsnittet [General] i ZEKView.INI."_w1252},
    {text::kMonthShown, "%1 %2"_w1252},
    {text::kSpokenDate, "%5 %2 %6 %4"_w1252},
    {text::kSpokenAs, "som %2"_w1252},
    {text::kSpokenHoliday, "helgdag"_w1252},
    {text::kSpokenSelected, "markerad"_w1252},
    {text::kSpokenToday, "i dag"_w1252},
    {text::kCalendarHint,
     "Välj dagtyp och dra över dagarna, eller Skift+pilar och Retur. Rött: helgdag."_w1252},
    {text::kMenuDebug, "&Debug"_w1252},
    {text::kMenuDebugSave, "&Spara som..."_w1252},
    {text::kMenuDebugOpen, "&Öppna..."_w1252},
    {text::kMenuDebugClear, "&Töm listan"_w1252},
    {text::kLogFilter, "Text (*.txt)|*.txt|Alla (*.*)|*.*"_w1252},
    {text::kLogSaveTitle, "Spara loggen"_w1252},
    {text::kLogOpenTitle, "Öppna en sparad logg"_w1252},
    {text::kTopicsLabel, "&Förbindelse:"_w1252},
    {text::kInputLabel, "&Kommando:"_w1252},
    {text::kLocalModeShown, "Lokalt läge"_w1252},
    {text::kLanguageTitle, "Välj språk / Choose language"_w1252},
    {text::kLanguageLabel, "&Språk / Language:"_w1252},
    {text::kNoLanguages,
     "I %1 finns inga språkfiler (zek_lang.046, zek_lang.044). / No language files there."_w1252},
    {text::kBrowserTitle, "Tidkataloger"_w1252},
    {text::kBrowserClose, "&Stäng"_w1252},
    {text::kBrowserTSC, "&Tidkataloger"_w1252},
    {text::kBrowserExpandAll, "&Öppna alla grenar"_w1252},
    {text::kBrowserCollapseAll, "&Stäng alla grenar"_w1252},
    {text::kBrowserGetWDC, "&Hämta veckodagskatalog"_w1252},
    {text::kBrowserEraseWDC, "Radera lokal &veckodagskatalog..."_w1252},
    {text::kBrowserEraseSDC, "Radera lokal specialdagskalen&der..."_w1252},
    {text::kBrowserEraseOVC, "Radera lokal &undantagskatalog..."_w1252},
    {text::kAskErase, "Ska den lokala kopian %1 raderas? Katalogen i DUC ändras inte."_w1252},
    {text::kAskEraseTitle, "Radera lokal kopia"_w1252},
    {text::kCancelTransfer, "Avbryt"_w1252},
    {text::kMonday, "Mån"_w1252},
    {text::kMonday + 1, "Tis"_w1252},
    {text::kMonday + 2, "Ons"_w1252},
    {text::kMonday + 3, "Tors"_w1252},
    {text::kMonday + 4, "Fre"_w1252},
    {text::kMonday + 5, "Lör"_w1252},
    {text::kMonday + 6, "Sön"_w1252},
    {text::kSpecialDay, "SD %1"_w1252},
    {text::kBrowserGetSDC, "Hämta specialda&gskalender"_w1252},
    {text::kBrowserGetOVC, "Hämta undantags&katalog"_w1252},
    {text::kLineIncomplete, "En rad i katalogen är inte hel"_w1252},
    {text::kPickListHint, "Klicka eller tryck Alt+Nedpil för att välja ett värde"_w1252},
    {text::kExceptionRefused, "Ett undantag kunde inte läsas"_w1252},
    {text::kDateWrong, "Felaktigt datum %1"_w1252},
    {text::kTimeWrong, "Felaktig tid %1"_w1252},
    {text::kYearUnfit,
     "Datumet %1 får inte plats i katalogen, som har åren %2 till %3. Inget har sparats."_w1252},
    {text::kLineNumberTooSmall,
     "Radnumret %1 är för litet, se OVCStartRow och OVCMultiplyPLT. Inget har sparats."_w1252},
    {text::kExceptionTitle, "Tidsstyrningar"_w1252},
    {text::kExceptionFrame, "&Undantagskatalog"_w1252},
    {text::kTimeHeading, "tid"_w1252},
    {text::kRowHeading, "Rad"_w1252},
    {text::kEraseHint, "Raderar undantaget på den markerade raden"_w1252},
});

}  // namespace

std::optional<std::string_view> BuiltInText(std::int32_t number) {
  const auto* const found =
      std::find_if(kBuiltIns.begin(), kBuiltIns.end(),
                   [number](const BuiltIn& each) { return each.number == number; });
  if (found == kBuiltIns.end()) return std::nullopt;
  return found->text;
}

}  // namespace zek
