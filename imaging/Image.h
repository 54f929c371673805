#pragma once

#include <memory>

namespace vellumo {

// An immutable, reference-counted picture: a logical size in doubles and,
// behind it, the pixels (a lazily evaluated libvips image). Copies are cheap
// and share the same underlying image; no operation ever changes an Image,
// they all return new ones.
//
// One unit of the logical size is one pixel. The pixel grid covers the whole
// units of the size, anchored at the lower-left corner: an image 562.5 units
// high has 562 rows of pixels. An image smaller than one unit in either
// direction has no pixels at all.
class Image {
  public:
    // The empty image: 0 x 0, no pixels.
    Image() = default;

    // An image of this size without pixels: what the geometry needs to
    // measure a file that has not been decoded at full size.
    static Image OfSize(double width, double height);

    double Width() const;
    double Height() const;

    // True when the width or the height is not above 0.
    bool IsEmpty() const;

    // True when both values refer to the same underlying image (object
    // identity, not equal pixels). All empty images made by Image() are the
    // same image.
    bool IsSameImage(const Image& other) const;

  private:
    struct Data;
    explicit Image(std::shared_ptr<const Data> data);

    std::shared_ptr<const Data> data_;

    friend class ImageAccess;
};

}  // namespace vellumo
