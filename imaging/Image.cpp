#include "imaging/Image.h"

#include <optional>

#include "imaging/Fatal.h"
#include "imaging/ImageAccess.h"

namespace vellumo {

struct Image::Data {
    std::optional<vips::VImage> pixels;
    double width = 0.0;
    double height = 0.0;
};

Image::Image(std::shared_ptr<const Data> data) : data_(std::move(data)) {}

Image Image::OfSize(double width, double height) {
    return ImageAccess::MakeWithoutPixels(width, height);
}

double Image::Width() const {
    return data_ ? data_->width : 0.0;
}

double Image::Height() const {
    return data_ ? data_->height : 0.0;
}

bool Image::IsEmpty() const {
    return !(Width() > 0.0) || !(Height() > 0.0);
}

bool Image::IsSameImage(const Image& other) const {
    return data_ == other.data_;
}

Image ImageAccess::Make(vips::VImage pixels, double width, double height) {
    if (pixels.is_null()) {
        return MakeWithoutPixels(width, height);
    }
    if (pixels.width() != static_cast<long long>(width) ||
        pixels.height() != static_cast<long long>(height)) {
        Fatal("image pixels do not match the logical size");
    }
    auto data = std::make_shared<Image::Data>();
    data->pixels = std::move(pixels);
    data->width = width;
    data->height = height;
    return Image(std::move(data));
}

Image ImageAccess::MakeWithoutPixels(double width, double height) {
    auto data = std::make_shared<Image::Data>();
    data->width = width;
    data->height = height;
    return Image(std::move(data));
}

const vips::VImage* ImageAccess::Pixels(const Image& image) {
    if (!image.data_ || !image.data_->pixels) {
        return nullptr;
    }
    return &*image.data_->pixels;
}

}  // namespace vellumo
