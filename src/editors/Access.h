#pragma once

namespace zek {

/// What an editor is opened for. With `ViewOnly` nothing can be changed or saved.
enum class Access { Edit, ViewOnly };

}  // namespace zek
