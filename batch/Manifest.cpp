#include "batch/Manifest.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <ctime>
#include <filesystem>
#include <nlohmann/json.hpp>

#include "batch/Profile.h"
#include "imaging/FileBytes.h"
#include "imaging/FileDigest.h"
#include "imaging/FileErrors.h"

namespace vellumo {

namespace {

using Json = nlohmann::json;

std::optional<ManifestEntry> EntryOf(const std::string& line) {
    const Json json = Json::parse(line, nullptr, /*allow_exceptions=*/false);
    if (!json.is_object()) {
        return std::nullopt;
    }
    try {
        ManifestEntry entry;
        entry.source = json.at("source").get<std::string>();
        entry.output = json.at("output").get<std::string>();
        entry.status = StatusFromName(json.at("status").get<std::string>());
        if (const auto reason = json.find("reason"); reason != json.end() && reason->is_string()) {
            entry.reason = reason->get<std::string>();
        }
        if (const auto bytes = json.find("bytes"); bytes != json.end() && !bytes->is_null()) {
            // A count of bytes: a fraction, a negative number or one beyond
            // 64 bits is no entry (nlohmann's get converts them unchecked).
            if (!bytes->is_number_unsigned()) {
                return std::nullopt;
            }
            entry.bytes = bytes->get<std::uint64_t>();
        }
        if (const auto sha = json.find("sha256"); sha != json.end() && sha->is_string()) {
            entry.sha256 = sha->get<std::string>();
        }
        entry.time = json.value("time", std::string());
        entry.settings = json.at("settings").get<std::string>();
        return entry;
    } catch (const Json::exception&) {
        return std::nullopt;
    }
}

// Where the last complete line ends in a manifest of `size` bytes: a kill
// while a line was being written leaves bytes after it.
off_t EndOfLastLine(int fd, off_t size) {
    off_t end = size;
    char byte = 0;
    while (end > 0) {
        if (pread(fd, &byte, 1, end - 1) != 1) {
            return size;
        }
        if (byte == '\n') {
            break;
        }
        --end;
    }
    return end;
}

}  // namespace

bool OutputAsRecorded(const ManifestEntry& entry) {
    if (!entry.bytes) {
        return false;
    }
    const std::optional<FileDigest> now = DigestOfFile(entry.output);
    return now && now->bytes == *entry.bytes && now->sha256 == entry.sha256;
}

std::string SettingsFingerprint(const CropSettings& settings) {
    return Sha256OfText(ProfileText(settings));
}

std::string ManifestLine(const ManifestEntry& entry) {
    // In the order a person reads them.
    nlohmann::ordered_json json{
        {"source", entry.source},
        {"output", entry.output},
        {"status", StatusName(entry.status)},
        {"reason", entry.reason.empty() ? nlohmann::ordered_json(nullptr)
                                        : nlohmann::ordered_json(entry.reason)}};
    if (entry.bytes) {
        json["bytes"] = *entry.bytes;
        json["sha256"] = entry.sha256;
    }
    json["time"] = entry.time;
    json["settings"] = entry.settings;
    // Paths are bytes: a name that is not UTF-8 is written with
    // replacement characters rather than failing the line.
    return json.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace);
}

Loaded<std::vector<ManifestEntry>> ReadManifest(const std::string& path) {
    std::vector<ManifestEntry> entries;
    std::error_code error;
    if (!std::filesystem::exists(path, error)) {
        return Loaded<std::vector<ManifestEntry>>::Success(std::move(entries));
    }
    std::string reason;
    const auto bytes = ReadFileBytes(path, reason);
    if (!bytes) {
        return Loaded<std::vector<ManifestEntry>>::Failure(reason);
    }
    return ManifestFromText(std::string(bytes->begin(), bytes->end()));
}

Loaded<std::vector<ManifestEntry>> ManifestFromText(const std::string& text) {
    std::vector<ManifestEntry> entries;
    std::size_t start = 0;
    long number = 0;
    while (start < text.size()) {
        const std::size_t end = text.find('\n', start);
        ++number;
        if (end == std::string::npos) {
            break;  // a torn last line: its image is done again
        }
        const std::string line = text.substr(start, end - start);
        start = end + 1;
        if (line.empty()) {
            continue;
        }
        std::optional<ManifestEntry> entry = EntryOf(line);
        if (!entry) {
            return Loaded<std::vector<ManifestEntry>>::Failure("line " + std::to_string(number) +
                                                               " is not a manifest entry");
        }
        entries.push_back(std::move(*entry));
    }
    return Loaded<std::vector<ManifestEntry>>::Success(std::move(entries));
}

std::optional<ManifestWriter> ManifestWriter::Open(const std::string& path, std::string& reason) {
    const int fd = ::open(path.c_str(), O_RDWR | O_CREAT | O_APPEND | O_CLOEXEC, 0666);
    if (fd < 0) {
        reason = ReasonFromErrno(errno);
        return std::nullopt;
    }
    struct stat status {};
    const off_t size = fstat(fd, &status) == 0 ? status.st_size : 0;
    if (const off_t end = EndOfLastLine(fd, size); end < size && ftruncate(fd, end) != 0) {
        reason = ReasonFromErrno(errno);
        ::close(fd);
        return std::nullopt;
    }
    return ManifestWriter(fd);
}

ManifestWriter::ManifestWriter(ManifestWriter&& other) noexcept : fd_(other.fd_) {
    other.fd_ = -1;
}

ManifestWriter& ManifestWriter::operator=(ManifestWriter&& other) noexcept {
    std::swap(fd_, other.fd_);
    return *this;
}

ManifestWriter::~ManifestWriter() {
    if (fd_ >= 0) {
        ::close(fd_);
    }
}

bool ManifestWriter::Append(const ManifestEntry& entry, std::string& reason) {
    const std::string line = ManifestLine(entry) + "\n";
    // One write for the whole line (O_APPEND puts it at the end even when
    // two runs share the file).
    const ssize_t written = ::write(fd_, line.data(), line.size());
    if (written != static_cast<ssize_t>(line.size())) {
        reason = written < 0 ? ReasonFromErrno(errno) : std::string("the line was cut short");
        return false;
    }
    if (::fdatasync(fd_) != 0) {
        reason = ReasonFromErrno(errno);
        return false;
    }
    return true;
}

std::string AbsoluteOutputPath(const std::string& path) {
    std::error_code error;
    const std::filesystem::path absolute = std::filesystem::absolute(path, error);
    return error ? path : absolute.lexically_normal().string();
}

std::string ManifestTimeNow() {
    const std::time_t now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
    std::tm utc{};
    gmtime_r(&now, &utc);
    char text[32];
    std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%SZ", &utc);
    return text;
}

}  // namespace vellumo
