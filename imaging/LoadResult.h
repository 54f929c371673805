#pragma once

#include <string>
#include <utility>

#include "imaging/Fatal.h"
#include "imaging/Image.h"

namespace vellumo {

// What loading a file gives: an image, or the reason a person can read why
// there is none ("not a JPEG file", "file is truncated"). Used like
// std::optional<Image>.
class LoadResult {
  public:
    static LoadResult Success(Image image) { return LoadResult(std::move(image), {}); }
    static LoadResult Failure(std::string reason) { return LoadResult({}, std::move(reason)); }

    bool has_value() const { return reason_.empty(); }
    explicit operator bool() const { return has_value(); }

    const Image& operator*() const { return value(); }
    const Image* operator->() const { return &value(); }
    const Image& value() const {
        if (!has_value()) {
            Fatal("LoadResult::value() on a failed load: " + reason_);
        }
        return image_;
    }

    // Empty when there is an image.
    const std::string& reason() const { return reason_; }

  private:
    LoadResult(Image image, std::string reason)
        : image_(std::move(image)), reason_(std::move(reason)) {}

    Image image_;
    std::string reason_;
};

}  // namespace vellumo
