#include "imaging/FacePlacement.h"

#include <algorithm>
#include <cmath>

namespace vellumo {

namespace {

// A detection this sure or more counts as one whole face; fainter ones count
// for less, down to a half at the detector's threshold.
double Trust(const DetectedFace& face) {
    return std::clamp(0.5 + face.confidence, 0.5, 1.0);
}

double Area(const Rect& r) {
    return r.width * r.height;
}

// The positions, along one axis, at which a span of `length` on an axis of
// `extent` holds the piece [start, start + size] whole.
struct Span {
    double low;
    double high;

    bool Holds(double at) const { return at >= low - 1e-9 && at <= high + 1e-9; }
};

Span Holding(double start, double size, double length) {
    return {start + size - length, start};
}

// How good one place is: the trusted count of faces kept whole, then their
// area.
struct Score {
    double trusted = 0.0;
    double area = 0.0;

    bool Beats(const Score& other) const {
        if (std::abs(trusted - other.trusted) > 1e-9) {
            return trusted > other.trusted;
        }
        return area > other.area + 1e-9;
    }
};

// The places worth trying along one axis: each face's limits, and both ends.
std::vector<double> Candidates(const std::vector<Span>& spans, double room) {
    std::vector<double> at{0.0, room};
    for (const Span& span : spans) {
        for (const double edge : {span.low, span.high}) {
            if (edge >= 0.0 && edge <= room) {
                at.push_back(edge);
            }
        }
    }
    return at;
}

// Which faces a rectangle at (x, y) keeps whole.
std::vector<bool> KeptAt(double x, double y, const std::vector<Span>& across,
                         const std::vector<Span>& up) {
    std::vector<bool> kept(across.size());
    for (std::size_t i = 0; i < across.size(); ++i) {
        kept[i] = across[i].Holds(x) && up[i].Holds(y);
    }
    return kept;
}

// `centre` - half of `length`, moved into the positions that keep every
// kept face whole (`spans` of the kept faces) and on the image.
double Centred(double centre, double length, double room, const std::vector<Span>& spans,
               const std::vector<bool>& kept) {
    double low = 0.0;
    double high = room;
    for (std::size_t i = 0; i < spans.size(); ++i) {
        if (kept[i]) {
            low = std::max(low, spans[i].low);
            high = std::min(high, spans[i].high);
        }
    }
    return std::clamp(centre - length * 0.5, low, std::max(low, high));
}

}  // namespace

std::optional<Rect> PlaceAroundFaces(Size image, Size rect,
                                     const std::vector<DetectedFace>& faces) {
    if (faces.empty()) {
        return std::nullopt;
    }
    const double roomX = std::max(0.0, image.width - rect.width);
    const double roomY = std::max(0.0, image.height - rect.height);
    std::vector<Span> across, up;
    for (const DetectedFace& face : faces) {
        across.push_back(Holding(face.box.x, face.box.width, rect.width));
        up.push_back(Holding(face.box.y, face.box.height, rect.height));
    }
    std::vector<bool> best(faces.size(), false);
    Score bestScore;
    for (const double x : Candidates(across, roomX)) {
        for (const double y : Candidates(up, roomY)) {
            const std::vector<bool> kept = KeptAt(x, y, across, up);
            Score score;
            for (std::size_t i = 0; i < faces.size(); ++i) {
                score.trusted += kept[i] ? Trust(faces[i]) : 0.0;
                score.area += kept[i] ? Area(faces[i].box) : 0.0;
            }
            if (score.Beats(bestScore)) {
                bestScore = score;
                best = kept;
            }
        }
    }
    // No face fits whole: the largest one is centred (faces come largest
    // first, and the others are judged the same way).
    if (std::none_of(best.begin(), best.end(), [](bool k) { return k; })) {
        best.front() = true;
        across.front() = {0.0, roomX};
        up.front() = {0.0, roomY};
    }
    double left = image.width, right = 0.0, bottom = image.height, top = 0.0;
    for (std::size_t i = 0; i < faces.size(); ++i) {
        if (best[i]) {
            const Rect& b = faces[i].box;
            left = std::min(left, b.x);
            right = std::max(right, b.x + b.width);
            bottom = std::min(bottom, b.y);
            top = std::max(top, b.y + b.height);
        }
    }
    return Rect{Centred((left + right) * 0.5, rect.width, roomX, across, best),
                Centred((bottom + top) * 0.5, rect.height, roomY, up, best), rect.width,
                rect.height};
}

PortraitPlacement PlacePortrait(Size image, AspectRatio ratio, const DetectedFace& face,
                                HeadAndShoulders shares) {
    PortraitPlacement placed;
    double height = face.box.height * 100.0 / static_cast<double>(shares.faceHeight);
    double width = height * ratio.width / ratio.height;
    const double fit = std::min(image.width / width, image.height / height);
    if (fit < 1.0) {
        width = std::min(width * fit, image.width);
        height = std::min(height * fit, image.height);
        placed.shrunk = true;
    }
    // y upward: the eye line lies below the box's top edge.
    const double eyes = face.box.y + face.box.height * (1.0 - kEyeLineInFaceBox);
    const double wantedX = face.box.x + face.box.width * 0.5 - width * 0.5;
    const double wantedY = eyes - height * (1.0 - static_cast<double>(shares.eyeLine) / 100.0);
    const double x = std::clamp(wantedX, 0.0, image.width - width);
    const double y = std::clamp(wantedY, 0.0, image.height - height);
    placed.moved = std::abs(x - wantedX) > 0.5 || std::abs(y - wantedY) > 0.5;
    placed.rect = {x, y, width, height};
    return placed;
}

}  // namespace vellumo
