#include "forms/ZV_Help.h"

#include <string>
#include <string_view>
#include <vector>

#include <wx/button.h>
#include <wx/dialog.h>
#include <wx/listbox.h>
#include <wx/sizer.h>
#include <wx/textctrl.h>

#include "app/StartSession.h"
#include "lang/Messages.h"
#include "lang/TextNumbers.h"
#include "text/Lines.h"
#include "ui/AccessibleName.h"
#include "ui/Forms.h"
#include "ui/ModalForm.h"
#include "ui/Pictures.h"
#include "ui/WxText.h"

namespace zek {
namespace {

constexpr int kGap = 8;
constexpr int kWidth = 780;
constexpr int kHeight = 500;
constexpr int kListWidth = 240;

struct HelpPage {
  std::string title;
  std::string text;
};

// Where a line goes on that does not fit: below its text, which comes after a number, or in a
// column after a key.
std::size_t HangOf(std::string_view line) {
  const std::size_t begin = line.find_first_not_of(' ');
  if (begin == std::string_view::npos || begin == 0) return 0;
  const std::size_t column = line.find("  ", begin);
  if (column != std::string_view::npos) return line.find_first_not_of(' ', column);
  const std::size_t number = line.find(". ", begin);
  return number == begin + 1 ? number + 2 : begin;
}

std::vector<HelpPage> PagesOf(std::string_view file) {
  std::vector<HelpPage> pages;
  while (!file.empty()) {
    const std::string_view line = TakeLine(file);
    if (line.starts_with("# ")) {
      pages.push_back({std::string(line.substr(2)), {}});
    } else if (!pages.empty()) {
      pages.back().text.append(line).append("\n");
    }
  }
  return pages;
}

class HelpForm final : public wxDialog {
 public:
  HelpForm(wxWindow* parent, ZV_Proc& proc, std::vector<HelpPage> pages, std::size_t page)
      : wxDialog(parent, wxID_ANY, ToWx(proc.Text(text::kHelpTitle)), wxDefaultPosition,
                 wxDefaultSize, wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER | wxMAXIMIZE_BOX,
                 "ZV_Help"),
        pages_(std::move(pages)) {
    SetIcons(ProgramIcons());
    const int gap = FromDIP(kGap);
    List_Pages = new wxListBox(this, wxID_ANY, wxDefaultPosition, FromDIP(wxSize(kListWidth, -1)));
    List_Pages->SetName("List_Pages");
    SetAccessibleName(*List_Pages, GetTitle());
    for (const HelpPage& each : pages_) List_Pages->Append(ToWx(each.title));
    Text_Page = new wxTextCtrl(this, wxID_ANY, {}, wxDefaultPosition, wxDefaultSize,
                               wxTE_MULTILINE | wxTE_READONLY | wxTE_BESTWRAP | wxTE_RICH2);
    Text_Page->SetName("Text_Page");
    SetAccessibleName(*Text_Page, GetTitle());
    Text_Page->SetFont(FixedFont());  // the pages have columns
    auto* const both = new wxBoxSizer(wxHORIZONTAL);
    both->Add(List_Pages, 0, wxEXPAND | wxRIGHT, gap);
    both->Add(Text_Page, 1, wxEXPAND);
    auto* const whole = new wxBoxSizer(wxVERTICAL);
    whole->Add(both, 1, wxEXPAND | wxALL, gap);
    whole->Add(new wxButton(this, wxID_CANCEL, ToWx(proc.Text(text::kBrowserClose))), 0,
               wxALIGN_RIGHT | wxLEFT | wxRIGHT | wxBOTTOM, gap);
    SetSizer(whole);
    SetSize(FromDIP(wxSize(kWidth, kHeight)));
    RememberPlacement(*this, "ZV_Help");
    if (proc.settings.AlwaysOnTop) SetTopmost(*this, true);
    List_Pages->Bind(wxEVT_LISTBOX, [this](wxCommandEvent&) { ShowPage(); });
    List_Pages->SetSelection(static_cast<int>(std::min(page, pages_.size() - 1)));
    ShowPage();
    CallAfter([this] {
      Raise();  // needed without a window manager
      List_Pages->SetFocus();
    });
  }

 private:
  void ShowPage() {
    const int page = List_Pages->GetSelection();
    if (page == wxNOT_FOUND) return;
    const std::string& text = pages_.at(static_cast<std::size_t>(page)).text;
    Text_Page->ChangeValue(ToWx(text));
    std::string_view rest = text;
    long at = 0;
    while (!rest.empty()) {
      const std::string_view line = TakeLine(rest);
      const long end = at + static_cast<long>(line.size());
      Hang(at, end, HangOf(line));
      at = end + 1;
    }
    Text_Page->SetInsertionPoint(0);
  }

  void Hang(long from, long to, std::size_t columns) {
    constexpr int inch = 254;  // tenths of a millimetre
    wxTextAttr style;
    style.SetLeftIndent(
        0, static_cast<int>(columns) * Text_Page->GetTextExtent("0").x * inch / GetDPI().x);
    Text_Page->SetStyle(from, to, style);
  }

  std::vector<HelpPage> pages_;
  wxListBox* List_Pages = nullptr;
  wxTextCtrl* Text_Page = nullptr;
};

}  // namespace

void ShowHelp(wxWindow* parent, ZV_Proc& proc, std::size_t page) {
  const std::string name = "zek_help." + proc.profile.ReadIni("General", "Language", "");
  const FileContent file = ReadShipped(proc, name);
  std::vector<HelpPage> pages = PagesOf(file.bytes);
  if (file.error || pages.empty()) {
    proc.ToUser().Tell(Icon::Information, text::kHelpMissing, {name});
    return;
  }
  ModalForm<HelpForm>(parent, proc, std::move(pages), page).Show();
}

void HelpOnF1(wxWindow& form, ZV_Proc& proc, std::size_t page) {
  form.Bind(wxEVT_CHAR_HOOK, [&form, &proc, page](wxKeyEvent& event) {
    if (event.GetKeyCode() != WXK_F1 || event.HasAnyModifiers()) return event.Skip();
    ShowHelp(&form, proc, page);
  });
}

}  // namespace zek
