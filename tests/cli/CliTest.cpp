// vellumo-cli end to end: real files in, files decoded by ImageMagick out.

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>

#include "batch/Profile.h"
#include "tests/cli/CliFixture.h"
#include "tests/support/Commands.h"
#include "tests/support/ReadBack.h"
#include "tests/support/TempDir.h"
#include "tests/support/TestData.h"
#include "tests/support/TestImages.h"

namespace vellumo {
namespace {

namespace fs = std::filesystem;
using test::ShellQuote;

TEST_F(CliTest, CropsEveryInputFormat) {
    const vips::VImage pixels = test::CoordinateImage(300, 200);
    const std::vector<std::string> lossless = {"in.png", "in.tif", "in.tiff", "in.bmp"};
    pixels.pngsave(dir.File("in.png").c_str());
    pixels.tiffsave(dir.File("in.tif").c_str());
    pixels.tiffsave(dir.File("in.tiff").c_str(),
                    vips::VImage::option()->set("compression", VIPS_FOREIGN_TIFF_COMPRESSION_LZW));
    pixels.magicksave(dir.File("in.bmp").c_str(), vips::VImage::option()->set("format", "bmp3"));
    pixels.jpegsave(dir.File("in.jpg").c_str(), vips::VImage::option()->set("Q", 95));
    fs::copy_file(dir.File("in.jpg"), dir.File("in2.jpeg"));
    fs::copy_file(dir.File("in.jpg"), dir.File("in3.jpe"));
    pixels.jp2ksave(dir.File("in.jp2").c_str(), vips::VImage::option()->set("lossless", true));
    fs::copy_file(dir.File("in.jp2"), dir.File("in4.jpx"));
    pixels.gifsave(dir.File("in.gif").c_str());
    const std::vector<std::string> names = {"in.png",   "in.tif",  "in.tiff", "in.bmp",  "in.jpg",
                                            "in2.jpeg", "in3.jpe", "in.jp2",  "in4.jpx", "in.gif"};
    std::vector<std::string> paths;
    for (const auto& n : names)
        paths.push_back(dir.File(n));

    const CliRun run =
        Cli("--pixels 10,20,100,50 --format png --name '[FileName]-[FileIndex]' --json --output " +
            ShellQuote(Out()) + Files(paths));
    EXPECT_EQ(run.exitCode, 0) << run.err;
    ASSERT_EQ(run.objects.size(), names.size());
    for (std::size_t i = 0; i < names.size(); ++i) {
        const nlohmann::json& o = run.objects[i];
        EXPECT_EQ(o["index"], i);
        EXPECT_EQ(o["status"], "written") << o.dump();
        EXPECT_EQ(o["rect"], nlohmann::json({10.0, 20.0, 100.0, 50.0}));
        EXPECT_EQ(o["size"], nlohmann::json({100, 50}));
        const std::string output = o["output"];
        EXPECT_EQ(output, Out() + "/" + fs::path(names[i]).stem().string() + "-" +
                              std::to_string(i + 1) + ".png");
        const test::MagickSize size = test::MagickIdentifySize(output);
        EXPECT_EQ(size.width, 100) << output;
        EXPECT_EQ(size.height, 50) << output;
        // Top row of the cut: 200 - 20 - 50 = 130.
        const auto got = test::MagickPixels(output, "", "rgb", 8);
        const auto want = test::MagickPixels(paths[i], "-crop 100x50+10+130 +repage", "rgb", 8);
        if (i < lossless.size()) {
            EXPECT_EQ(got, want) << output;
        } else {
            ASSERT_EQ(got.size(), want.size());
            double error = 0;
            for (std::size_t k = 0; k < got.size(); ++k)
                error += std::abs(got[k] - want[k]);
            EXPECT_LT(error / got.size(), 1.0) << output;  // the decoded source's pixels
        }
    }
}

TEST_F(CliTest, ACorruptFileInTheMiddleOfTenFailsWithAReason) {
    std::vector<std::string> paths;
    for (int i = 0; i < 10; ++i) {
        const std::string path = dir.File(std::to_string(i).insert(0, 1, 'p') + ".png");
        if (i == 5) {
            test::PhotoLikeImage(200, 150).pngsave(dir.File("whole.png").c_str());
            const std::string bytes = test::ReadFile(dir.File("whole.png"));
            std::ofstream(path, std::ios::binary) << bytes.substr(0, bytes.size() / 2);
        } else {
            test::CoordinateImage(200, 150).pngsave(path.c_str());
        }
        paths.push_back(path);
    }
    const CliRun run = Cli("--auto 16:9 --json --output " + ShellQuote(Out()) + Files(paths));
    EXPECT_EQ(run.exitCode, 1);
    ASSERT_EQ(run.objects.size(), 10u);
    int written = 0;
    for (const auto& o : run.objects) {
        if (o["status"] == "written")
            ++written;
    }
    EXPECT_EQ(written, 9);
    EXPECT_EQ(run.objects[5]["status"], "failed");
    EXPECT_TRUE(run.objects[5]["reason"].is_string());
    EXPECT_EQ(std::string(run.objects[5]["reason"]).rfind("cannot decode: ", 0), 0u);
    EXPECT_FALSE(fs::exists(std::string(run.objects[5]["output"])));
    EXPECT_EQ(std::distance(fs::directory_iterator(Out()), fs::directory_iterator{}), 9);
}

TEST_F(CliTest, AnOutputFolderThatCannotBeMadeIsRefusedWithTheReason) {
    test::CoordinateImage(50, 50).pngsave(dir.File("a.png").c_str());
    std::ofstream(dir.File("file")) << "x";
    const CliRun run = Cli("--output " + ShellQuote(dir.File("file") + "/sub") + " " +
                           ShellQuote(dir.File("a.png")));
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_EQ(run.out, "");
    EXPECT_NE(run.err.find("cannot be created: " + dir.File("file") + " is a file, not a folder"),
              std::string::npos)
        << run.err;
}

TEST_F(CliTest, AnUnwritableOutputFolderGivesFailuresWithReasons) {
    test::CoordinateImage(50, 50).pngsave(dir.File("a.png").c_str());
    fs::create_directory(Out());
    fs::permissions(dir.path(),
                    fs::perms::owner_all | fs::perms::others_read | fs::perms::others_exec);
    fs::permissions(dir.File("a.png"),
                    fs::perms::owner_read | fs::perms::owner_write | fs::perms::others_read);
    fs::permissions(Out(), fs::perms::owner_read | fs::perms::owner_exec | fs::perms::others_read |
                               fs::perms::others_exec);
    std::string runAs;
    if (geteuid() == 0) {
        // The superuser writes anywhere: run as an ordinary user instead.
        runAs = "setpriv --reuid=nobody --regid=nogroup --clear-groups ";
    }
    const test::CommandResult result =
        test::RunCommand(runAs + ShellQuote(VELLUMO_CLI) + " --json --output " + ShellQuote(Out()) +
                         " " + ShellQuote(dir.File("a.png")) + " </dev/null 2>/dev/null");
    EXPECT_EQ(result.exitCode, 1) << result.out;
    const nlohmann::json o = nlohmann::json::parse(result.out);
    EXPECT_EQ(o["status"], "failed");
    EXPECT_EQ(o["reason"], "cannot write: permission denied");
    EXPECT_TRUE(fs::is_empty(Out()));
}

TEST_F(CliTest, OverwriteNoneNeverChangesAnExistingFile) {
    test::CoordinateImage(50, 50).pngsave(dir.File("a.png").c_str());
    fs::create_directory(Out());
    const std::string existing = Out() + "/a_cropped (1).jpg";
    std::ofstream(existing, std::ios::binary) << "precious bytes";
    const CliRun run = Cli("--overwrite none --json --output " + ShellQuote(Out()) + " " +
                           ShellQuote(dir.File("a.png")));
    EXPECT_EQ(run.exitCode, 0);
    ASSERT_EQ(run.objects.size(), 1u);
    EXPECT_EQ(run.objects[0]["decision"], "skip");
    EXPECT_EQ(run.objects[0]["status"], "skipped");
    EXPECT_EQ(test::ReadFile(existing), "precious bytes");
    // Not a terminal: the default is none as well.
    EXPECT_EQ(Cli("--output " + ShellQuote(Out()) + " " + ShellQuote(dir.File("a.png"))).exitCode,
              0);
    EXPECT_EQ(test::ReadFile(existing), "precious bytes");
}

TEST_F(CliTest, OverwriteAllReplaces) {
    test::CoordinateImage(50, 50).pngsave(dir.File("a.png").c_str());
    fs::create_directory(Out());
    const std::string existing = Out() + "/a_cropped (1).jpg";
    std::ofstream(existing) << "old";
    const CliRun run = Cli("--overwrite all --json --output " + ShellQuote(Out()) + " " +
                           ShellQuote(dir.File("a.png")));
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.objects[0]["decision"], "overwrite");
    EXPECT_EQ(test::MagickFormat(existing), "JPEG");
}

TEST_F(CliTest, DryRunDecidesAndWritesNothing) {
    test::CoordinateImage(400, 300).pngsave(dir.File("a.png").c_str());
    const CliRun run = Cli("--dry-run --percents 20,20,60,60 --json --output " + ShellQuote(Out()) +
                           " " + ShellQuote(dir.File("a.png")));
    EXPECT_EQ(run.exitCode, 0);
    ASSERT_EQ(run.objects.size(), 1u);
    EXPECT_EQ(run.objects[0]["status"], "planned");
    EXPECT_EQ(run.objects[0]["rect"], nlohmann::json({80.0, 60.0, 240.0, 180.0}));
    EXPECT_EQ(run.objects[0]["size"], nlohmann::json({240, 180}));
    EXPECT_FALSE(fs::exists(Out()));
}

TEST_F(CliTest, NoCropOptionKeepsTheWholeImage) {
    test::CoordinateImage(64, 48).pngsave(dir.File("a.png").c_str());
    const CliRun run = Cli("--format PNG --json --output " + ShellQuote(Out()) + " " +
                           ShellQuote(dir.File("a.png")));
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.objects[0]["size"], nlohmann::json({64, 48}));
}

