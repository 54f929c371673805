#include "imaging/VipsRuntime.h"

#include <algorithm>
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
        g_log_set_handler("VIPS", static_cast<GLogLevelFlags>(G_LOG_LEVEL_WARNING |
                                                              G_LOG_LEVEL_MESSAGE |
                                                              G_LOG_LEVEL_INFO),
                          OnVipsLog, nullptr);
        // Only the six image kinds Vellumo reads may ever reach a decoder.
        vips_operation_block_set("VipsForeignLoad", TRUE);
        for (const char* allowed :
             {"VipsForeignLoadJpeg", "VipsForeignLoadPng", "VipsForeignLoadNsgif",
              "VipsForeignLoadTiff", "VipsForeignLoadJp2k", "VipsForeignLoadMagick"}) {
            vips_operation_block_set(allowed, FALSE);
        }
    });
}

WarningCollector::WarningCollector() {
    if (collectorDepth++ == 0) {
        collectedWarnings.clear();
    }
}

WarningCollector::~WarningCollector() { --collectorDepth; }

std::string WarningCollector::Text() const {
    std::string text;
    for (const auto& line : collectedWarnings) {
        if (!text.empty()) {
            text += '\n';
        }
        text += line;
    }
    return text;
}

std::string ReasonFromError(const std::string& errorText) {
    std::vector<std::string> lines;
    std::istringstream stream(errorText);
    for (std::string line; std::getline(stream, line);) {
        // Strip "name: " prefixes that name a libvips class or operation.
        for (;;) {
            const auto colon = line.find(": ");
            if (colon == std::string::npos || colon == 0) {
                break;
            }
            const std::string head = line.substr(0, colon);
            const bool isPrefix =
                head.find(' ') == std::string::npos &&
                (head.rfind("Vips", 0) == 0 || head.find("load") != std::string::npos ||
                 head.find("save") != std::string::npos || head == "vips" || head == "magick" ||
                 head == "libpng" || head == "tiff2vips" || head == "TIFFReadDirectory" ||
                 head == "gifload");
            if (!isPrefix) {
                break;
            }
            line.erase(0, colon + 2);
        }
        while (!line.empty() && (line.back() == ' ' || line.back() == '\r')) {
            line.pop_back();
        }
        if (!line.empty() && std::find(lines.begin(), lines.end(), line) == lines.end()) {
            lines.push_back(line);
        }
    }
    if (lines.empty()) {
        return "the image library gave no reason";
    }
    std::string reason = lines.front();
    if (!reason.empty()) {
        reason[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(reason[0])));
    }
    return reason;
}

}  // namespace vellumo::vipsruntime
