#include "worker/WorkerProtocol.h"

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <utility>

#include "batch/Profile.h"
#include "imaging/ImageAccess.h"
#include "imaging/PixelConvert.h"
#include "imaging/VipsRuntime.h"

namespace vellumo::workerprotocol {

namespace {

using Json = nlohmann::ordered_json;

// Frames larger than this are refused: nothing the worker sends comes near
// (a preview picture is a few megabytes).
constexpr std::uint32_t kMaxPart = 512u * 1024u * 1024u;

bool SendAll(int socket, const char* data, std::size_t size) {
    while (size > 0) {
        const ssize_t sent = send(socket, data, size, MSG_NOSIGNAL);
        if (sent < 0) {
            if (errno == EINTR)
                continue;
            return false;
        }
        data += sent;
        size -= static_cast<std::size_t>(sent);
    }
    return true;
}

// Reads exactly `size` bytes, waiting at most until `deadline` (in poll
// milliseconds from now, re-computed by the caller's single wait).
ReceiveStatus ReceiveAll(int socket, char* data, std::size_t size, int timeoutMilliseconds) {
    while (size > 0) {
        pollfd waiting{socket, POLLIN, 0};
        const int ready = poll(&waiting, 1, timeoutMilliseconds);
        if (ready < 0) {
            if (errno == EINTR)
                continue;
            return ReceiveStatus::Closed;
        }
        if (ready == 0) {
            return ReceiveStatus::TimedOut;
        }
        const ssize_t got = recv(socket, data, size, 0);
        if (got < 0) {
            if (errno == EINTR)
                continue;
            return ReceiveStatus::Closed;
        }
        if (got == 0) {
            return ReceiveStatus::Closed;
        }
        data += got;
        size -= static_cast<std::size_t>(got);
    }
    return ReceiveStatus::Received;
}

void PutU32(char* at, std::uint32_t value) {
    for (int i = 0; i < 4; ++i)
        at[i] = static_cast<char>((value >> (8 * i)) & 0xff);
}

// A part of a frame, read as it comes in pieces of at most this many bytes:
// the part grows with the bytes that came, so a header declaring more than
// ever follows (a taken-over worker's) costs no more memory than what did
// follow, not the 512 MB it declared.
constexpr std::size_t kReceivePiece = 1u << 20;

ReceiveStatus ReceivePart(int socket, std::string& part, std::uint32_t size) {
    part.clear();
    while (part.size() < size) {
        const std::size_t had = part.size();
        const std::size_t piece = std::min<std::size_t>(size - had, kReceivePiece);
        part.resize(had + piece);
        // Once a frame has begun, the rest follows at once.
        const ReceiveStatus status = ReceiveAll(socket, part.data() + had, piece, -1);
        if (status != ReceiveStatus::Received) {
            return status;
        }
    }
    return ReceiveStatus::Received;
}

std::uint32_t GetU32(const char* at) {
    std::uint32_t value = 0;
    for (int i = 0; i < 4; ++i)
        value |= static_cast<std::uint32_t>(static_cast<unsigned char>(at[i])) << (8 * i);
    return value;
}

}  // namespace

bool Send(int socket, const Message& message) {
    if (message.json.size() > kMaxPart || message.binary.size() > kMaxPart) {
        return false;
    }
    char header[8];
    PutU32(header, static_cast<std::uint32_t>(message.json.size()));
    PutU32(header + 4, static_cast<std::uint32_t>(message.binary.size()));
    return SendAll(socket, header, sizeof header) &&
           SendAll(socket, message.json.data(), message.json.size()) &&
           SendAll(socket, message.binary.data(), message.binary.size());
}

ReceiveStatus Receive(int socket, Message& message, int timeoutMilliseconds) {
    char header[8];
    ReceiveStatus status = ReceiveAll(socket, header, sizeof header, timeoutMilliseconds);
    if (status != ReceiveStatus::Received) {
        return status;
    }
    const std::uint32_t jsonSize = GetU32(header);
    const std::uint32_t binarySize = GetU32(header + 4);
    if (jsonSize > kMaxPart || binarySize > kMaxPart) {
        return ReceiveStatus::Closed;
    }
    status = ReceivePart(socket, message.json, jsonSize);
    if (status == ReceiveStatus::Received) {
        status = ReceivePart(socket, message.binary, binarySize);
    }
    return status;
}

namespace {

// A whole number of type T, or an exception (read as a message that does
// not decode, as a missing field is): nlohmann's get<int>() converts a
// fraction or a number beyond int's range without a check, which is
// undefined (UBSan: "4e+84 is outside the range of representable values of
// type 'int'", a preview reply's "bands").
template <class T>
T Whole(const Json& value) {
    if (value.is_number_unsigned()) {
        if (const auto number = value.get<std::uint64_t>(); std::in_range<T>(number)) {
            return static_cast<T>(number);
        }
    } else if (value.is_number_integer()) {
        if (const auto number = value.get<std::int64_t>(); std::in_range<T>(number)) {
            return static_cast<T>(number);
        }
    }
    throw std::invalid_argument("not a whole number within range: " + value.dump());
}

// A rectangle as [x, y, width, height], exactly (JSON keeps every double).
Json RectJson(const Rect& r) {
    return {r.x, r.y, r.width, r.height};
}

Rect RectOf(const Json& r) {
    return {r.at(0).get<double>(), r.at(1).get<double>(), r.at(2).get<double>(),
            r.at(3).get<double>()};
}

// A task travels with its settings as a profile's text.
Json TaskJson(const ImageTask& task) {
    Json json = {
        {"index", task.index},
        {"source", task.source},
        {"output", task.output},
        {"decision", DecisionName(task.decision)},
        {"settings", Json::parse(ProfileText(task.settings))},
        {"kind", TaskKindName(task.kind)},
        {"target", OutputTargetName(task.target)},
    };
    if (task.adjustedRect) {
        json["adjustedRect"] = RectJson(*task.adjustedRect);
    }
    return json;
}

ImageTask TaskOf(const Json& json) {
    ImageTask task;
    task.index = Whole<long>(json.at("index"));
    task.source = json.at("source").get<std::string>();
    task.output = json.at("output").get<std::string>();
    task.decision = DecisionFromName(json.at("decision").get<std::string>());
    const Loaded<CropSettings> settings =
        SettingsFromProfileText(json.at("settings").dump(), CropSettings{});
    if (!settings) {
        throw std::invalid_argument("settings: " + settings.reason());
    }
    task.settings = *settings;
    const std::optional<TaskKind> kind = TaskKindFromName(json.at("kind").get<std::string>());
    const std::optional<OutputTarget> target =
        OutputTargetFromName(json.at("target").get<std::string>());
    if (!kind || !target) {
        throw std::invalid_argument("unknown task kind or output target");
    }
    task.kind = *kind;
    task.target = *target;
    if (json.contains("adjustedRect")) {
        task.adjustedRect = RectOf(json.at("adjustedRect"));
    }
    return task;
}

// A date taken as [year, month, day, hour, minute, second], or null.
Json PhotoFactsJson(const PhotoFacts& facts) {
    Json json = {{"taken", nullptr}, {"camera", facts.camera}};
    if (const auto& t = facts.taken) {
        json["taken"] = {t->year, t->month, t->day, t->hour, t->minute, t->second};
    }
    return json;
}

PhotoFacts PhotoFactsOf(const Json& json) {
    PhotoFacts facts;
    facts.camera = json.at("camera").get<std::string>();
    if (const Json& t = json.at("taken"); !t.is_null()) {
        facts.taken = CalendarTime{t.at(0).get<int>(), t.at(1).get<int>(), t.at(2).get<int>(),
                                   t.at(3).get<int>(), t.at(4).get<int>(), t.at(5).get<int>()};
    }
    return facts;
}

Json SentenceJson(const Sentence& sentence) {
    return {{"pattern", sentence.pattern}, {"values", sentence.values}};
}

Sentence SentenceOf(const Json& json) {
    return {json.at("pattern").get<std::string>(),
            json.at("values").get<std::vector<std::string>>()};
}

Json SentencesJson(const Sentences& sentences) {
    Json json = Json::array();
    for (const Sentence& sentence : sentences) {
        json.push_back(SentenceJson(sentence));
    }
    return json;
}

Sentences SentencesOf(const Json& json) {
    Sentences sentences;
    for (const Json& sentence : json) {
        sentences.push_back(SentenceOf(sentence));
    }
    return sentences;
}

Json OutcomeJson(const ImageOutcome& outcome) {
    Json json = {{"status", StatusName(outcome.status)},
                 {"failure", nullptr},
                 {"notes", Json::array()},
                 {"warnings", SentencesJson(outcome.warnings)},
                 {"wholeImage", outcome.wholeImage}};
    if (outcome.failure) {
        json["failure"] = {{"stage", StageName(outcome.failure->stage)},
                           {"reason", outcome.failure->reason},
                           {"detail", SentenceJson(outcome.failure->detail)}};
    }
    for (const ImageNote& note : outcome.notes) {
        json["notes"].push_back({{"kind", NoteKindName(note.kind)}, {"detail", note.detail}});
    }
    if (outcome.rect) {
        json["rect"] = RectJson(*outcome.rect);
    }
    if (outcome.outputSize) {
        json["size"] = {outcome.outputSize->width, outcome.outputSize->height};
    }
    if (outcome.photoFacts) {
        json["photoFacts"] = PhotoFactsJson(*outcome.photoFacts);
    }
    if (outcome.fittedQuality) {
        json["fittedQuality"] = *outcome.fittedQuality;
    }
    for (const Rect& face : outcome.faces) {
        json["faces"].push_back(RectJson(face));
    }
    return json;
}

ImageOutcome OutcomeOf(const Json& json) {
    ImageOutcome outcome;
    outcome.status = StatusFromName(json.at("status").get<std::string>());
    if (const Json& failure = json.at("failure"); !failure.is_null()) {
        const std::optional<FailureStage> stage =
            StageFromName(failure.at("stage").get<std::string>());
        if (!stage) {
            throw std::invalid_argument("unknown failure stage");
        }
        outcome.failure = Failure{*stage, failure.at("reason").get<std::string>(),
                                  SentenceOf(failure.at("detail"))};
    }
    for (const Json& note : json.at("notes")) {
        outcome.notes.push_back({NoteKindFromName(note.at("kind").get<std::string>()),
                                 note.at("detail").get<std::string>()});
    }
    outcome.warnings = SentencesOf(json.at("warnings"));
    outcome.wholeImage = json.at("wholeImage").get<bool>();
    if (json.contains("rect")) {
        outcome.rect = RectOf(json.at("rect"));
    }
    if (json.contains("size")) {
        outcome.outputSize =
            Size{json["size"].at(0).get<double>(), json["size"].at(1).get<double>()};
    }
    if (json.contains("fittedQuality")) {
        outcome.fittedQuality = json.at("fittedQuality").get<int>();
    }
    if (json.contains("photoFacts")) {
        outcome.photoFacts = PhotoFactsOf(json.at("photoFacts"));
    }
    if (json.contains("faces")) {
        for (const Json& face : json.at("faces")) {
            outcome.faces.push_back(RectOf(face));
        }
    }
    return outcome;
}

}  // namespace

// One serialisation per message. The "type" names it on the wire.

void to_json(Json& json, const Hello& m) {
    json = {{"type", Hello::kType}, {"version", m.version}, {"sandbox", Json::array()}};
    for (const SandboxLayer& layer : m.sandbox) {
        json["sandbox"].push_back(
            {{"name", layer.name}, {"active", layer.active}, {"detail", layer.detail}});
    }
}
void from_json(const Json& json, Hello& m) {
    m.version = Whole<int>(json.at("version"));
    m.sandbox.clear();
    for (const Json& layer : json.at("sandbox")) {
        m.sandbox.push_back({layer.at("name").get<std::string>(), layer.at("active").get<bool>(),
                             layer.at("detail").get<std::string>()});
    }
}

void to_json(Json& json, const ImageRequest& m) {
    json = {{"type", ImageRequest::kType},
            {"task", TaskJson(m.task)},
            {"maxPixels", m.maxPixels},
            {"onlySecondDecoder", m.onlySecondDecoder}};
}
void from_json(const Json& json, ImageRequest& m) {
    m.task = TaskOf(json.at("task"));
    m.maxPixels = Whole<std::uint64_t>(json.at("maxPixels"));
    m.onlySecondDecoder = json.at("onlySecondDecoder").get<bool>();
}

void to_json(Json& json, const PreviewRequest& m) {
    json = {{"type", PreviewRequest::kType},
            {"path", m.path},
            {"maxSide", m.maxSide},
            {"maxPixels", m.maxPixels},
            {"onlySecondDecoder", m.onlySecondDecoder},
            {"faces", m.looks.faces},
            {"embedded", m.embedded}};
    if (m.looks.trimTolerance) {
        json["trimTolerance"] = *m.looks.trimTolerance;
    }
}
void from_json(const Json& json, PreviewRequest& m) {
    m.path = json.at("path").get<std::string>();
    m.maxSide = Whole<int>(json.at("maxSide"));
    m.maxPixels = Whole<std::uint64_t>(json.at("maxPixels"));
    m.onlySecondDecoder = json.at("onlySecondDecoder").get<bool>();
    m.looks.faces = json.at("faces").get<bool>();
    m.embedded = json.at("embedded").get<bool>();
    m.looks.trimTolerance.reset();
    if (const auto tolerance = json.find("trimTolerance"); tolerance != json.end()) {
        m.looks.trimTolerance = tolerance->get<double>();
    }
}

void to_json(Json& json, const DecodingNote& m) {
    json = {{"type", DecodingNote::kType}, {"bytes", m.bytes}};
}
void from_json(const Json& json, DecodingNote& m) {
    m.bytes = Whole<std::uint64_t>(json.at("bytes"));
}

void to_json(Json& json, const OutcomeReply& m) {
    json = {{"type", OutcomeReply::kType}, {"outcome", OutcomeJson(m.outcome)}};
}
void from_json(const Json& json, OutcomeReply& m) {
    m.outcome = OutcomeOf(json.at("outcome"));
}

namespace {

Message Framed(const Json& json) {
    return {json.dump(), {}};
}

// What a preview looked for, beside its picture: each face as its box and
// how sure the detector is, or why none could be looked for; the trim's
// tolerance and content (null for background throughout).
void PutLooks(const Preview& preview, Json& json) {
    if (const std::optional<FaceSearch>& search = preview.faces) {
        Json faces = Json::array();
        for (const DetectedFace& face : search->faces) {
            faces.push_back({{"box", RectJson(face.box)}, {"confidence", face.confidence}});
        }
        json["faces"] = {{"found", faces}, {"failure", search->failure}};
    }
    if (const std::optional<TrimLook>& trim = preview.trim) {
        json["trim"] = {{"tolerance", trim->tolerance},
                        {"content", trim->content ? RectJson(*trim->content) : Json()}};
    }
}

void TakeLooks(const Json& json, Preview& preview) {
    if (const auto faces = json.find("faces"); faces != json.end()) {
        FaceSearch search;
        for (const Json& face : faces->at("found")) {
            search.faces.push_back({RectOf(face.at("box")), face.at("confidence").get<double>()});
        }
        search.failure = faces->at("failure").get<std::string>();
        preview.faces = std::move(search);
    }
    if (const auto trim = json.find("trim"); trim != json.end()) {
        TrimLook look{trim->at("tolerance").get<double>(), std::nullopt};
        if (const Json& content = trim->at("content"); !content.is_null()) {
            look.content = RectOf(content);
        }
        preview.trim = look;
    }
}

// The picture as 8-bit sRGB, three samples a pixel, or four when it has
// alpha, in the binary part; its size and the rest in the JSON.
Message EncodePreview(const PreviewResult& preview) {
    if (!preview) {
        return Framed({{"type", PreviewReply::kType}, {"reason", preview.reason()}});
    }
    const vips::VImage* pixels = ImageAccess::Pixels(preview->picture);
    if (pixels == nullptr) {
        return Framed({{"type", PreviewReply::kType}, {"reason", "the picture is empty"}});
    }
    vipsruntime::FailureScope scope;
    try {
        const vips::VImage rgb = pixelconvert::ToSrgb8(*pixels, pixels->has_alpha());
        std::size_t size = 0;
        void* data = rgb.write_to_memory(&size);
        Json json{{"type", PreviewReply::kType},
                  {"fullSize", {preview->fullSize.width, preview->fullSize.height}},
                  {"pages", preview->pages},
                  {"width", rgb.width()},
                  {"height", rgb.height()},
                  {"bands", rgb.bands()}};
        if (const std::optional<JpegGrid>& grid = preview->jpegGrid) {
            json["jpegGrid"] = {grid->blockWidth, grid->blockHeight, grid->storedWidth,
                                grid->storedHeight, grid->orientation};
        }
        PutLooks(*preview, json);
        Message message{json.dump(), std::string(static_cast<const char*>(data), size)};
        g_free(data);
        return message;
    } catch (const vips::VError& error) {
        return Framed({{"type", PreviewReply::kType}, {"reason", scope.Reason(error)}});
    }
}

PreviewResult DecodePreview(const Json& json, const std::string& binary) {
    if (json.contains("reason")) {
        return PreviewResult::Failure(json.at("reason").get<std::string>());
    }
    const int width = Whole<int>(json.at("width"));
    const int height = Whole<int>(json.at("height"));
    const int bands = Whole<int>(json.at("bands"));
    if (width <= 0 || height <= 0 || (bands != 3 && bands != 4) ||
        binary.size() != static_cast<std::size_t>(width) * height * bands) {
        return PreviewResult::Failure("the image worker sent a damaged picture");
    }
    vipsruntime::EnsureStarted();
    vips::VImage pixels =
        vips::VImage::new_from_memory_steal(g_memdup2(binary.data(), binary.size()), binary.size(),
                                            width, height, bands, VIPS_FORMAT_UCHAR);
    pixels = pixels.copy(vips::VImage::option()->set("interpretation", VIPS_INTERPRETATION_sRGB));
    const Size full{json.at("fullSize").at(0).get<double>(),
                    json.at("fullSize").at(1).get<double>()};
    std::optional<JpegGrid> grid;
    if (const auto found = json.find("jpegGrid"); found != json.end()) {
        grid =
            JpegGrid{Whole<int>(found->at(0)), Whole<int>(found->at(1)), Whole<int>(found->at(2)),
                     Whole<int>(found->at(3)), Whole<int>(found->at(4))};
    }
    Preview preview{full, ImageAccess::Make(pixels, width, height), Whole<int>(json.at("pages")),
                    grid};
    TakeLooks(json, preview);
    return PreviewResult::Success(std::move(preview));
}

// The message of `type` in `json`, or nothing.
template <class Variant, class First, class... Rest>
std::optional<Variant> Parsed(const std::string& type, const Json& json) {
    if (type == First::kType) {
        return Variant(json.get<First>());
    }
    if constexpr (sizeof...(Rest) > 0) {
        return Parsed<Variant, Rest...>(type, json);
    } else {
        return std::nullopt;
    }
}

}  // namespace

Message Encode(const Request& request) {
    return std::visit([](const auto& m) { return Framed(Json(m)); }, request);
}

Message Encode(const Reply& reply) {
    return std::visit(
        [](const auto& m) -> Message {
            if constexpr (std::is_same_v<std::decay_t<decltype(m)>, PreviewReply>) {
                return EncodePreview(m.preview);
            } else {
                return Framed(Json(m));
            }
        },
        reply);
}

std::optional<Request> DecodeRequest(const Message& message) {
    try {
        const Json json = Json::parse(message.json);
        return Parsed<Request, ImageRequest, PreviewRequest>(json.at("type").get<std::string>(),
                                                             json);
    } catch (const std::exception&) {
        return std::nullopt;
    }
}

std::optional<Reply> DecodeReply(const Message& message) {
    try {
        const Json json = Json::parse(message.json);
        const std::string type = json.at("type").get<std::string>();
        if (type == PreviewReply::kType) {
            return Reply(PreviewReply{DecodePreview(json, message.binary)});
        }
        return Parsed<Reply, Hello, DecodingNote, OutcomeReply>(type, json);
    } catch (const std::exception&) {
        return std::nullopt;
    }
}

}  // namespace vellumo::workerprotocol