TEST_F(CliTest, KeepMetadataCarriesTheCameraAndGps) {
    VELLUMO_REQUIRE_TESTDATA();
    const std::string source = test::TestDataPath("orientation/Samsung GT-I9000 (Galaxy S).jpg");
    const CliRun run = Cli("--keep-metadata --auto 1:1 --json --output " + ShellQuote(Out()) + " " +
                           ShellQuote(source));
    ASSERT_EQ(run.exitCode, 0) << run.out;
    const std::string output = run.objects[0]["output"];
    EXPECT_EQ(test::ExifToolValue(output, "Model"), test::ExifToolValue(source, "Model"));
    EXPECT_EQ(test::ExifToolValue(output, "GPSLatitude", true),
              test::ExifToolValue(source, "GPSLatitude", true));
    const CliRun plain = Cli("--auto 1:1 --json --name plain --output " + ShellQuote(Out()) + " " +
                             ShellQuote(source));
    EXPECT_EQ(test::ExifToolValue(plain.objects[0]["output"], "GPSLatitude"), "");
}

TEST_F(CliTest, UsageErrorsExitWithTwoAndOneLineNamingTheOption) {
    test::CoordinateImage(8, 8).pngsave(dir.File("a.png").c_str());
    const std::string a = " " + ShellQuote(dir.File("a.png"));
    std::filesystem::create_directories(dir.File("no images"));
    const struct {
        std::string arguments;
        std::string message;
    } cases[] = {
        {"--quality 300 --output o" + a,
         "vellumo-cli: --quality: must be a number from 0 to 100, got 300\n"},
        {"--format psd --output o" + a,
         "vellumo-cli: --format: unknown format psd (use JPG JPEG JPE JP2 JPX PNG TIFF TIF GIF "
         "BMP WEBP AVIF HEIC JXL)\n"},
        {"--auto 5:0 --output o" + a,
         "vellumo-cli: --auto: expected a ratio W:H of two positive numbers, got 5:0\n"},
        {"--auto -4:5 --output o" + a,
         "vellumo-cli: --auto: expected a ratio W:H of two positive numbers, got -4:5\n"},
        {"--auto wide --output o" + a,
         "vellumo-cli: --auto: expected a ratio W:H of two positive numbers, got wide\n"},
        {"--auto 4:5 --anchor middle --output o" + a,
         "vellumo-cli: --anchor: unknown anchor middle (use centre, top, bottom, left, right, "
         "top-left, top-right, bottom-left, bottom-right, attention, entropy or faces)\n"},
        {"--resize 0x500 --output o" + a,
         "vellumo-cli: --resize: expected WxH, Wx or xH with sides from 1 to 65535, got 0x500\n"},
        {"--resize 70000x5 --output o" + a,
         "vellumo-cli: --resize: expected WxH, Wx or xH with sides from 1 to 65535, got "
         "70000x5\n"},
        {"--resize x --output o" + a,
         "vellumo-cli: --resize: expected WxH, Wx or xH with sides from 1 to 65535, got x\n"},
        {"--resize 500x --resize-mode exact --output o" + a,
         "vellumo-cli: --resize-mode exact: needs --resize WxH with both sides\n"},
        {"--pixels 1,2,3 --output o" + a,
         "vellumo-cli: --pixels: expected four numbers X,Y,W,H, got 1,2,3\n"},
        {"--pixels nan,0,1,1 --output o" + a,
         "vellumo-cli: --pixels: expected four numbers X,Y,W,H, got nan,0,1,1\n"},
        {"--percents 0,0,inf,50 --output o" + a,
         "vellumo-cli: --percents: expected four numbers X,Y,W,H, got 0,0,inf,50\n"},
        {"--auto 3e38:1 --output o" + a,
         "vellumo-cli: --auto: expected a ratio W:H of two positive numbers, got 3e38:1\n"},
        {"--auto 1:1 --percents 1,2,3,4 --output o" + a,
         "vellumo-cli: --auto excludes --percents\n"},
        {"--overwrite maybe --output o" + a, ""},
        {a, "vellumo-cli: --output is required\n"},
        {"--output o " + ShellQuote(dir.File("no images")),
         "vellumo-cli: " + dir.File("no images") +
             ": no image files in the folder (--recursive takes its subfolders too)\n"},
        {"--output o notes.txt",
         "vellumo-cli: notes.txt: not an image file name (jpg jpeg jpe jp2 jpx png gif tif tiff "
         "bmp heic heif avif webp jxl)\n"},
    };
    for (const auto& c : cases) {
        const CliRun run = Cli(c.arguments);
        EXPECT_EQ(run.exitCode, 2) << c.arguments;
        EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 1) << run.err;
        if (!c.message.empty()) {
            EXPECT_EQ(run.err, c.message);
        } else {
            EXPECT_NE(run.err.find("--overwrite"), std::string::npos) << run.err;
        }
        EXPECT_EQ(run.out, "");
    }
}

