// The faces anchor and the head-and-shoulders portrait: the detector on the
// hand-labelled group photos of the shared test data, the placement on drawn
// faces, the fallbacks, and the portrait's geometry. y is measured from the
// image's lower edge.

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <map>
#include <sstream>

#include "batch/CropRectangle.h"
#include "batch/FaceCrop.h"
#include "imaging/FaceDetection.h"
#include "imaging/FacePlacement.h"
#include "imaging/ImageTools.h"
#include "tests/support/TempDir.h"
#include "tests/support/TestData.h"
#include "tests/support/TestImages.h"

namespace vellumo {
namespace {

CropSettings FacesRule(AspectRatio ratio) {
    CropSettings s;
    s.mode = CropMode::Auto;
    s.autoCropRatio = RatioChoice::Custom;
    s.customRatio = ratio;
    s.matchOrientation = false;  // 3:4 as given, narrower than the groups
    s.anchor = CropAnchor::Faces;
    return s;
}

// The labelled photos: each file's size and its faces, turned from the
// list's top-left rows to lower-left coordinates.
struct LabelledPhoto {
    std::string file;
    Size size;
    std::vector<Rect> faces;
};

std::vector<LabelledPhoto> LabelledPhotos() {
    std::ifstream list(test::TestDataPath("faces/faces.tsv"));
    std::map<std::string, std::vector<Rect>> faces;
    std::string line;
    std::getline(list, line);  // the heading
    while (std::getline(list, line)) {
        std::istringstream fields(line);
        std::string file;
        Rect box;
        double top = 0;
        fields >> file >> box.x >> top >> box.width >> box.height;
        box.y = top;  // turned below, once the height is known
        faces[file].push_back(box);
    }
    std::vector<LabelledPhoto> photos;
    for (auto& [file, boxes] : faces) {
        const std::optional<ImageHeader> header =
            ImageTools::HeaderOfFile(test::TestDataPath("faces/" + file));
        if (!header) {
            continue;
        }
        const Size size = header->pixelSize;
        for (Rect& box : boxes) {
            box.y = size.height - box.y - box.height;
        }
        photos.push_back({file, size, boxes});
    }
    return photos;
}

bool Holds(const Rect& crop, const Rect& face) {
    return face.x >= crop.x && face.y >= crop.y && face.x + face.width <= crop.x + crop.width &&
           face.y + face.height <= crop.y + crop.height;
}

int KeptFaces(const Rect& crop, const std::vector<Rect>& faces) {
    return static_cast<int>(
        std::count_if(faces.begin(), faces.end(), [&](const Rect& f) { return Holds(crop, f); }));
}

// The most labelled faces any rectangle of `size` on the photo keeps whole:
// every place where a face's edge meets the rectangle's edge, and the image's
// edges.
int MostKeepable(const LabelledPhoto& photo, Size size) {
    std::vector<double> xs{0.0, photo.size.width - size.width};
    std::vector<double> ys{0.0, photo.size.height - size.height};
    for (const Rect& f : photo.faces) {
        xs.insert(xs.end(), {f.x, f.x + f.width - size.width});
        ys.insert(ys.end(), {f.y, f.y + f.height - size.height});
    }
    int most = 0;
    for (const double x : xs) {
        for (const double y : ys) {
            if (x >= 0 && y >= 0 && x + size.width <= photo.size.width &&
                y + size.height <= photo.size.height) {
                most = std::max(most, KeptFaces({x, y, size.width, size.height}, photo.faces));
            }
        }
    }
    return most;
}

double Overlap(const Rect& a, const Rect& b) {
    const double w = std::min(a.x + a.width, b.x + b.width) - std::max(a.x, b.x);
    const double h = std::min(a.y + a.height, b.y + b.height) - std::max(a.y, b.y);
    const double inter = std::max(0.0, w) * std::max(0.0, h);
    return inter / (a.width * a.height + b.width * b.height - inter);
}

struct Looked {
    PreviewResult picture;
    FaceSearch faces;
};

Looked LookAt(const LabelledPhoto& photo) {
    PreviewResult picture =
        ImageTools::LoadPreview(test::TestDataPath("faces/" + photo.file), kPlacementPictureSide);
    FaceSearch faces = picture ? FindFaces(picture->picture, photo.size) : FaceSearch{};
    return {std::move(picture), std::move(faces)};
}

TEST(Faces, TheDetectorFindsEveryLabelledFaceAndNothingElse) {
    VELLUMO_REQUIRE_TESTDATA();
    int labelled = 0, found = 0, other = 0;
    for (const LabelledPhoto& photo : LabelledPhotos()) {
        const Looked looked = LookAt(photo);
        ASSERT_FALSE(looked.faces.Failed()) << looked.faces.failure;
        labelled += static_cast<int>(photo.faces.size());
        for (const Rect& face : photo.faces) {
            found += std::any_of(looked.faces.faces.begin(), looked.faces.faces.end(),
                                 [&](const DetectedFace& d) { return Overlap(d.box, face) > 0.3; });
        }
        for (const DetectedFace& d : looked.faces.faces) {
            other += std::none_of(photo.faces.begin(), photo.faces.end(),
                                  [&](const Rect& face) { return Overlap(d.box, face) > 0.3; });
        }
    }
    EXPECT_EQ(labelled, 18);
    EXPECT_EQ(found, 18);
    EXPECT_EQ(other, 0);
}

// At 1:1 and at 3:4, narrower than the groups: the crop keeps every labelled
// face that any crop of its size could keep, and never fewer than the
// centred or the attention crop. Prints the comparison the README shows.
TEST(Faces, TheAnchorKeepsAsManyLabelledFacesAsAnyCropCould) {
    VELLUMO_REQUIRE_TESTDATA();
    const std::vector<LabelledPhoto> photos = LabelledPhotos();
    ASSERT_EQ(photos.size(), 4u);
    for (const LabelledPhoto& photo : photos) {
        const Looked looked = LookAt(photo);
        for (const AspectRatio ratio : {AspectRatio{1, 1}, AspectRatio{3, 4}}) {
            const Image image = Image::OfSize(photo.size.width, photo.size.height);
            const ResolvedCrop crop = ResolveCrop(FacesRule(ratio), image, &looked.picture->picture,
                                                  std::nullopt, nullptr, &looked.faces);
            CropSettings other = FacesRule(ratio);
            other.anchor = CropAnchor::Centre;
            const Rect centre = ResolveCrop(other, image).rect;
            other.anchor = CropAnchor::Attention;
            const Rect attention = ResolveCrop(other, image, &looked.picture->picture).rect;
            const int kept = KeptFaces(crop.rect, photo.faces);
            EXPECT_EQ(kept, MostKeepable(photo, {crop.rect.width, crop.rect.height}))
                << photo.file << " at " << ratio.width << ":" << ratio.height;
            EXPECT_GE(kept, KeptFaces(centre, photo.faces));
            EXPECT_GE(kept, KeptFaces(attention, photo.faces));
            EXPECT_TRUE(crop.placementNote.empty());
            std::cout << "| " << photo.file << " | " << ratio.width << ":" << ratio.height << " | "
                      << photo.faces.size() << " | "
                      << MostKeepable(photo, {crop.rect.width, crop.rect.height}) << " | "
                      << KeptFaces(centre, photo.faces) << " | "
                      << KeptFaces(attention, photo.faces) << " | " << kept << " | {" << crop.rect.x
                      << ", " << crop.rect.y << ", " << crop.rect.width << ", " << crop.rect.height
                      << "}\n";
        }
    }
}

DetectedFace Face(double x, double y, double side, double confidence = 1.0) {
    return {{x, y, side, side}, confidence};
}

// A row of faces wider than the crop: the crop keeps the most of them, then
// centres those it keeps.
TEST(FacePlacement, KeepsTheMostFacesWholeThenCentresThem) {
    // 1000 x 400, a 400 x 400 square: faces at 50, 500, 600 and 700 (50 wide).
    const std::vector<DetectedFace> faces = {Face(50, 100, 50), Face(500, 100, 50),
                                             Face(600, 100, 50), Face(700, 100, 50)};
    const std::optional<Rect> placed = PlaceAroundFaces({1000, 400}, {400, 400}, faces);
    ASSERT_TRUE(placed);
    // The three on the right span 500 to 750: centred at 625.
    EXPECT_EQ(*placed, (Rect{425, 0, 400, 400}));
}

TEST(FacePlacement, WhenNotAllFitTheLargestAreKept) {
    // Two small faces on the left, one large on the right; only one side
    // fits a 300-wide crop.
    const std::vector<DetectedFace> faces = {Face(800, 100, 150), Face(0, 100, 60),
                                             Face(200, 100, 60)};
    const std::optional<Rect> placed = PlaceAroundFaces({1000, 400}, {300, 400}, faces);
    ASSERT_TRUE(placed);
    // Two faces beat one, however large.
    EXPECT_EQ(*placed, (Rect{0, 0, 300, 400}));
    // With room for one only, the largest is kept, centred.
    const std::optional<Rect> narrow = PlaceAroundFaces({1000, 400}, {160, 400}, faces);
    ASSERT_TRUE(narrow);
    EXPECT_EQ(*narrow, (Rect{795, 0, 160, 400}));
}

TEST(FacePlacement, AFaintFalseDetectionDoesNotDrawTheCropAway) {
    // A clear face on the left; a faint, larger detection on the right (a
    // pattern in a curtain, say). No 400-wide crop holds both.
    const std::vector<DetectedFace> faces = {Face(800, 100, 120, 0.05), Face(100, 100, 80, 1.2)};
    const std::optional<Rect> placed = PlaceAroundFaces({1000, 400}, {400, 400}, faces);
    ASSERT_TRUE(placed);
    // The clear face kept, centred: 140 - 200.
    EXPECT_EQ(*placed, (Rect{0, 0, 400, 400}));
    // Two detections, however faint, outweigh one face.
    const std::vector<DetectedFace> two = {Face(800, 100, 60, 0.05), Face(900, 100, 60, 0.05),
                                           Face(100, 100, 80, 1.2)};
    EXPECT_EQ(PlaceAroundFaces({1000, 400}, {400, 400}, two)->x, 600.0);
    EXPECT_FALSE(PlaceAroundFaces({1000, 400}, {400, 400}, {}));
}

TEST(FacePlacement, APortraitHasTheFaceAndEyesWhereAsked) {
    // A 100-pixel face, box from y = 300 to 400 (lower-left origin), centred
    // at x = 500, on a 1000 x 1000 image; 3:4, the face 50 % of the height.
    const PortraitPlacement placed =
        PlacePortrait({1000, 1000}, {3, 4}, Face(450, 300, 100), {50.0f, 40.0f});
    EXPECT_FALSE(placed.moved);
    EXPECT_FALSE(placed.shrunk);
    EXPECT_EQ(placed.rect.height, 200.0);
    EXPECT_EQ(placed.rect.width, 150.0);
    EXPECT_EQ(placed.rect.x, 425.0);
    // The eyes at 400 - 30 = 370; 40 % of 200 below the top: top = 450.
    EXPECT_DOUBLE_EQ(placed.rect.y + placed.rect.height, 450.0);
    // Near the top-left corner: moved onto the image, the size kept.
    const PortraitPlacement corner =
        PlacePortrait({1000, 1000}, {3, 4}, Face(0, 880, 100), {50.0f, 40.0f});
    EXPECT_TRUE(corner.moved);
    EXPECT_FALSE(corner.shrunk);
    EXPECT_EQ(corner.rect, (Rect{0, 800, 150, 200}));
    // Larger than the image: as large as fits.
    const PortraitPlacement large =
        PlacePortrait({300, 300}, {3, 4}, Face(100, 100, 200), {45.0f, 40.0f});
    EXPECT_TRUE(large.shrunk);
    EXPECT_EQ(large.rect.height, 300.0);
    EXPECT_EQ(large.rect.width, 225.0);
}

TEST(Faces, WithoutAFaceTheAnchorFallsBackToAttentionAndSaysSo) {
    test::TempDir dir;
    const std::string file = dir.File("faceless.png");
    test::OffCentreSubject().pngsave(file.c_str());
    const PreviewResult picture = ImageTools::LoadPreview(file, kPlacementPictureSide);
    ASSERT_TRUE(picture) << picture.reason();
    const FaceSearch faces = FindFaces(picture->picture, {1200, 800});
    ASSERT_FALSE(faces.Failed()) << faces.failure;
    EXPECT_TRUE(faces.faces.empty());
    const Image image = Image::OfSize(1200, 800);
    const ResolvedCrop crop =
        ResolveCrop(FacesRule({1, 1}), image, &picture->picture, std::nullopt, nullptr, &faces);
    CropSettings attention = FacesRule({1, 1});
    attention.anchor = CropAnchor::Attention;
    EXPECT_EQ(crop.rect, ResolveCrop(attention, image, &picture->picture).rect);
    EXPECT_GE(crop.rect.x, 350.0);
    EXPECT_EQ(EnglishLine(CropExtentNotes(crop)), "no face found; placed by attention");
    EXPECT_FALSE(crop.failure);
    // A portrait of the face fails: nothing to write.
    CropSettings portrait = FacesRule({3, 4});
    portrait.portraitOfFace = HeadAndShoulders{};
    const ResolvedCrop refused =
        ResolveCrop(portrait, image, &picture->picture, std::nullopt, nullptr, &faces);
    ASSERT_TRUE(refused.failure);
    EXPECT_EQ(refused.failure->stage, FailureStage::Crop);
    EXPECT_EQ(refused.failure->reason, "cannot crop: no face found for the portrait");
}

// The detector cannot run (here: no picture to run on): each image says why.
TEST(Faces, ADetectorThatCannotRunGivesAReasonPerImage) {
    const FaceSearch failed = FindFaces(Image::OfSize(1200, 800), {1200, 800});
    ASSERT_TRUE(failed.Failed());
    EXPECT_EQ(failed.failure, "there is no picture to look for faces in");
    const Image image = Image::OfSize(1200, 800);
    const ResolvedCrop crop =
        ResolveCrop(FacesRule({1, 1}), image, nullptr, std::nullopt, nullptr, &failed);
    EXPECT_EQ(crop.rect, (Rect{200, 0, 800, 800}));
    EXPECT_EQ(EnglishLine(CropExtentNotes(crop)),
              "faces could not be looked for: there is no picture to look "
              "for faces in; centred");
    CropSettings portrait = FacesRule({3, 4});
    portrait.portraitOfFace = HeadAndShoulders{};
    const ResolvedCrop refused =
        ResolveCrop(portrait, image, nullptr, std::nullopt, nullptr, &failed);
    ASSERT_TRUE(refused.failure);
    EXPECT_EQ(refused.failure->reason,
              "cannot crop: faces could not be looked for: there is no picture to look for "
              "faces in");
}

// The portrait on a labelled photo: the largest face, 45 % of the height.
TEST(Faces, APortraitOfTheLargestLabelledFace) {
    VELLUMO_REQUIRE_TESTDATA();
    for (const LabelledPhoto& photo : LabelledPhotos()) {
        if (photo.file != "2008_001322.jpg") {
            continue;
        }
        const Looked looked = LookAt(photo);
        ASSERT_FALSE(looked.faces.faces.empty());
        CropSettings portrait = FacesRule({3, 4});
        portrait.portraitOfFace = HeadAndShoulders{};
        const Image image = Image::OfSize(photo.size.width, photo.size.height);
        const ResolvedCrop crop = ResolveCrop(portrait, image, &looked.picture->picture,
                                              std::nullopt, nullptr, &looked.faces);
        ASSERT_FALSE(crop.failure);
        const Rect& face = looked.faces.faces.front().box;
        // The largest labelled face (90 px at 344, 155 from the top).
        EXPECT_GT(Overlap(face, photo.faces[2]), 0.3);
        EXPECT_DOUBLE_EQ(crop.rect.height, face.height / 0.45);
        EXPECT_DOUBLE_EQ(crop.rect.width, crop.rect.height * 0.75);
        EXPECT_TRUE(Holds(crop.rect, photo.faces[2]));
        EXPECT_EQ(EnglishLine(CropExtentNotes(crop)), "");
    }
}

}  // namespace
}  // namespace vellumo
