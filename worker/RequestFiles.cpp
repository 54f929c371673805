#include "worker/RequestFiles.h"

#include <sys/stat.h>

#include "imaging/FileHandles.h"

namespace vellumo {

RequestFiles::RequestFiles(GivenFiles& given) : given_(given) {
    given = GivenFiles{};
    if (given_.source < 0) {
        return;
    }
    struct stat status {};
    if (fstat(given_.source, &status) == 0 && S_ISREG(status.st_mode)) {
        source_ = filehandles::NameOf(given_.source);
    } else if (pipeCopy_.CopyFrom(given_.source)) {
        source_ = pipeCopy_.Path();
    }
}

RequestFiles::~RequestFiles() {
    CloseGivenFiles(given_);
}

std::string RequestFiles::Source(const std::string& original) const {
    return source_.empty() ? original : source_;
}

ImageTask RequestFiles::Redirect(const ImageTask& task) const {
    ImageTask redirected = task;
    redirected.source = Source(task.source);
    if (given_.output >= 0) {
        redirected.output = filehandles::NameOf(given_.output);
    }
    redirected.target = OutputTarget::NewFile;
    if (redirected.decision == OverwriteDecision::Overwrite) {
        redirected.decision = OverwriteDecision::NoConflict;
    }
    return redirected;
}

}  // namespace vellumo
