#pragma once

// The image shown in the preview: which file it is, its full pixel size (the
// labels and the crop rule speak of the whole file), the smaller picture of
// it that is drawn, and the reduced picture a smart anchor judges.
//
// Opening a file decodes it away from the GUI thread (a large file takes a
// while); redrawing cuts the crop into the picture away from it too. Each
// open and each redraw is a request object; a result is used only while its
// request is still the latest of its kind, so the results of an earlier
// selection or refresh that arrive late are dropped. Pictures of the files
// around the open one are decoded ahead (PreviewPrefetch). All of it is used
// from the GUI thread; the workers get plain values and hand their results
// back as queued calls.

#include <QImage>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QThreadPool>
#include <functional>
#include <memory>
#include <optional>

#include "batch/CropRectangle.h"
#include "batch/CropSettings.h"
#include "batch/PreviewDecoder.h"
#include "imaging/Image.h"
#include "ui/preview/CropFrame.h"

namespace vellumo {

class PreviewPrefetch;

// A small picture of a file made before (its thumbnail), upright, and the
// file's full pixel size.
struct KeptPicture {
    QImage picture;
    Size fullSize;
};

// What the crop rule of some settings needs of a file beyond its picture:
// the reduced picture a smart anchor judges, the faces in it, what a trim
// finds. All of it comes from the worker with the file's decoding.
struct PreviewNeeds {
    bool placement = false;
    PreviewLooks looks;

    static PreviewNeeds Of(const CropSettings& settings);
    friend bool operator==(const PreviewNeeds&, const PreviewNeeds&) = default;
};

class PreviewSession : public QObject {
    Q_OBJECT

  public:
    // Starts with no image, decoding in worker processes: a file that crashes
    // an image library takes down a worker, never the window.
    explicit PreviewSession(QObject* parent = nullptr);
    // Waits for the decodes and redraws under way.
    ~PreviewSession() override;

    // The longer side of the picture decoded for a view whose picture can be
    // `viewSide` pixels: legible while the window is still being laid out,
    // and not wasteful on a very large screen.
    static int PictureSideFor(int viewSide);

    // What decodes the pictures, those made ahead included; used from the
    // next open on, the pictures made ahead forgotten.
    void SetDecoder(std::shared_ptr<PreviewDecoder> decoder);
    // Where the files around the open one are found, nearest first.
    void SetNeighbours(std::function<QStringList(const QString& path)> neighbours);
    // Where small pictures made before are found: one is shown at once while
    // its file's own picture is decoded (provisionalPicture).
    void SetKeptPictures(std::function<std::optional<KeptPicture>(const QString& path)> find);
    // The pictures made ahead for browsing.
    PreviewPrefetch& prefetch() { return *prefetch_; }

    // ---- The current image ------------------------------------------------

    // The file shown; empty while none is (or the preview was emptied).
    const QString& path() const { return path_; }
    // The image as the labels and the crop rule see it: its full pixel size.
    const Image& image() const { return image_; }
    // Makes `image` current, shown as it is.
    void SetImage(const Image& image);
    // The reduced picture smart anchors judge, decoded with the image while
    // one is chosen (kPlacementPictureSide).
    const std::optional<Image>& placementPicture() const { return placementPicture_; }
    // The faces found in the placement picture, when they were asked for.
    const std::optional<FaceSearch>& faces() const { return faces_; }
    // What the trim of `settings` finds on the image, when it was looked
    // for at the settings' tolerance; nothing when the settings do not trim.
    std::optional<TrimFinding> TrimFindingFor(const CropSettings& settings) const;
    // The open image came with everything `needs` asks for.
    bool Has(const PreviewNeeds& needs) const;
    // How many pages or frames the file has, and the block grid of a JPEG.
    int pages() const { return pages_; }
    const std::optional<JpegGrid>& jpegGrid() const { return jpegGrid_; }

    // ---- Requests ---------------------------------------------------------

