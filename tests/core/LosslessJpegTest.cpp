// Where a crop without re-encoding lands on a JPEG's block grid, for every
// orientation: the start on a block of the file as stored, the chosen
// rectangle always inside the result except for a partial block the turn
// cannot move, and what the window and the job are told.

#include <gtest/gtest.h>

#include <cmath>

#include "batch/LosslessCrop.h"
#include "imaging/Formats.h"
#include "imaging/LosslessJpeg.h"
#include "tests/support/TestData.h"

namespace vellumo {
namespace {

// A 1000 x 700 file stored as it is shown, with 16 x 16 blocks (4:2:0).
constexpr JpegGrid kUpright{16, 16, 1000, 700, 1};

TEST(SnapToJpegGrid, UprightMovesOnlyTheLeftAndTopEdgesOutward) {
    // Chosen: columns 37 to 337, rows 452 to 654 from the top.
    const auto cut = SnapToJpegGrid({37, 45, 301, 203}, kUpright);
    ASSERT_TRUE(cut.has_value());
    EXPECT_EQ(cut->upright, (Rect{32, 45, 306, 207}));
    EXPECT_EQ(cut->storedLeft, 32);
    EXPECT_EQ(cut->storedTop, 448);
    EXPECT_EQ(cut->storedWidth, 306);
    EXPECT_EQ(cut->storedHeight, 207);
    EXPECT_EQ(cut->trimmedColumns, 0);
    EXPECT_EQ(cut->trimmedRows, 0);
}

TEST(SnapToJpegGrid, ARectangleOnTheGridStaysAsItIs) {
    const auto cut = SnapToJpegGrid({16, 700 - 320, 480, 160}, kUpright);
    ASSERT_TRUE(cut.has_value());
    EXPECT_EQ(cut->upright, (Rect{16, 380, 480, 160}));
}

TEST(SnapToJpegGrid, EveryOrientationHoldsTheChosenRectangleAndStartsOnABlock) {
    for (int orientation = 1; orientation <= 8; ++orientation) {
        // 1000 x 700 as stored; 8 x 16 blocks (4:4:0) so that the two sides
        // differ.
        const JpegGrid grid{8, 16, 1000, 700, orientation};
        const bool swap = orientation >= 5;
        const double width = swap ? 700 : 1000;
        const double height = swap ? 1000 : 700;
        for (const Rect chosen : {Rect{37, 45, 301, 203}, Rect{0, 0, width, height},
                                  Rect{width - 13, height - 29, 13, 29}, Rect{300, 400, 1, 1}}) {
            SCOPED_TRACE("orientation " + std::to_string(orientation) + ", chosen " +
                         std::to_string(chosen.x) + "," + std::to_string(chosen.y));
            const auto cut = SnapToJpegGrid(chosen, grid);
            ASSERT_TRUE(cut.has_value());
            EXPECT_EQ(cut->storedLeft % 8, 0);
            EXPECT_EQ(cut->storedTop % 16, 0);
            EXPECT_LE(cut->storedLeft + cut->storedWidth, 1000);
            EXPECT_LE(cut->storedTop + cut->storedHeight, 700);
            EXPECT_EQ(cut->upright.width, swap ? cut->storedHeight : cut->storedWidth);
            EXPECT_EQ(cut->upright.height, swap ? cut->storedWidth : cut->storedHeight);
            // Inside the image, and holding the chosen rectangle but for what
            // was trimmed at the left and the top.
            const Rect& r = cut->upright;
            EXPECT_GE(r.x, 0);
            EXPECT_GE(r.y, 0);
            EXPECT_LE(r.x + r.width, width);
            EXPECT_LE(r.y + r.height, height);
            EXPECT_LE(r.x, chosen.x + cut->trimmedColumns);
            EXPECT_GE(r.x + r.width, chosen.x + chosen.width);
            EXPECT_LE(r.y, chosen.y);
            EXPECT_GE(r.y + r.height, chosen.y + chosen.height - cut->trimmedRows);
            EXPECT_LT(cut->trimmedColumns, swap ? 16 : 8);
            EXPECT_LT(cut->trimmedRows, swap ? 8 : 16);
            // Grown by less than a block on every side.
            EXPECT_LT(chosen.x - r.x, 16);
            EXPECT_LT(r.y + r.height - chosen.y - chosen.height, 16);
            EXPECT_LT(r.x + r.width - chosen.x - chosen.width, 16);
            EXPECT_LT(chosen.y - r.y, 16);
        }
    }
}

TEST(SnapToJpegGrid, ATurnedFileLosesThePartialBlockItsTurnCannotMove) {
    // Orientation 6 turns the stored bottom rows into the upright left
    // columns: 700 rows are 43 blocks of 16 and 12 rows more.
    const JpegGrid grid{16, 16, 1000, 700, 6};
    const auto whole = SnapToJpegGrid({0, 0, 700, 1000}, grid);
    ASSERT_TRUE(whole.has_value());
    EXPECT_EQ(whole->trimmedColumns, 12);
    EXPECT_EQ(whole->trimmedRows, 0);
    EXPECT_EQ(whole->upright, (Rect{12, 0, 688, 1000}));
    // Away from that edge nothing is lost.
    const auto inner = SnapToJpegGrid({100, 100, 200, 200}, grid);
    ASSERT_TRUE(inner.has_value());
    EXPECT_EQ(inner->trimmedColumns, 0);
}

TEST(SnapToJpegGrid, NothingWhenOnlyAPartialBlockWouldBeLeft) {
    const JpegGrid grid{16, 16, 1000, 700, 6};
    EXPECT_FALSE(SnapToJpegGrid({0, 0, 10, 10}, grid).has_value());
}

// The decision the labels, the dry run and the job share.
class DecideLossless : public ::testing::Test {
  protected:
    ResolvedCrop Crop(const Rect& cut) {
        ResolvedCrop crop;
        crop.rect = cut;
        crop.cut = cut;
        crop.cutSize = {std::trunc(cut.width), std::trunc(cut.height)};
        crop.outputSize = crop.cutSize;
        return crop;
    }
    CropSettings settings = [] {
        CropSettings s;
        s.losslessJpeg = true;
        s.outputFormat = OutputFormat::Jpg;
        return s;
    }();
};

TEST_F(DecideLossless, AJpegToJpegCropTakesTheGridAndSaysSo) {
    ResolvedCrop crop = Crop({37, 45, 301, 203});
    const LosslessDecision decision =
        DecideLosslessCrop(settings, settings.outputFormat, true, kUpright, crop);
    ASSERT_TRUE(decision.cut.has_value());
    EXPECT_EQ(crop.cut, (Rect{32, 45, 306, 207}));
    EXPECT_EQ(crop.outputSize, (Size{306, 207}));
    EXPECT_EQ(EnglishLine(CropExtentNotes(crop)),
              "Lossless: widened to the file's 16 \u00d7 16 blocks");
}

TEST_F(DecideLossless, OtherFormatsSourcesAndTheSettingOffAreLeftAlone) {
    const Rect chosen{37, 45, 301, 203};
    ResolvedCrop crop = Crop(chosen);
    EXPECT_FALSE(DecideLosslessCrop(settings, OutputFormat::Png, true, kUpright, crop).cut);
    EXPECT_FALSE(
        DecideLosslessCrop(settings, settings.outputFormat, false, std::nullopt, crop).cut);
    CropSettings off = settings;
    off.losslessJpeg = false;
    EXPECT_FALSE(DecideLosslessCrop(off, off.outputFormat, true, kUpright, crop).cut);
    EXPECT_EQ(crop.cut, chosen);
    EXPECT_EQ(EnglishLine(CropExtentNotes(crop)), "");
}

TEST_F(DecideLossless, AResizedCropIsReencodedAndSaysWhy) {
    ResolvedCrop crop = Crop({37, 45, 301, 203});
    crop.outputSize = {150, 101};
    EXPECT_FALSE(DecideLosslessCrop(settings, settings.outputFormat, true, kUpright, crop).cut);
    EXPECT_EQ(crop.outputSize, (Size{150, 101}));
    EXPECT_EQ(EnglishLine(CropExtentNotes(crop)), "Re-encoded: a resized crop cannot be lossless");
}

TEST_F(DecideLossless, AJpegWithoutAKnownGridIsReencodedAndSaysWhy) {
    ResolvedCrop crop = Crop({37, 45, 301, 203});
    EXPECT_FALSE(DecideLosslessCrop(settings, settings.outputFormat, true, std::nullopt, crop).cut);
    EXPECT_EQ(EnglishLine(CropExtentNotes(crop)),
              "Re-encoded: this JPEG cannot be cropped without re-encoding");
}

TEST(ReadJpegGrid, GivesTheBlockSizeOfTheSubsamplingAndTheStoredSize) {
    VELLUMO_REQUIRE_TESTDATA();
    // 4:2:0, stored sideways (exiftool: YCbCr4:2:0 (2 2), 1200 x 1800).
    const auto landscape = ReadJpegGrid(test::TestDataPath("orientation/Landscape_6.jpg"));
    ASSERT_TRUE(landscape.has_value());
    EXPECT_EQ(*landscape, (JpegGrid{16, 16, 1200, 1800, 1}));
    // A colour profile in several segments ahead of the frame header.
    EXPECT_TRUE(ReadJpegGrid(test::TestDataPath("jpeg/Multiple ICC segments.jpg")).has_value());
    EXPECT_FALSE(ReadJpegGrid(test::TestDataPath("png/basn2c08.png")).has_value());
    EXPECT_FALSE(ReadJpegGrid("/nonexistent/file.jpg").has_value());
}

}  // namespace
}  // namespace vellumo
