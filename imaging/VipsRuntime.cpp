#include "imaging/VipsRuntime.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <mutex>
#include <sstream>
#include <vector>

#include "imaging/Fatal.h"

namespace vellumo::vipsruntime {

namespace {

thread_local int collectorDepth = 0;
thread_local std::vector<std::string> collectedWarnings;

void OnVipsLog(const gchar* /*domain*/, GLogLevelFlags /*level*/, const gchar* message,
               gpointer /*userData*/) {
    // Warnings raised on threads without a collector (libvips worker threads
    // among them) are dropped: the error that follows carries the reason.
    if (collectorDepth > 0 && message != nullptr) {
        collectedWarnings.emplace_back(message);
    }
}

}  // namespace

void EnsureStarted() {
    static std::once_flag once;
    std::call_once(once, [] {
        if (VIPS_INIT("vellumo") != 0) {
            Fatal("libvips could not be started");
        }
        vips_cache_set_max(0);
        g_log_set_handler("VIPS",
                          static_cast<GLogLevelFlags>(G_LOG_LEVEL_WARNING | G_LOG_LEVEL_MESSAGE |
                                                      G_LOG_LEVEL_INFO),
                          OnVipsLog, nullptr);
        // Only the image kinds Vellumo reads may ever reach a decoder.
        vips_operation_block_set("VipsForeignLoad", TRUE);
        for (const char* allowed :
             {"VipsForeignLoadJpeg", "VipsForeignLoadPng", "VipsForeignLoadNsgif",
              "VipsForeignLoadTiff", "VipsForeignLoadJp2k", "VipsForeignLoadMagick",
              "VipsForeignLoadHeif", "VipsForeignLoadWebp", "VipsForeignLoadJxl"}) {
            vips_operation_block_set(allowed, FALSE);
        }
    });
}

void SetThreadsPerImage(int threads) {
    EnsureStarted();
    vips_concurrency_set(threads);
}

// libvips drops messages once its error text is full, so it is emptied
// well before that.
constexpr std::size_t kErrorTextLimit = 4096;

FailureScope::FailureScope() {
    if (collectorDepth++ == 0) {
        collectedWarnings.clear();
        // libvips skips a message that repeats the last one it holds, so a
        // second failure on the same file would come without words: start
        // from an empty text. (Another thread's failure, caught at the same
        // moment, can lose its words this way; it still fails.)
        vips_error_clear();
    } else if (std::strlen(vips_error_buffer()) > kErrorTextLimit) {
        vips_error_clear();
    }
    errorTextStart_ = std::strlen(vips_error_buffer());
}

FailureScope::~FailureScope() {
    --collectorDepth;
}

std::string FailureScope::OwnText(const vips::VError& error) const {
    const std::string all = error.what();
    // Another thread may have emptied the text meanwhile; then all of it is
    // this error's.
    return all.size() >= errorTextStart_ ? all.substr(errorTextStart_) : all;
}

std::string FailureScope::Reason(const vips::VError& error, const std::string& elsewhere) const {
    const std::string own = OwnText(error);
    std::string reason = ReasonFromError(own);
    // Some decoders say only that they failed and give the cause as a
    // warning just before.
    const bool generic = own.find_first_not_of(" \n") == std::string::npos ||
                         reason == "libpng read error" || reason == "read error";
    if (generic && !collectedWarnings.empty()) {
        return ReasonFromError(collectedWarnings.front());
    }
    if (generic && !elsewhere.empty()) {
        return ReasonFromError(elsewhere);
    }
    return reason;
}

WarningCollector::WarningCollector() : start_(collectedWarnings.size()) {
    ++collectorDepth;
}

WarningCollector::~WarningCollector() {
    if (--collectorDepth == 0) {
        collectedWarnings.resize(start_);
    }
}

std::string WarningCollector::First() const {
    return collectedWarnings.size() > start_ ? collectedWarnings[start_] : std::string();
}

std::string FailureScope::Warnings() const {
    std::string text;
    for (const auto& line : collectedWarnings) {
        if (!text.empty()) {
            text += '\n';
        }
        text += line;
    }
    return text;
}

namespace {

// True for a "head: " that names a library, class or function rather than
// starting a sentence: "VipsJpeg", "jpegload", "magick2vips", "libMagick error",
// "TIFFFetchDirectory", "fax4Decode".
bool IsLibraryPrefix(const std::string& head) {
    if (head == "libMagick error" || head == "source input") {
        return true;
    }
    if (head.empty() || head.find(' ') != std::string::npos) {
        return false;
    }
    static const char* const kMarks[] = {"Vips", "vips", "TIFF",   "magick", "lib",
                                         "load", "save", "Decode", "Encode"};
    for (const char* mark : kMarks) {
        if (head.find(mark) != std::string::npos) {
            return true;
        }
    }
    return false;
}

std::string Tidy(std::string line) {
    for (;;) {
        const auto colon = line.find(": ");
        if (colon == std::string::npos || colon == 0 || !IsLibraryPrefix(line.substr(0, colon))) {
            break;
        }
        line.erase(0, colon + 2);
    }
    // ImageMagick appends " `file' @ error/coder.c/Function/line".
    if (const auto quote = line.find(" `");
        quote != std::string::npos && line.find("' @ ", quote) != std::string::npos) {
        line.erase(quote);
    }
    while (!line.empty() && (line.back() == ' ' || line.back() == '\r' || line.back() == '.')) {
        line.pop_back();
    }
    // libvips: "out of memory --- size == 411MB".
    if (const auto size = line.find(" --- size == ");
        line.rfind("out of memory", 0) == 0 && size != std::string::npos) {
        std::string amount = line.substr(size + 13);
        if (amount.size() > 2 && amount.compare(amount.size() - 2, 2, "MB") == 0) {
            amount = amount.substr(0, amount.size() - 2) + " MB";
        }
        line = "out of memory (this image needs " + amount + " at once)";
    }
    // "Premature end of ..." reads as part of a sentence; "IEND: ..." keeps
    // its capitals.
    if (line.size() >= 2 && std::isupper(static_cast<unsigned char>(line[0])) &&
        std::islower(static_cast<unsigned char>(line[1]))) {
        line[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(line[0])));
    }
    return line;
}

}  // namespace

std::string ReasonFromError(const std::string& errorText) {
    std::istringstream stream(errorText);
    for (std::string line; std::getline(stream, line);) {
        std::string tidy = Tidy(line);
        if (!tidy.empty()) {
            return tidy;
        }
    }
    return "the image library gave no reason";
}

}  // namespace vellumo::vipsruntime
