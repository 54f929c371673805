#pragma once

#include <string>
#include <utility>

namespace vellumo {

// What carrying a source's metadata and creation date over to a saved file
// came to. The saved file is changed only when the metadata was written.
struct MetadataResult {
    enum class Status {
        Carried,     // the metadata and the date
        DateNotSet,  // the metadata, but the date could not be given
        NotCarried,  // nothing: see the reason; the saved file is as it was
    };
    Status status = Status::Carried;
    std::string reason;  // for DateNotSet and NotCarried, in words

    static MetadataResult Carried() { return {}; }
    static MetadataResult DateNotSet(std::string why) {
        return {Status::DateNotSet, std::move(why)};
    }
    static MetadataResult NotCarried(std::string why) {
        return {Status::NotCarried, std::move(why)};
    }
};

}  // namespace vellumo
