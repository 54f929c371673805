#pragma once

// Inside the core only: building an Image from libvips pixels and reaching
// them again. Clients of the core (the window, the command line) never see
// libvips through Image.

#include <vips/vips8>

#include "imaging/Image.h"

namespace vellumo {

class ImageAccess {
  public:
    // An image of the given logical size over `pixels`. `pixels` must be
    // trunc(width) x trunc(height); pass an empty VImage when either is 0.
    static Image Make(vips::VImage pixels, double width, double height);

    // An image of the given logical size without pixels (less than one whole
    // pixel in some direction).
    static Image MakeWithoutPixels(double width, double height);

    // The pixels, or nullptr when the image has none.
    static const vips::VImage* Pixels(const Image& image);
};

}  // namespace vellumo
