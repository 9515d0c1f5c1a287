#pragma once

#include <string>

#include "picture/Scene.h"

namespace zek {

/// Writes a scene as an SVG document, UTF-8. Each bar has its sentence as its title.
std::string SvgOf(const Scene& scene, const Palette& palette);

}  // namespace zek
