#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <wx/control.h>
#include <wx/dc.h>

#include "picture/SceneLayout.h"

namespace zek {

/// Draws a scene, as one control. One of its bars is the current one: its sentence is the control's
/// name for a screen reader.
///
/// Keys: Left and Right go from bar to bar, Up and Down to the row above or below, Home and End to
/// the first and the last bar.
class SceneView : public wxControl {
 public:
  /// `moved` is called when the user moved to another minute or bar.
  SceneView(wxWindow* parent, const std::string& name, std::function<void()> moved);

  /// Shows a scene. Keeps the current minute if the scene has it.
  void ShowScene(Scene scene);
  void ShowNow(std::optional<ScenePoint> now);
  const Scene& Shown() const { return scene_; }

  /// Makes a minute, and the bar there, the current one.
  void GoTo(ScenePoint point);
  void GoToBar(std::size_t bar);
  /// Goes to a row without a current bar.
  void GoToNoBar(std::size_t row);

  ScenePoint Point() const { return point_; }
  std::optional<std::size_t> Bar() const { return bar_; }

  /// The places of rows and bars, in pixels.
  SceneLayout Places() const;

 protected:
  virtual bool TakeKey(int key, int modifiers);
  /// The mouse is at a place, in pixels. By default the minute under it becomes the current one.
  virtual void OnPress(const wxPoint& at);
  virtual void OnHover(const wxPoint& at);
  virtual void OnRelease(const wxPoint& /*at*/) {}
  /// Says the current bar's sentence.
  void Speak();

  void Moved();

  wxSize DoGetBestClientSize() const override;

 private:
  struct Ink;

  wxRect RowsPlace() const;
  void OnPaint(wxPaintEvent& event);
  void DrawFrame(wxDC& dc, const Ink& ink) const;
  void DrawBar(wxDC& dc, const Ink& ink, std::size_t bar) const;
  void DrawFoot(wxDC& dc, const Ink& ink) const;
  void DrawChip(wxDC& dc, const Ink& ink, const wxRect& place, BarKind kind,
                const std::vector<std::string>& texts) const;
  void GoToRow(int step);

  Scene scene_;
  std::function<void()> moved_;
  ScenePoint point_;
  std::optional<std::size_t> bar_;
};

}  // namespace zek
