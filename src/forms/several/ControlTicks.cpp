#include "forms/several/ControlTicks.h"

#include <algorithm>

#include <wx/button.h>
#include <wx/sizer.h>

#include "catalogue/TreeItems.h"
#include "lang/Messages.h"
#include "lang/TextNumbers.h"
#include "ui/AccessibleName.h"
#include "ui/WxText.h"

namespace zek {
namespace {
constexpr int kGap = 6;
constexpr int kListWidth = 500;
constexpr int kListHeight = 240;
}  // namespace

ControlTicks::ControlTicks(wxWindow* parent, const ZV_Proc& proc, std::function<void()> changed)
    : wxPanel(parent),
      proc_(proc),
      changed_(std::move(changed)),
      listed_(proc.tree.size(), true),
      ticked_(proc.tree.size(), false) {
  for (const TreeNode& node : proc.tree)
    if (node.Parent) listed_.at(*node.Parent) = false;
  Build();
  ShowNodes();
}

void ControlTicks::Build() {
  const auto text = [this](std::int32_t number) { return ToWx(proc_.Text(number)); };
  const int gap = FromDIP(kGap);
  auto* const head = new wxBoxSizer(wxHORIZONTAL);
  head->Add(new wxStaticText(this, wxID_ANY, text(text::kSearchLabel)), 0,
            wxALIGN_CENTER_VERTICAL | wxRIGHT, gap);
  Text_Search = new wxTextCtrl(this, wxID_ANY);
  Text_Search->SetName("Text_SearchControls");
  SetAccessibleName(*Text_Search, wxControl::RemoveMnemonics(text(text::kSearchLabel)));
  Text_Search->Bind(wxEVT_TEXT, [this](wxCommandEvent&) { ShowNodes(); });
  head->Add(Text_Search, 1, wxRIGHT, gap);
  const auto button = [&](const char* name, std::int32_t caption, bool on) {
    auto* const all = new wxButton(this, wxID_ANY, text(caption));
    all->SetName(name);
    all->Bind(wxEVT_BUTTON, [this, on](wxCommandEvent&) { TickShown(on); });
    head->Add(all, 0, wxRIGHT, gap);
  };
  button("Command_All", text::kSeveralAll, true);
  button("Command_None", text::kSeveralNone, false);
  List_Controls =
      new wxCheckListBox(this, wxID_ANY, wxDefaultPosition,
                         FromDIP(wxSize(kListWidth, kListHeight)), 0, nullptr, wxLB_HSCROLL);
  List_Controls->SetName("List_Controls");
  SetAccessibleName(*List_Controls, text(text::kSeveralWho));
  List_Controls->Bind(wxEVT_CHECKLISTBOX, [this](wxCommandEvent& event) {
    const auto row = static_cast<unsigned>(event.GetInt());
    ticked_.at(shown_.at(row)) = List_Controls->IsChecked(row);
    ShowCount();
  });
  Label_Count = new wxStaticText(this, wxID_ANY, {});
  Label_Count->SetName("Label_Count");
  auto* const whole = new wxBoxSizer(wxVERTICAL);
  whole->Add(head, 0, wxEXPAND | wxBOTTOM, gap);
  whole->Add(List_Controls, 1, wxEXPAND);
  whole->Add(Label_Count, 0, wxEXPAND | wxTOP, gap);
  SetSizer(whole);
}

void ControlTicks::ShowNodes() {
  std::vector<std::size_t> found = NodesWith(proc_.tree, FromWx(Text_Search->GetValue()));
  if (Text_Search->IsEmpty()) {
    found.clear();
    for (std::size_t node = 0; node < proc_.tree.size(); ++node) found.push_back(node);
  }
  std::erase_if(found, [this](std::size_t node) { return !listed_.at(node); });
  shown_ = std::move(found);
  wxArrayString items;
  for (const std::size_t node : shown_)
    items.Add(ToWx(NodeName(proc_.tree, proc_.topics, node) + "   " + proc_.tree[node].Text));
  List_Controls->Set(items);
  for (unsigned row = 0; row < shown_.size(); ++row)
    List_Controls->Check(row, ticked_.at(shown_[row]));
  if (!shown_.empty()) List_Controls->SetSelection(0);
  ShowCount();
}

void ControlTicks::TickShown(bool on) {
  for (const std::size_t node : shown_) ticked_.at(node) = on;
  ShowNodes();
}

void ControlTicks::TickNode(std::size_t node) {
  for (std::size_t each = 0; each < ticked_.size(); ++each)
    if (listed_.at(each) && (each == node || proc_.tree[each].Parent == node))
      ticked_.at(each) = true;
  ShowNodes();
}

void ControlTicks::ShowCount() {
  const auto count = std::count(ticked_.begin(), ticked_.end(), true);
  Label_Count->SetLabel(ToWx(Message(proc_.Text(text::kSeveralTicked), {std::to_string(count)})));
  changed_();
}

bool ControlTicks::Any() const {
  return std::find(ticked_.begin(), ticked_.end(), true) != ticked_.end();
}

std::vector<std::string> ControlTicks::Nodes() const {
  std::vector<std::string> names;
  for (std::size_t node = 0; node < ticked_.size(); ++node)
    if (ticked_[node]) names.push_back(NodeName(proc_.tree, proc_.topics, node));
  return names;
}

PickList ControlTicks::Names() const {
  std::optional<std::int32_t> table;
  for (std::size_t node = 0; node < ticked_.size(); ++node) {
    if (!ticked_[node]) continue;
    const std::int32_t own = proc_.tree[node].PickListTable;
    if (table.value_or(own) != own) return {};
    table = own;
  }
  return ReadPickList(proc_.profile, table.value_or(0), proc_.settings.DecimalSeparator);
}

void ControlTicks::Enter() { List_Controls->SetFocus(); }

}  // namespace zek
