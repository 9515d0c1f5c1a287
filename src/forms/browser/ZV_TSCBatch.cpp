#include <algorithm>

#include <wx/gauge.h>
#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/stopwatch.h>
#include <wx/weakref.h>

#include "forms/browser/ZV_TSC.h"
#include "lang/TextNumbers.h"
#include "ui/AccessibleName.h"
#include "ui/Forms.h"
#include "ui/PromptBox.h"
#include "ui/WxText.h"

// How the browser runs the batch export and shows its progress.
namespace zek {

using namespace browser;

namespace {
constexpr int kTimerBatch = 10;  // milliseconds
constexpr long kSlice = 20;      // milliseconds for steps in one tick; most steps fetch nothing
constexpr int kRowGap = 6;
}  // namespace

// On a panel, because a bare frame's background is dark on some systems.
wxWindow* ZV_TSC::BatchRow() {
  batchRow_ = new wxPanel(this);
  batchText_ = new wxStaticText(batchRow_, wxID_ANY, {}, wxDefaultPosition, wxDefaultSize,
                                wxST_NO_AUTORESIZE | wxST_ELLIPSIZE_END);
  batchText_->SetName("Label_Batch");
  batchGauge_ = new wxGauge(batchRow_, wxID_ANY, 1);
  batchGauge_->SetName("Gauge_Batch");
  SetAccessibleName(*batchGauge_, Label(text::kBatchTitle));
  const int gap = FromDIP(kRowGap);
  auto* const row = new wxBoxSizer(wxVERTICAL);
  row->Add(batchText_, 0, wxEXPAND | wxLEFT | wxRIGHT | wxTOP, gap);
  row->Add(batchGauge_, 0, wxEXPAND | wxALL, gap);
  batchRow_->SetSizer(row);
  batchRow_->Hide();
  return batchRow_;
}

void ZV_TSC::ToggleBatch(bool BatchKinds::*kind) {
  BatchKinds& kinds = proc_.batch.Kinds;
  kinds.*kind = !(kinds.*kind);
  UpdateActions();
}

void ZV_TSC::StartBatch() {
  if (busy_ || proc_.batch.Kinds.Count() == 0) return;
  TreeView->ExpandObjects();
  batch_.Start();
  batchBlock_ = std::make_unique<InputBlock>([this] { OnCancel(); }, cancel_);
  ShowStatus();
  Timer_Batch.Begin(kTimerBatch);
}

void ZV_TSC::OnBatchTick() {
  if (!batchBlock_) return;  // a late tick, after the batch ended
  const wxWeakRef<ZV_TSC> alive(this);
  const wxStopWatch watch;
  while (batch_.Tick() && alive && watch.Time() < kSlice) {
  }
  // A tick inside a fetch must not finish the batch; the outer tick does.
  if (alive && batchBlock_ && !batch_.IsRunning()) FinishBatch();
}

void ZV_TSC::FinishBatch() {
  const bool close = batchBlock_->CloseRequested() || turn_.Quitting() || proc_.settings.BatchMode;
  EndBatch();
  ShowStatus();
  ReadStatesAgain();
  const wxWeakRef<ZV_TSC> alive(this);
  if (proc_.settings.BatchMode) {
    batch_.StoreReport();
  } else if (!closing_ && !turn_.Quitting()) {
    ShowSummary();
  }
  if (!alive) return;
  if (close) {
    Close();
  } else {
    TakeKeys();
  }
}

void ZV_TSC::ShowSummary() {
  const BatchReport& report = batch_.Report();
  wxString details;
  for (const std::string& line : report.Details(proc_.texts)) details += ToWx(line) + "\n";
  PromptBox box(
      this,
      {report.Succeeded() ? Icon::Information : Icon::Exclamation, Label(text::kBatchTitle),
       ToWx(report.Headline(proc_.texts)), Label(text::kBatchDetails), details.Trim()},
      {{wxID_OK, {}}}, wxID_OK);
  box.SetName("ZV_TSCSummary");
  if (proc_.settings.AlwaysOnTop) SetTopmost(box, true);
  box.ShowModal();
}

// Ends the form's part in the batch. If the form closes first, `ShowBrowser` ends the batch itself.
void ZV_TSC::EndBatch() {
  Timer_Batch.Stop();
  batchBlock_.reset();
}

void ZV_TSC::OnCancel() {
  if (batch_.IsRunning()) {
    batch_.Cancel();
    cancel_->Disable();
  } else {
    CancelLater();
  }
}

void ZV_TSC::ShowBatch() {
  const Batch& batch = proc_.batch;
  if (batchRow_->Show(batch.IsRunning())) Layout();
  if (!batch.IsRunning()) return;
  batchText_->SetLabel(ToWx(BatchProgress(proc_)));
  batchGauge_->SetRange(std::max(static_cast<int>(batch.Steps), 1));
  batchGauge_->SetValue(std::max(static_cast<int>(batch.Step) - 1, 0));
}

}  // namespace zek
