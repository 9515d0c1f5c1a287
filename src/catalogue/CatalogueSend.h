#pragma once

#include "catalogue/Catalogues.h"

namespace zek {

/// The result of a write. With `NotBegun` the controller's catalogue is unchanged.
enum class SendOutcome { NotBegun, Failed, Sent };

/// The setting that makes a ZEK1 get all controls' weekday lines at each save; "no" without it.
inline constexpr std::string_view kSaveOptions = "SaveOptionsZEK1";
inline constexpr std::string_view kWriteWhole = "WDCWriteWhole";

/// How a write went; `cancelled` by the user. The lines and the refusal are those of the last
/// attempt.
struct SendReport {
  SendOutcome outcome = SendOutcome::NotBegun;
  bool cancelled = false;
  std::size_t linesSent = 0;
  std::string refusal;    // the controller's reply that refused the write; "" if there was none
  std::string linkFault;  // why the link failed; "" if it did not
};

/// The lines and the ".DFV" value to send.
struct LinesToSend {
  std::vector<std::string> lines;
  std::optional<std::string> dfv;  // empty: the value is not sent
};

/// Sends a catalogue to its controller in at most three attempts, with the pauses of section
/// "SaveDelay". The user may cancel it; "EXIT" ends the controller's input then. `Sent` means that
/// the link stayed up through every step and no line was refused. Shows no message of its own.
SendReport SendCatalogue(const CatalogueId& id, const LinesToSend& content,
                         const CatalogueParts& parts);

/// Returns the pauses of a write of so many lines, in seconds; what the controller takes to answer
/// is not known.
int SendSeconds(const NumberReader& numbers, std::size_t lines);

/// Returns false, after a message about the first one, if a pause does not fit 16 bits.
bool CheckSendDelays(const NumberReader& numbers);

}  // namespace zek
