#include "ui/WxPrompts.h"

#include <vector>

#include <wx/app.h>
#include <wx/toplevel.h>

#include "lang/TextNumbers.h"
#include "text/Controls.h"
#include "text/Lines.h"
#include "ui/PromptBox.h"
#include "ui/WxText.h"

namespace zek {
namespace {

// The form that was opened last: the parent of a message box. Not the active window, because there
// may be none during a transfer. Never one that closes by itself or is already closed: it would
// take the box with it.
wxWindow* LastForm() {
  wxWindow* last = nullptr;
  for (wxWindow* const form : wxTopLevelWindows) {
    const bool closed = form->IsBeingDeleted() || wxTheApp->IsScheduledForDestruction(form);
    const bool lasts = (form->GetExtraStyle() & wxWS_EX_TRANSIENT) == 0;
    if (lasts && form->IsShown() && !closed) last = form;
  }
  return last;
}

// Text from a controller or a file can be very long and contain control characters.
wxString Readable(std::string_view message) {
  constexpr std::size_t longest = 4000;
  const std::string shortened = Shortened(message, longest);
  wxString readable;
  for (std::string_view rest = shortened; !rest.empty();) {
    std::string line(TakeLine(rest));
    ShowControls(line);
    readable += ToWx(line) + (rest.empty() ? "" : "\n");
  }
  return readable;
}

int Ask(Icon icon, const std::string& message, const std::string& caption,
        const PromptDetails& details, const std::vector<PromptBox::Button>& buttons, int standard) {
  PromptBox box(LastForm(),
                {icon, caption.empty() ? "ZEK View" : ToWx(caption), Readable(message),
                 ToWx(details.label), ToWx(details.lines)},
                buttons, standard);
  return box.ShowModal();
}

}  // namespace

wxString WxPrompts::Label(std::int32_t number) const {
  return texts_ == nullptr ? wxString() : ToWx(texts_->Text(number));
}

void WxPrompts::Show(Icon icon, const std::string& message, const std::string& caption) {
  ShowDetails(icon, message, caption, {});
}

void WxPrompts::ShowDetails(Icon icon, const std::string& message, const std::string& caption,
                            const PromptDetails& details) {
  Ask(icon, message, caption, details, {{wxID_OK, {}}}, wxID_OK);
}

bool WxPrompts::AskYesNo(Icon icon, const std::string& question, const std::string& caption,
                         DefaultAnswer standard) {
  return AskWithDetails(icon, question, caption, {}, standard);
}

bool WxPrompts::AskWithDetails(Icon icon, const std::string& question, const std::string& caption,
                               const PromptDetails& details, DefaultAnswer standard) {
  const std::vector<PromptBox::Button> buttons{{wxID_YES, Label(text::kYes)},
                                               {wxID_NO, Label(text::kNo)}};
  const int button = standard == DefaultAnswer::Yes ? wxID_YES : wxID_NO;
  return Ask(icon, question, caption, details, buttons, button) == wxID_YES;
}

Answer WxPrompts::AskThree(Icon icon, const std::string& question, const std::string& caption,
                           const AnswerCaptions& captions) {
  const std::vector<PromptBox::Button> buttons{{wxID_YES, ToWx(captions.yes)},
                                               {wxID_NO, ToWx(captions.no)},
                                               {wxID_CANCEL, ToWx(captions.cancel)}};
  const bool warns = DefaultFor(icon) == DefaultAnswer::No;
  const int answer = Ask(icon, question, caption, {}, buttons, warns ? wxID_CANCEL : wxID_YES);
  if (answer == wxID_YES) return Answer::Yes;
  return answer == wxID_NO ? Answer::No : Answer::Cancel;
}

}  // namespace zek
