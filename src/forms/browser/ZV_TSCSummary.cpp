#include "forms/browser/ZV_TSCSummary.h"

#include <wx/artprov.h>
#include <wx/dialog.h>
#include <wx/sizer.h>
#include <wx/statbmp.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include "lang/TextNumbers.h"
#include "ui/Forms.h"
#include "ui/WxText.h"

namespace zek {
namespace {

constexpr int kGap = 10;
constexpr int kColumns = 76;
constexpr int kLines = 12;

class Summary final : public wxDialog {
 public:
  Summary(wxWindow* parent, const ZV_Proc& proc, const BatchReport& report)
      : wxDialog(parent, wxID_ANY, ToWx(proc.Text(text::kBatchTitle)), wxDefaultPosition,
                 wxDefaultSize, wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER, "ZV_TSCSummary") {
    const int gap = FromDIP(kGap);
    auto* const head = new wxBoxSizer(wxHORIZONTAL);
    const auto icon = report.Succeeded() ? wxART_INFORMATION : wxART_WARNING;
    head->Add(
        new wxStaticBitmap(this, wxID_ANY, wxArtProvider::GetBitmapBundle(icon, wxART_MESSAGE_BOX)),
        0, wxRIGHT, gap);
    head->Add(new wxStaticText(this, wxID_ANY, ToWx(report.Headline(proc.texts))), 1,
              wxALIGN_CENTER_VERTICAL);
    auto* const whole = new wxBoxSizer(wxVERTICAL);
    whole->Add(head, 0, wxEXPAND | wxALL, gap);
    // The label comes before its box, which takes its name from there.
    if (!report.Failures(proc.texts).empty()) {
      whole->Add(new wxStaticText(this, wxID_ANY, ToWx(proc.Text(text::kBatchDetails))), 0,
                 wxLEFT | wxRIGHT, gap);
    }
    whole->Add(Details(report.Details(proc.texts)), 1, wxEXPAND | wxALL, gap);
    whole->Add(CreateButtonSizer(wxOK), 0, wxEXPAND | wxALL, gap);
    SetSizerAndFit(whole);
    CenterForm(*this);
    if (proc.settings.AlwaysOnTop) SetTopmost(*this, true);
    SetEscapeId(wxID_OK);
    // Once it is on the screen: before, the text would get the focus and keep the Enter key.
    CallAfter([this] { FindWindow(wxID_OK)->SetFocus(); });
  }

 private:
  // Text that can be selected and copied, into a message to whom it concerns.
  wxTextCtrl* Details(const std::vector<std::string>& lines) {
    wxString text;
    for (const std::string& line : lines) text += ToWx(line) + "\n";
    auto* const box = new wxTextCtrl(this, wxID_ANY, text.Trim(), wxDefaultPosition, wxDefaultSize,
                                     wxTE_MULTILINE | wxTE_READONLY);
    box->SetName("Text_Details");
    box->SetFont(FixedFont());
    const wxSize letter = box->GetTextExtent("0");
    box->SetInitialSize(wxSize(letter.x * kColumns, letter.y * kLines));
    box->SetInsertionPoint(0);
    return box;
  }
};

}  // namespace

void ShowBatchSummary(wxWindow* parent, const ZV_Proc& proc, const BatchReport& report) {
  Summary form(parent, proc, report);
  form.ShowModal();
}

}  // namespace zek
