#include "ui/WxPrompts.h"

#include <wx/msgdlg.h>
#include <wx/toplevel.h>

#include "lang/TextNumbers.h"
#include "text/Controls.h"
#include "text/Lines.h"
#include "ui/DetailsBox.h"
#include "ui/WxText.h"

namespace zek {
namespace {

long StyleOf(Icon icon) {
  switch (icon) {
    case Icon::Information:
      return wxICON_INFORMATION;
    case Icon::Exclamation:
      return wxICON_EXCLAMATION;
    case Icon::Critical:
      return wxICON_ERROR;
    case Icon::Question:
      return wxICON_QUESTION;
    case Icon::None:
      break;
  }
  return wxICON_NONE;  // 0 would let the toolkit choose an icon
}

// Warnings default to No, so that repeated Enter never confirms one.
long Standard(Icon icon) { return icon == Icon::Exclamation ? wxNO_DEFAULT : wxYES_DEFAULT; }

// The form that was opened last: the parent of a message box. Not the active window, because there
// may be none during a transfer.
wxWindow* LastForm() {
  wxWindow* last = nullptr;
  for (wxWindow* const form : wxTopLevelWindows) {
    if (form->IsShown() && !form->IsBeingDeleted()) last = form;
  }
  return last;
}

// Text from a controller or a file can be too long for the screen and contain control characters.
wxString Readable(std::string_view message) {
  constexpr std::size_t longest = 1000;
  const std::string shortened = Shortened(message, longest);
  wxString readable;
  for (std::string_view rest = shortened; !rest.empty();) {
    std::string line(TakeLine(rest));
    ShowControls(line);
    readable += ToWx(line) + (rest.empty() ? "" : "\n");
  }
  return readable;
}
}  // namespace

int WxPrompts::Ask(long style, const std::string& message, const std::string& caption) const {
  wxMessageDialog box(LastForm(), Readable(message), caption.empty() ? "ZekView" : ToWx(caption),
                      style);
  if (texts_ != nullptr && (style & wxYES_NO) == wxYES_NO) {
    box.SetYesNoLabels(ToWx(texts_->Text(text::kYes)), ToWx(texts_->Text(text::kNo)));
  }
  return box.ShowModal();
}

void WxPrompts::Show(Icon icon, const std::string& message, const std::string& caption) {
  Ask(wxOK | StyleOf(icon), message, caption);
}

bool WxPrompts::AskYesNo(Icon icon, const std::string& question, const std::string& caption) {
  return Ask(wxYES_NO | Standard(icon) | StyleOf(icon), question, caption) == wxID_YES;
}

int WxPrompts::AskDetails(long style, const std::string& message, const std::string& caption,
                          const PromptDetails& details) const {
  DetailsBox box(LastForm(), {style, caption.empty() ? "ZekView" : ToWx(caption), Readable(message),
                              ToWx(details.label), ToWx(details.lines)});
  if (texts_ != nullptr && (style & wxYES_NO) == wxYES_NO) {
    box.SetYesNoLabels(ToWx(texts_->Text(text::kYes)), ToWx(texts_->Text(text::kNo)));
  }
  return box.ShowModal();
}

void WxPrompts::ShowDetails(Icon icon, const std::string& message, const std::string& caption,
                            const PromptDetails& details) {
  AskDetails(wxOK | StyleOf(icon), message, caption, details);
}

bool WxPrompts::AskWithDetails(Icon icon, const std::string& question, const std::string& caption,
                               const PromptDetails& details) {
  const long style = wxYES_NO | Standard(icon) | StyleOf(icon);
  return AskDetails(style, question, caption, details) == wxID_YES;
}

}  // namespace zek