    // Opens `path` for pictures of `side` pixels, with what `needs` asks
    // for: a picture made ahead is used at once when nothing more is needed,
    // else it is decoded (loadingStarted). Ends with loaded or loadingFailed,
    // unless a newer open or a Close came first.
    void Open(const QString& path, int side, const PreviewNeeds& needs);
    // No image any more; what is under way for the last open is dropped.
    void Close();
    // Draws the picture with the crop of `settings` marked (`adjusted`, the
    // rectangle adjusted by hand, if any); ends with pictureReady unless a
    // newer redraw or Empty came first. Nothing without an image.
    void Redraw(const CropSettings& settings, const std::optional<Rect>& adjusted);
    // The preview shows nothing: no file, and redraws under way are dropped.
    void Empty();
    // True when the picture is smaller than a view whose picture can be
    // `viewSide` pixels would show it (and the file has more pixels to give).
    bool PictureTooSmallFor(int viewSide);

    // True while an open or a redraw asked for last has not ended.
    bool isLoading() const { return loading_; }
    bool isPending() const { return loading_ || pendingRedraw_ != nullptr; }

    // What has come back to the GUI thread, used or dropped as stale, and how
    // often the picture's size was checked: something to wait for instead of
    // waiting a while.
    struct Deliveries {
        quint64 decodes = 0;
        quint64 pictures = 0;
        quint64 sizeChecks = 0;
    };
    const Deliveries& deliveries() const { return deliveries_; }

  Q_SIGNALS:
    // A decode began; the preview is busy until loaded or loadingFailed.
    void loadingStarted();
    // While another file than the one shown is decoded: a small picture of it
    // made before, to show until loaded or loadingFailed.
    void provisionalPicture(const KeptPicture& kept);
    // `path` is the current image now; `plain` its picture, ready to draw.
    void loaded(const QString& path, const QImage& plain);
    // `path` could not be decoded, for `reason`; the image is still the last.
    void loadingFailed(const QString& path, const QString& reason);
    // The picture with the crop veiled, and the crop's frame.
    void pictureReady(const QImage& picture, const CropFrame& frame);

  private:
    struct OpenRequest {
        QString path;
        int side = 0;
    };
    struct RedrawRequest {};
    // What came with a decoding beyond the picture.
    struct Placement {
        std::optional<Image> picture;
        std::optional<FaceSearch> faces;
    };

    void Decode(const std::shared_ptr<const OpenRequest>& request, const PreviewNeeds& needs);
    void Deliver(const std::shared_ptr<const OpenRequest>& request, const PreviewResult& result,
                 const Placement& placement, const QImage& plain);
    void PrefetchAround(const OpenRequest& request);
    void ShowRedrawn(const std::shared_ptr<const RedrawRequest>& request, const QImage& picture,
                     const CropFrame& frame);

    std::shared_ptr<PreviewDecoder> decoder_;
    std::shared_ptr<PreviewDecoder> prefetchDecoder_;
    std::function<QStringList(const QString&)> neighbours_;
    std::function<std::optional<KeptPicture>(const QString&)> keptPictures_;
    PreviewPrefetch* prefetch_;

    QString path_;
    Image image_;
    // The image's picture, as decoded for the preview.
    Image picture_;
    std::optional<Image> placementPicture_;
    std::optional<FaceSearch> faces_;
    std::optional<TrimLook> trim_;
    int pages_ = 1;
    std::optional<JpegGrid> jpegGrid_;

    // The latest open (kept once it has ended, until the next open or a
    // Close) and the latest redraw not yet shown.
    std::shared_ptr<const OpenRequest> openRequest_;
    bool loading_ = false;
    std::shared_ptr<const RedrawRequest> pendingRedraw_;
    Deliveries deliveries_;

    // Last, so that it goes first: the session waits for its workers.
    QThreadPool work_;
};

}  // namespace vellumo
