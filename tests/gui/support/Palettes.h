#pragma once

#include <QPalette>

namespace vellumo::test {

// A palette like a dark desktop theme's, its selection colour a muted blue.
QPalette DarkPalette();

}  // namespace vellumo::test