TEST_F(CliTest, AProfileGivesTheSettingsAndOptionsOverrideIt) {
    test::CoordinateImage(400, 300).pngsave(dir.File("a.png").c_str());
    CropSettings settings;
    settings.mode = CropMode::Auto;
    settings.autoCropRatio = RatioChoice::Ratio16x9;  // 16:9
    settings.outputFormat = OutputFormat::Png;        // PNG
    settings.nameTemplate = "from-profile";
    settings.outputFolder = Out();
    ASSERT_TRUE(WriteProfile(dir.File("p.vellumo"), settings).saved);

    const CliRun run = Cli("--profile " + ShellQuote(dir.File("p.vellumo")) + " --json " +
                           ShellQuote(dir.File("a.png")));
    ASSERT_EQ(run.exitCode, 0) << run.err;
    EXPECT_EQ(run.objects[0]["output"], Out() + "/from-profile (1).png");
    EXPECT_EQ(run.objects[0]["size"], nlohmann::json({400, 225}));

    const CliRun overridden =
        Cli("--profile " + ShellQuote(dir.File("p.vellumo")) +
            " --format bmp --pixels 0,0,10,10 --json " + ShellQuote(dir.File("a.png")));
    ASSERT_EQ(overridden.exitCode, 0) << overridden.err;
    EXPECT_EQ(overridden.objects[0]["output"], Out() + "/from-profile (1).bmp");
    EXPECT_EQ(overridden.objects[0]["size"], nlohmann::json({10, 10}));
}

