#pragma once

#include <string>
#include <utility>

#include "imaging/Fatal.h"
#include "imaging/Image.h"

namespace vellumo {

// What reading a file gives: a value, or the reason a person can read why
// there is none ("not a JPEG file", "file is truncated"). Used like
// std::optional<T>.
template <typename T>
class Loaded {
  public:
    static Loaded Success(T value) { return Loaded(std::move(value), {}); }
    static Loaded Failure(std::string reason) {
        if (reason.empty()) {
            reason = "unknown reason";
        }
        return Loaded({}, std::move(reason));
    }

    bool has_value() const { return reason_.empty(); }
    explicit operator bool() const { return has_value(); }

    const T& operator*() const { return value(); }
    const T* operator->() const { return &value(); }
    const T& value() const {
        if (!has_value()) {
            Fatal("value of a failed load: " + reason_);
        }
        return value_;
    }

    // Empty when there is a value.
    const std::string& reason() const { return reason_; }

  private:
    Loaded(T value, std::string reason) : value_(std::move(value)), reason_(std::move(reason)) {}

    T value_;
    std::string reason_;
};

using LoadResult = Loaded<Image>;

}  // namespace vellumo
