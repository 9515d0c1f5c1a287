#pragma once

// The DDE link and the tag object of the system the program is built for.

#ifdef _WIN32
#include "comm/WinDdeLink.h"
#include "comm/WinTags.h"
#else
#include "comm/WithoutWindows.h"
#endif

namespace zek {

#ifdef _WIN32
using SystemDde = WinDdeLink;
using SystemTags = WinTags;
#else
using SystemDde = WithoutDde;
using SystemTags = WithoutTags;
#endif

}  // namespace zek
