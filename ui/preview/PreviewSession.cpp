#include "ui/preview/PreviewSession.h"

#include <QFile>
#include <algorithm>

#include "batch/FaceCrop.h"
#include "imaging/Fatal.h"
#include "ui/job/WorkerSettings.h"
#include "ui/preview/PreviewPicture.h"
#include "ui/preview/PreviewPrefetch.h"
#include "worker/WorkerImageProcessor.h"

namespace vellumo {

namespace {

constexpr int kSmallestPictureSide = 256;
constexpr int kLargestPictureSide = 4096;

}  // namespace

PreviewNeeds PreviewNeeds::Of(const CropSettings& settings) {
    PreviewNeeds needs;
    needs.placement = UsesPlacementPicture(settings);
    needs.looks.faces = UsesFaces(settings);
    if (UsesTrimming(settings)) {
        needs.looks.trimTolerance = settings.trim.tolerance;
    }
    return needs;
}

PreviewSession::PreviewSession(QObject* parent)
    : QObject(parent),
      decoder_(std::make_shared<WorkerPreviewDecoder>(workersettings::Foreground())),
      // Pictures made ahead come from workers at the lowest priority, so
      // they never take a core from the picture of the row just selected.
      prefetchDecoder_(std::make_shared<WorkerPreviewDecoder>(workersettings::Background())),
      prefetch_(new PreviewPrefetch(this)) {
    // A long decode (a huge PNG) must not hold up the next selection's.
    work_.setMaxThreadCount(2);
}

PreviewSession::~PreviewSession() {
    work_.clear();
    work_.waitForDone();
}

int PreviewSession::PictureSideFor(int viewSide) {
    return std::clamp(viewSide, kSmallestPictureSide, kLargestPictureSide);
}

void PreviewSession::SetDecoder(std::shared_ptr<PreviewDecoder> decoder) {
    if (!decoder) {
        Fatal("the window needs a preview decoder");
    }
    decoder_ = std::move(decoder);
    prefetchDecoder_ = decoder_;
    prefetch_->Clear();
}

void PreviewSession::SetNeighbours(std::function<QStringList(const QString&)> neighbours) {
    neighbours_ = std::move(neighbours);
}

void PreviewSession::SetKeptPictures(
    std::function<std::optional<KeptPicture>(const QString&)> find) {
    keptPictures_ = std::move(find);
}

void PreviewSession::SetImage(const Image& image) {
    image_ = image;
    picture_ = image;
}

void PreviewSession::Open(const QString& path, int side, const PreviewNeeds& needs) {
    auto request = std::make_shared<const OpenRequest>(OpenRequest{path, side});
    openRequest_ = request;
    // Pictures of earlier selections not yet begun are not needed any more.
    work_.clear();
    // A picture made ahead (or recently) is shown at once.
    if (needs == PreviewNeeds{}) {
        if (const std::optional<PreviewPrefetch::Picture> kept = prefetch_->Find(path, side)) {
            loading_ = false;
            Deliver(request, kept->result, {}, kept->plain);
            PrefetchAround(*request);
            return;
        }
    }
    loading_ = true;
    Q_EMIT loadingStarted();
    // A file shown already keeps its sharper picture while it is decoded
    // again (for a larger view, or what a rule needs).
    if (keptPictures_ && path != path_) {
        if (const std::optional<KeptPicture> kept = keptPictures_(path)) {
            Q_EMIT provisionalPicture(*kept);
        }
    }
    Decode(request, needs);
}

// The faces are looked for in the reduced picture, as the job looks for
// them; the trim's content on the full image, with the picture's decoding.
void PreviewSession::Decode(const std::shared_ptr<const OpenRequest>& request,
                            const PreviewNeeds& needs) {
    work_.start([this, decoder = decoder_, request, needs] {
        const std::string file = QFile::encodeName(request->path).toStdString();
        PreviewResult result =
            needs.looks.trimTolerance
                ? decoder->DecodeLooking(file, request->side,
                                         PreviewLooks{false, needs.looks.trimTolerance})
                : decoder->Decode(file, request->side);
        Placement placement;
        const QImage plain = result ? PictureAsQImage(result->picture) : QImage();
        if (result && needs.placement) {
            const PreviewResult reduced = decoder->DecodeLooking(
                file, kPlacementPictureSide, PreviewLooks{needs.looks.faces, std::nullopt});
            if (reduced) {
                placement = {reduced->picture, reduced->faces};
            }
        }
        QMetaObject::invokeMethod(
            this,
            [this, request, result = std::move(result), placement = std::move(placement), plain] {
                prefetch_->Keep(request->path, request->side, {result, plain});
                Deliver(request, result, placement, plain);
                if (request == openRequest_) {
                    PrefetchAround(*request);
                }
            },
            Qt::QueuedConnection);
    });
}

void PreviewSession::Deliver(const std::shared_ptr<const OpenRequest>& request,
                             const PreviewResult& result, const Placement& placement,
                             const QImage& plain) {
    ++deliveries_.decodes;
    if (request != openRequest_) {
        return;
    }
    loading_ = false;
    if (!result) {
        Q_EMIT loadingFailed(request->path, QString::fromStdString(result.reason()));
        return;
    }
    path_ = request->path;
    image_ = Image::OfSize(result->fullSize.width, result->fullSize.height);
    picture_ = result->picture;
    placementPicture_ = placement.picture;
    faces_ = placement.faces;
    trim_ = result->trim;
    pages_ = result->pages;
    jpegGrid_ = result->jpegGrid;
    Q_EMIT loaded(path_, plain);
}

std::optional<TrimFinding> PreviewSession::TrimFindingFor(const CropSettings& settings) const {
    if (!UsesTrimming(settings) || !trim_ || trim_->tolerance != settings.trim.tolerance) {
        return std::nullopt;
    }
    return TrimFinding{trim_->content};
}

bool PreviewSession::Has(const PreviewNeeds& needs) const {
    const std::optional<double>& tolerance = needs.looks.trimTolerance;
    return (!needs.placement || placementPicture_) && (!needs.looks.faces || faces_) &&
           (!tolerance || (trim_ && trim_->tolerance == *tolerance));
}

void PreviewSession::PrefetchAround(const OpenRequest& request) {
    if (neighbours_) {
        prefetch_->Prefetch(neighbours_(request.path), request.side, prefetchDecoder_);
    }
}

void PreviewSession::Close() {
    openRequest_.reset();
    loading_ = false;
    image_ = Image();
    picture_ = Image();
    placementPicture_.reset();
    faces_.reset();
    trim_.reset();
    pages_ = 1;
    jpegGrid_.reset();
}

void PreviewSession::Redraw(const CropSettings& settings, const std::optional<Rect>& adjusted) {
    if (!(image_.Width() > 0.0) || !(image_.Height() > 0.0)) {
        return;
    }
    // What is drawn is what the job cuts: nothing veiled when the image is
    // written whole, the part on the image when the rectangle is clipped. A
    // smart anchor looks at pixels, so the rule runs with the picture off
    // this thread. The faces the rule goes by are outlined.
    auto request = std::make_shared<const RedrawRequest>();
    pendingRedraw_ = request;
    const Size fullSize{image_.Width(), image_.Height()};
    const std::optional<FaceSearch> faces = UsesFaces(settings) ? faces_ : std::nullopt;
    work_.start([this, request, picture = picture_, placement = placementPicture_, settings,
                 image = image_, fullSize, adjusted, faces, trimmed = TrimFindingFor(settings)] {
        const Image* judged = placement ? &*placement : nullptr;
        const TrimFinding* trim = trimmed ? &*trimmed : nullptr;
        const FaceSearch* found = faces ? &*faces : nullptr;
        const ResolvedCrop rule = ResolveCrop(settings, image, judged, std::nullopt, trim, found);
        const Rect rect =
            adjusted ? ResolveCrop(settings, image, judged, adjusted, trim, found).cut : rule.cut;
        // A ratio rule keeps its ratio while the rectangle is resized by
        // hand; pixels and percents are free.
        const bool locked =
            settings.mode == CropMode::Auto && !IsWhole(rule.extent) && rule.cut.height > 0.0;
        CropFrame frame{rect,
                        fullSize,
                        locked ? rule.cut.width / rule.cut.height : 0.0,
                        adjusted.has_value(),
                        {}};
        if (faces) {
            for (const DetectedFace& face : faces->faces) {
                frame.faces.push_back(face.box);
            }
        }
        const QImage veiled = VeiledPreviewPicture(picture, fullSize, rect);
        QMetaObject::invokeMethod(
            this, [this, request, veiled, frame] { ShowRedrawn(request, veiled, frame); },
            Qt::QueuedConnection);
    });
}

void PreviewSession::ShowRedrawn(const std::shared_ptr<const RedrawRequest>& request,
                                 const QImage& picture, const CropFrame& frame) {
    ++deliveries_.pictures;
    if (request != pendingRedraw_) {
        return;
    }
    pendingRedraw_.reset();
    Q_EMIT pictureReady(picture, frame);
}

void PreviewSession::Empty() {
    pendingRedraw_.reset();
    path_.clear();
}

bool PreviewSession::PictureTooSmallFor(int viewSide) {
    ++deliveries_.sizeChecks;
    if (image_.IsEmpty() || loading_) {
        return false;
    }
    const int wanted = PictureSideFor(viewSide);
    const double have = std::max(picture_.Width(), picture_.Height());
    const double full = std::max(image_.Width(), image_.Height());
    // A picture as large as the file itself cannot get any sharper.
    return have < wanted && have < full;
}

}  // namespace vellumo
