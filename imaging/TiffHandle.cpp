#include "imaging/TiffHandle.h"

#include <cstdarg>
#include <cstdio>

namespace vellumo::tiffhandle {

namespace {

using Options = std::unique_ptr<TIFFOpenOptions, decltype(&TIFFOpenOptionsFree)>;

int KeepError(TIFF* /*tiff*/, void* first, const char* /*module*/, const char* format,
              va_list arguments) {
    auto* reason = static_cast<std::string*>(first);
    if (reason->empty()) {
        char text[512];
        std::vsnprintf(text, sizeof text, format, arguments);
        *reason = text;
    }
    return 1;
}

int IgnoreWarning(TIFF* /*tiff*/, void* /*data*/, const char* /*module*/, const char* /*format*/,
                  va_list /*arguments*/) {
    return 1;
}

}  // namespace

Tiff Open(const std::string& path, std::string* error) {
    const Options options(TIFFOpenOptionsAlloc(), &TIFFOpenOptionsFree);
    TIFFOpenOptionsSetErrorHandlerExtR(options.get(), &KeepError, error);
    TIFFOpenOptionsSetWarningHandlerExtR(options.get(), &IgnoreWarning, nullptr);
    // "m": read, not mapped; a mapped file's pages read so far count as
    // the process's memory, the whole page's worth by the end.
    return {TIFFOpenExt(path.c_str(), "rm", options.get()), &TIFFClose};
}

}  // namespace vellumo::tiffhandle
