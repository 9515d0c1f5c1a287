#include <gtk/gtk.h>

#include "SpokenName.h"

namespace zek::window {

std::string SpokenName(wxWindow& window) {
  const char* const text = atk_object_get_name(gtk_widget_get_accessible(window.GetHandle()));
  return text == nullptr ? std::string() : text;
}

}  // namespace zek::window
