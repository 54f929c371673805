// Rectangles adjusted by hand: editing them (move, handles, locked ratio,
// the image's edges), how the crop rule takes them, the job that writes them
// beside images cropped by the rule, and crop plans that keep them.

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>

#include "batch/CropJob.h"
#include "batch/CropPlan.h"
#include "batch/CropRectangle.h"
#include "batch/OutputPath.h"
#include "imaging/RectEditing.h"
#include "tests/support/Commands.h"
#include "tests/support/TempDir.h"
#include "tests/support/TestImages.h"
#include "worker/WorkerImageProcessor.h"

namespace vellumo {
namespace {

namespace fs = std::filesystem;

constexpr Size kImage{600, 400};

TEST(RectEditing, MovingStopsAtEachEdgeOfTheImage) {
    const Rect r{100, 100, 200, 100};
    EXPECT_EQ(MovedRect(r, 7, -3, kImage), (Rect{107, 97, 200, 100}));
    EXPECT_EQ(MovedRect(r, -500, 0, kImage), (Rect{0, 100, 200, 100}));
    EXPECT_EQ(MovedRect(r, 500, 0, kImage), (Rect{400, 100, 200, 100}));
    EXPECT_EQ(MovedRect(r, 0, -500, kImage), (Rect{100, 0, 200, 100}));
    EXPECT_EQ(MovedRect(r, 0, 500, kImage), (Rect{100, 300, 200, 100}));
    EXPECT_EQ(DraggedRect(r, RectHandle::Inside, 1000, 1000, kImage), (Rect{400, 300, 200, 100}));
}

TEST(RectEditing, MovedRectanglesHaveWholePixelCorners) {
    // The rule's rectangle may start between pixels (a centred 1:1 on an
    // odd width); once moved, it sits on whole pixels.
    const Rect moved = MovedRect({0.5, 0, 399, 399}, 10.4, 0.0, {400, 399});
    EXPECT_EQ(moved, (Rect{1, 0, 399, 399}));
}

TEST(RectEditing, FreeHandlesMoveTheirEdgesAndTheOppositeOnesStay) {
    const Rect r{100, 100, 200, 100};
    EXPECT_EQ(DraggedRect(r, RectHandle::Right, 50, 30, kImage), (Rect{100, 100, 250, 100}));
    EXPECT_EQ(DraggedRect(r, RectHandle::Left, 50, 30, kImage), (Rect{150, 100, 150, 100}));
    EXPECT_EQ(DraggedRect(r, RectHandle::Top, 50, 30, kImage), (Rect{100, 100, 200, 130}));
    EXPECT_EQ(DraggedRect(r, RectHandle::Bottom, 50, 30, kImage), (Rect{100, 130, 200, 70}));
    EXPECT_EQ(DraggedRect(r, RectHandle::TopRight, 50, 30, kImage), (Rect{100, 100, 250, 130}));
    EXPECT_EQ(DraggedRect(r, RectHandle::BottomLeft, -20, -10, kImage), (Rect{80, 90, 220, 110}));
    // Never beyond the image, never below a pixel, never turned inside out.
    EXPECT_EQ(DraggedRect(r, RectHandle::TopRight, 900, 900, kImage), (Rect{100, 100, 500, 300}));
    EXPECT_EQ(DraggedRect(r, RectHandle::Right, -900, 0, kImage), (Rect{100, 100, 1, 100}));
    EXPECT_EQ(DraggedRect(r, RectHandle::Bottom, 0, 900, kImage), (Rect{100, 199, 200, 1}));
}

TEST(RectEditing, ALockedRatioIsKeptToThePixelByEveryHandle) {
    const double ratio = 16.0 / 9.0;
    const Rect start{100, 100, 320, 180};
    for (const RectHandle handle :
         {RectHandle::Left, RectHandle::Right, RectHandle::Bottom, RectHandle::Top,
          RectHandle::BottomLeft, RectHandle::BottomRight, RectHandle::TopLeft,
          RectHandle::TopRight}) {
        for (const auto& [dx, dy] : std::vector<std::pair<double, double>>{
                 {37, 11}, {-53, 29}, {400, 400}, {-400, -400}, {3, -170}}) {
            const Rect r = DraggedRect(start, handle, dx, dy, kImage, ratio);
            SCOPED_TRACE(testing::Message()
                         << "handle " << static_cast<int>(handle) << " by " << dx << ", " << dy);
            EXPECT_EQ(r.height, std::max(1.0, std::round(r.width / ratio)));
            EXPECT_GE(r.x, 0);
            EXPECT_GE(r.y, 0);
            EXPECT_LE(r.x + r.width, kImage.width);
            EXPECT_LE(r.y + r.height, kImage.height);
            EXPECT_EQ(r.x, std::round(r.x));
            EXPECT_EQ(r.y, std::round(r.y));
        }
    }
    // A corner keeps the opposite corner; the larger movement wins.
    const Rect grown = DraggedRect(start, RectHandle::TopRight, 160, 10, kImage, ratio);
    EXPECT_EQ(grown, (Rect{100, 100, 480, 270}));
    // An edge keeps the centre of the other axis.
    const Rect wider = DraggedRect(start, RectHandle::Right, 32, 0, kImage, ratio);
    EXPECT_EQ(wider, (Rect{100, 91, 352, 198}));
    // Growing stops where the image ends on either axis.
    EXPECT_EQ(DraggedRect(start, RectHandle::TopRight, 1000, 0, kImage, ratio),
              (Rect{100, 100, 500, 281}));
    EXPECT_EQ(DraggedRect(start, RectHandle::TopRight, 0, 1000, kImage, ratio),
              (Rect{100, 100, 500, 281}));
    EXPECT_EQ(DraggedRect({0, 0, 320, 180}, RectHandle::TopRight, 0, 1000, {1000, 300}, ratio),
              (Rect{0, 0, 533, 300}));
}

CropSettings Rule1To1() {
    CropSettings s;
    s.mode = CropMode::Auto;
    s.autoCropRatio = RatioChoice::Ratio1x1;
    return s;
}

TEST(AdjustedCrop, TakesThePlaceOfTheRuleInEveryMode) {
    const Image image = test::MakeSizedImage(600, 400);
    const Rect adjusted{10, 20, 300, 100};
    for (const CropMode mode :
         {CropMode::Auto, CropMode::Pixels, CropMode::Percents, CropMode::None}) {
        CropSettings s = Rule1To1();
        s.mode = mode;
        const ResolvedCrop crop = ResolveCrop(s, image, nullptr, adjusted);
        EXPECT_TRUE(crop.adjusted);
        EXPECT_EQ(crop.cut, adjusted);
        EXPECT_EQ(crop.extent, CropExtent::Inside);
        EXPECT_EQ(crop.outputSize, (Size{300, 100}));
    }
    EXPECT_FALSE(ResolveCrop(Rule1To1(), image).adjusted);
}

TEST(AdjustedCrop, ARectangleBeyondASmallerImageIsClippedAndSaysSo) {
    // The plan was made for a larger file that has since been replaced.
    const ResolvedCrop crop =
        ResolveCrop(Rule1To1(), test::MakeSizedImage(300, 200), nullptr, Rect{200, 100, 400, 400});
    EXPECT_EQ(crop.extent, CropExtent::Clipped);
    EXPECT_EQ(crop.cutSize, (Size{100, 100}));
    EXPECT_EQ(EnglishLine(CropExtentNotes(crop)), "Clipped to 100 \u00d7 100");
    const ResolvedCrop outside =
        ResolveCrop(Rule1To1(), test::MakeSizedImage(300, 200), nullptr, Rect{400, 300, 50, 50});
    EXPECT_EQ(outside.extent, CropExtent::WholeOutside);
}

TEST(AdjustedCrop, TheResizeRuleStillApplies) {
    CropSettings s = Rule1To1();
    s.resize = {ResizeMode::Width, 150, 0, false};
    const ResolvedCrop crop =
        ResolveCrop(s, test::MakeSizedImage(600, 400), nullptr, Rect{0, 0, 300, 100});
    EXPECT_EQ(crop.outputSize, (Size{150, 50}));
    // Exactly W x H: the adjusted rectangle is narrowed to its W:H part.
    s.resize = {ResizeMode::Exact, 100, 100, false};
    const ResolvedCrop exact =
        ResolveCrop(s, test::MakeSizedImage(600, 400), nullptr, Rect{0, 0, 300, 100});
    EXPECT_EQ(exact.cut, (Rect{100, 0, 100, 100}));
    EXPECT_EQ(exact.outputSize, (Size{100, 100}));
}

// ImageMagick's crop geometry (origin at the top) of a rectangle whose
// origin is at the lower-left corner of an image `height` rows high.
std::string MagickCrop(const Rect& r, int height) {
    const auto whole = [](double v) { return std::to_string(static_cast<long>(v)); };
    return "-crop " + whole(r.width) + "x" + whole(r.height) + "+" + whole(r.x) + "+" +
           whole(height - r.y - r.height) + " +repage";
}

TEST(AdjustedCrop, AJobWritesAdjustedImagesByTheirRectanglesAndTheOthersByTheRule) {
    test::TempDir dir;
    CropSettings settings = Rule1To1();
    settings.outputFolder = dir.File("out");
    fs::create_directory(settings.outputFolder);
    settings.outputFormat = OutputFormat::Png;  // PNG: compared pixel for pixel
    settings.nameTemplate = "[FileName]";
    std::vector<std::string> list;
    for (int i = 0; i < 10; ++i) {
        list.push_back(dir.File("image" + std::to_string(i) + ".png"));
        test::CoordinateImage(300 + 10 * i, 200).pngsave(list.back().c_str());
    }
    const CropAdjustments adjustments = {
        {list[1], {10, 20, 100, 50}}, {list[4], {0, 0, 340, 200}}, {list[8], {250, 150, 120, 41}}};
    WorkerImageProcessor processor;
    JobOptions options;
    options.adjustments = &adjustments;
    const JobReport report = RunCropJob(settings, list, std::vector<OverwriteDecision>(list.size()),
                                        processor, {}, options);
    ASSERT_TRUE(report.allSucceeded);
    for (std::size_t i = 0; i < list.size(); ++i) {
        const int width = 300 + 10 * static_cast<int>(i);
        const auto found = adjustments.find(list[i]);
        const Rect expected = found != adjustments.end()
                                  ? found->second
                                  : Rect{std::floor((width - 200) / 2.0), 0, 200, 200};
        const std::string out =
            GenerateOutputPathWithImageIndex(settings, list, static_cast<long>(i));
        SCOPED_TRACE(out);
        EXPECT_EQ(report.images[i].outcome.rect, std::optional<Rect>(expected));
        EXPECT_EQ(test::MagickPixels(out, "", "rgb", 8),
                  test::MagickPixels(list[i], MagickCrop(expected, 200), "rgb", 8));
    }
}

TEST(CropPlans, ARoundTripKeepsSettingsOrderAndRectangles) {
    CropSettings settings = Rule1To1();
    settings.anchor = CropAnchor::Top;
    settings.quality = 67;
    settings.outputFolder = "/tmp/out";
    const CropPlan plan = MakeCropPlan(settings, {"/p/b.jpg", "/p/a.jpg", "/p/c.jpg"},
                                       {{"/p/a.jpg", {1.5, 2, 300, 200.25}}});
    const Loaded<CropPlan> read = CropPlanFromText(CropPlanText(plan), CropSettings{});
    ASSERT_TRUE(read) << read.reason();
    EXPECT_EQ(read->images, plan.images);
    EXPECT_EQ(PlannedPaths(*read), (std::vector<std::string>{"/p/b.jpg", "/p/a.jpg", "/p/c.jpg"}));
    EXPECT_EQ(PlannedAdjustments(*read).at("/p/a.jpg"), (Rect{1.5, 2, 300, 200.25}));
    EXPECT_EQ(read->settings.anchor, CropAnchor::Top);
    EXPECT_EQ(read->settings.quality, 67.0f);
    EXPECT_EQ(read->settings.outputFolder, "/tmp/out");
}

TEST(CropPlans, WrittenAndReadBackWithPathsRelativeToThePlansFolder) {
    test::TempDir dir;
    const std::string file = dir.File("batch.vellumoplan");
    {
        std::ofstream out(file);
        out << R"({"version": 1, "images": [{"path": "photos/a.jpg"}, {"path": "/abs/b.jpg"}]})";
    }
    const Loaded<CropPlan> read = ReadCropPlan(file, Rule1To1());
    ASSERT_TRUE(read) << read.reason();
    EXPECT_EQ(read->images[0].path, dir.File("photos/a.jpg"));
    EXPECT_EQ(read->images[1].path, "/abs/b.jpg");
    EXPECT_EQ(read->settings.mode, CropMode::Auto);  // missing settings keep the current ones

    const CropPlan plan = MakeCropPlan(Rule1To1(), {"/x/y.png"}, {});
    ASSERT_TRUE(WriteCropPlan(dir.File("saved.vellumoplan"), plan).saved);
    EXPECT_EQ(test::ReadFileBytes(dir.File("saved.vellumoplan")), CropPlanText(plan));
    EXPECT_EQ(ReadCropPlan(dir.File("missing.vellumoplan"), {}).reason(),
              "the file cannot be opened (the folder does not exist)");
}

TEST(CropPlans, BadPlansAreRefusedNamingTheProblem) {
    const auto reason = [](const std::string& text) {
        const Loaded<CropPlan> read = CropPlanFromText(text, CropSettings{});
        return read ? std::string("accepted") : read.reason();
    };
    const std::string head = R"({"version": 1, "images": [{"path": "/a.jpg", "rect": )";
    EXPECT_EQ(reason("{\"version\": 1, "), "the file is not valid JSON");
    EXPECT_EQ(reason(R"({"version": 2, "images": []})"),
              "version 2 is not one this Vellumo reads (it reads version 1)");
    EXPECT_EQ(reason(R"({"images": []})"), "the file has no \"version\"");
    EXPECT_EQ(reason(R"({"version": 1})"), "the file has no list of \"images\"");
    EXPECT_EQ(reason(head + R"({"x": 0, "y": 0, "width": -5, "height": 10}}]})"),
              "the rectangle of image 1 has a negative width");
    EXPECT_EQ(reason(head + R"({"x": 0, "y": 0, "width": "NaN", "height": 10}}]})"),
              "the rectangle of image 1 has a \"width\" that is not a number");
    EXPECT_EQ(reason(head + R"({"x": 0, "y": 0, "width": 1000001, "height": 10}}]})"),
              "the rectangle of image 1 has a width beyond 1000000 pixels");
    EXPECT_EQ(reason(head + R"({"x": 0, "y": 0, "width": 1000000, "height": 10}}]})"), "accepted");
    EXPECT_EQ(reason(R"({"version": 1, "images": [{"rect": {}}]})"), "image 1 has no \"path\"");
    EXPECT_EQ(reason(R"({"version": 1, "settings": {"version": 9}, "images": []})"),
              "its settings: version 9 is not one this Vellumo reads (it reads versions 1 and 2)");
}

}  // namespace
}  // namespace vellumo