TEST_F(CliTest, ABadProfileIsAUsageError) {
    std::ofstream(dir.File("bad.vellumo")) << R"({"version": 99})";
    const CliRun run =
        Cli("--profile " + ShellQuote(dir.File("bad.vellumo")) + " --output o a.png");
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_EQ(run.err,
              "vellumo-cli: --profile: " + dir.File("bad.vellumo") +
                  ": version 99 is not one this Vellumo reads (it reads versions 1 and 2)\n");
}

TEST_F(CliTest, AFileThatCrashesItsDecoderIsReadByTheSecondInABatchOfTen) {
    VELLUMO_REQUIRE_TESTDATA();
    std::vector<std::string> paths;
    for (int i = 0; i < 10; ++i) {
        if (i == 4) {
            paths.push_back(test::TestDataPath("bad/issue254.jp2"));
            continue;
        }
        paths.push_back(dir.File("p" + std::to_string(i) + ".png"));
        test::CoordinateImage(120, 90).pngsave(paths.back().c_str());
    }
    const CliRun run = Cli("--auto 1:1 --json --output " + ShellQuote(Out()) + Files(paths));
    EXPECT_EQ(run.exitCode, 0);
    ASSERT_EQ(run.objects.size(), 10u);
    for (const auto& image : run.objects) {
        EXPECT_EQ(image["status"], "written") << image.dump();
    }
    // 908 x 1368, as ImageMagick reads it: the square of its width.
    EXPECT_EQ(run.objects[4]["size"], nlohmann::json::parse("[908, 908]"));
    EXPECT_EQ(std::distance(fs::directory_iterator(Out()), fs::directory_iterator{}), 10);
    EXPECT_EQ(run.err, "");  // the crash's own noise stays in the worker
}

