// A minimal wxWidgets program with a list: the reference for start-up time and memory.

#include <wx/app.h>
#include <wx/frame.h>
#include <wx/listbox.h>

namespace {

class MinimalWindow final : public wxApp {
 public:
  bool OnInit() override {
    auto* const frame = new wxFrame(nullptr, wxID_ANY, "Minimal window");  // the toolkit deletes it
    auto* const list = new wxListBox(frame, wxID_ANY);
    list->Append("one line");
    return frame->Show();
  }
};

}  // namespace

int main(int argc, char** argv) {
  wxApp::SetInstance(new MinimalWindow);  // the toolkit deletes it
  return wxEntry(argc, argv);
}
