#pragma once

#include <utility>

#include <wx/weakref.h>

namespace zek {

/// A form that the user must close first. It is destroyed with this object, unless its parent
/// destroyed it before: anything can happen while it is shown.
template <class Form>
class ModalForm {
 public:
  template <class... Arguments>
  explicit ModalForm(Arguments&&... arguments)
      : form_(new Form(std::forward<Arguments>(arguments)...)) {}
  ModalForm(const ModalForm&) = delete;
  ModalForm& operator=(const ModalForm&) = delete;
  ~ModalForm() {
    if (form_) form_->Destroy();
  }

  /// Shows the form until it is closed; returns nullptr if it no longer exists.
  Form* Show() {
    form_->ShowModal();
    return form_.get();
  }

 private:
  wxWeakRef<Form> form_;
};

}  // namespace zek
