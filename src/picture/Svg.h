#pragma once

#include <string>

#include "picture/Scene.h"

namespace zek {

/// Writes a scene as an SVG document, UTF-8. Each bar has its sentence as its title. Names inside
/// of it begin with `ids`, for a page with several pictures.
std::string SvgOf(const Scene& scene, const Palette& palette, const std::string& ids = {});

}  // namespace zek
