#pragma once

#include <string>
#include <utility>

#include "imaging/Failure.h"
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
    // `stage`: Read when the file could not be opened or read (the reason
    // then says so itself: "cannot open: ..."), else Decode.
    static Loaded Failure(std::string reason, FailureStage stage = FailureStage::Decode) {
        if (reason.empty()) {
            reason = "unknown reason";
        }
        Loaded failed({}, std::move(reason));
        failed.stage_ = stage;
        return failed;
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
    FailureStage stage() const { return stage_; }
    // The failure as the core reports it (see Failure::At).
    vellumo::Failure failure() const { return vellumo::Failure::At(stage_, reason_); }

  private:
    Loaded(T value, std::string reason) : value_(std::move(value)), reason_(std::move(reason)) {}

    T value_;
    std::string reason_;
    FailureStage stage_ = FailureStage::Decode;
};

using LoadResult = Loaded<Image>;

}  // namespace vellumo