TEST_F(CliTest, EveryHostileFileFailsWithAReasonAndNothingDiesOfASignal) {
    VELLUMO_REQUIRE_TESTDATA();
    std::vector<std::string> paths;
    for (const auto& entry : fs::directory_iterator(test::TestDataPath("bad"))) {
        paths.push_back(entry.path().string());
    }
    std::sort(paths.begin(), paths.end());
    const CliRun run = Cli("--auto 4:3 --json --output " + ShellQuote(Out()) + Files(paths));
    EXPECT_TRUE(run.exitCode == 0 || run.exitCode == 1) << "exit " << run.exitCode;
    ASSERT_EQ(run.objects.size(), paths.size());
    int failed = 0;
    for (const auto& o : run.objects) {
        if (o["status"] == "failed") {
            ++failed;
            ASSERT_TRUE(o["reason"].is_string()) << o.dump();
            EXPECT_GT(std::string(o["reason"]).size(), std::string("cannot decode: ").size())
                << o.dump();
        } else {
            EXPECT_EQ(o["status"], "written") << o.dump();
        }
    }
    EXPECT_GT(failed, 20);
    for (const auto& entry : fs::directory_iterator(Out())) {
        EXPECT_NE(entry.path().filename().string().rfind(".vellumo-", 0), 0u) << entry.path();
    }
}

TEST_F(CliTest, LimitsAreSetFromTheCommandLine) {
    test::CoordinateImage(400, 300).pngsave(dir.File("a.png").c_str());
    const CliRun refused = Cli("--max-pixels 100000 --json --output " + ShellQuote(Out()) + " " +
                               ShellQuote(dir.File("a.png")));
    EXPECT_EQ(refused.exitCode, 1);
    EXPECT_EQ(refused.objects[0]["reason"],
              "cannot decode: the image declares 400 x 300 pixels, more than the limit of 0.1 "
              "megapixels");
    const CliRun allowed = Cli("--max-pixels 120000 --timeout 30 --json --output " +
                               ShellQuote(Out()) + " " + ShellQuote(dir.File("a.png")));
    EXPECT_EQ(allowed.exitCode, 0);
    EXPECT_EQ(Cli("--timeout -1 --output o " + ShellQuote(dir.File("a.png"))).exitCode, 2);
}

TEST_F(CliTest, FormatNamesAreTakenInAnyCase) {
    test::CoordinateImage(20, 10).pngsave(dir.File("a.png").c_str());
    const CliRun run = Cli("--format tIf --json --output " + ShellQuote(Out()) + " " +
                           ShellQuote(dir.File("a.png")));
    EXPECT_EQ(run.exitCode, 0);
    const std::string output = run.objects[0]["output"];
    EXPECT_EQ(fs::path(output).extension(), ".tif");
    EXPECT_EQ(test::MagickFormat(output), "TIFF");
}

}  // namespace
}  // namespace vellumo
