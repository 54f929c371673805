#include "worker/RequestFiles.h"

namespace vellumo {

RequestFiles::RequestFiles(GivenFiles& given) {
    if (given.source >= 0) {
        haveSource_ = source_.CopyFrom(given.source);
    }
    if (given.output >= 0 && output_.CopyFrom(given.output)) {
        outputBefore_ = output_.Bytes().value_or(std::string());
    }
    CloseGivenFiles(given);
}

std::string RequestFiles::Source(const std::string& original) const {
    return haveSource_ ? source_.Path() : original;
}

ImageTask RequestFiles::Redirect(const ImageTask& task) const {
    ImageTask redirected = task;
    redirected.source = Source(task.source);
    redirected.output = output_.Path();
    redirected.target = OutputTarget::NewFile;
    if (redirected.decision == OverwriteDecision::Overwrite) {
        redirected.decision = OverwriteDecision::NoConflict;
    }
    return redirected;
}

std::optional<std::string> RequestFiles::ChangedOutput() const {
    std::optional<std::string> bytes = output_.Bytes();
    if (!bytes || bytes->empty() || *bytes == outputBefore_) {
        return std::nullopt;
    }
    return bytes;
}

}  // namespace vellumo
