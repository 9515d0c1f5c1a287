#pragma once

#include <wx/window.h>

#include "app/ZV_Proc.h"
#include "wxbase/WxTurn.h"

namespace zek {

/// The browser's menu items.
namespace browser {
enum Menu : int {
  Menu_Exit = wxID_HIGHEST + 100,
  Menu_ExpandAll,
  Menu_CollapseAll,
  Menu_GetWDC,
  Menu_GetSDC,
  Menu_GetOVC,
  Menu_EraseWDC,
  Menu_EraseSDC,
  Menu_EraseOVC,
  Menu_History,
  Menu_Batch_Run,
  Menu_Batch_GetWDC,
  Menu_Batch_GetSDC,
  Menu_Batch_GetOVC,
};
}  // namespace browser

/// `ZV_TSC`, the catalogue browser: shows the objects and their time controls, fetches a
/// catalogue and opens its editor. Modal: returns when the browser was closed. It opens on the
/// object of setting `StartTopic`, or else on the connected one. With `BatchMode` it runs the batch
/// export by itself and closes.
void ShowBrowser(wxWindow* parent, ZV_Proc& proc, WxTurn& turn);

}  // namespace zek
