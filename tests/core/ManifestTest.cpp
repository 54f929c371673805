// The manifest a batch keeps of itself: entries read back as written, a torn
// last line (a kill mid-write) ignored and cut off before the next entry, a
// damaged line elsewhere refusing the whole file, and images recorded as
// done skipped only while their outputs are unchanged.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "batch/BatchPart.h"
#include "batch/Manifest.h"
#include "imaging/FileDigest.h"
#include "tests/support/Commands.h"
#include "tests/support/TempDir.h"
#include "tests/support/TestImages.h"

namespace vellumo {
namespace {

namespace fs = std::filesystem;

ManifestEntry Entry(const std::string& source, const std::string& status) {
    ManifestEntry entry;
    entry.source = source;
    entry.output = source + ".out";
    entry.status = StatusFromName(status);
    if (status == "failed") {
        entry.reason = "cannot decode: not a PNG file";
    } else {
        entry.bytes = 12;
        entry.sha256 = std::string(64, 'a');
    }
    entry.time = "2026-11-24T06:40:00Z";
    entry.settings = "fingerprint";
    return entry;
}

TEST(Manifest, EntriesReadBackAsWritten) {
    test::TempDir dir;
    const std::string path = dir.File("m.jsonl");
    std::string reason;
    {
        auto writer = ManifestWriter::Open(path, reason);
        ASSERT_TRUE(writer.has_value()) << reason;
        ASSERT_TRUE(writer->Append(Entry("a.png", "written"), reason)) << reason;
        ASSERT_TRUE(writer->Append(Entry("b \"ü\".png", "failed"), reason)) << reason;
    }
    const auto read = ReadManifest(path);
    ASSERT_TRUE(read) << read.reason();
    ASSERT_EQ(read->size(), 2u);
    EXPECT_EQ((*read)[0].source, "a.png");
    EXPECT_EQ((*read)[0].bytes, 12u);
    EXPECT_EQ((*read)[0].status, ImageStatus::Written);
    EXPECT_TRUE((*read)[0].Done());
    EXPECT_EQ((*read)[1].status, ImageStatus::Failed);
    EXPECT_EQ((*read)[1].source, "b \"ü\".png");
    EXPECT_EQ((*read)[1].reason, "cannot decode: not a PNG file");
    EXPECT_FALSE((*read)[1].Done());
    EXPECT_FALSE((*read)[1].bytes.has_value());
    // One line each, in the order a person reads them.
    const std::string text = test::ReadFileBytes(path);
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 2);
    EXPECT_EQ(
        text.rfind("{\"source\":\"a.png\",\"output\":\"a.png.out\",\"status\":\"written\"", 0), 0u);
}

TEST(Manifest, EveryStatusIsWrittenByItsNameAndReadBack) {
    for (const ImageStatus status :
         {ImageStatus::Written, ImageStatus::Skipped, ImageStatus::Failed, ImageStatus::Planned}) {
        ManifestEntry entry = Entry("a.png", StatusName(status));
        EXPECT_EQ(entry.status, status);
        const std::string line = ManifestLine(entry);
        EXPECT_NE(line.find(std::string("\"status\":\"") + StatusName(status) + "\""),
                  std::string::npos)
            << line;
    }
    test::TempDir dir;
    const std::string path = dir.File("m.jsonl");
    std::ofstream(path) << "{\"source\":\"a\",\"output\":\"b\",\"status\":\"skipped\","
                           "\"settings\":\"s\"}\n";
    const auto read = ReadManifest(path);
    ASSERT_TRUE(read) << read.reason();
    ASSERT_EQ(read->size(), 1u);
    EXPECT_EQ((*read)[0].status, ImageStatus::Skipped);
    EXPECT_TRUE((*read)[0].Done());
}

TEST(Manifest, ATornLastLineIsIgnoredAndCutOffBeforeTheNextEntry) {
    test::TempDir dir;
    const std::string path = dir.File("m.jsonl");
    const std::string whole = ManifestLine(Entry("a.png", "written")) + "\n";
    const std::string torn = ManifestLine(Entry("b.png", "written")).substr(0, 40);
    std::ofstream(path, std::ios::binary) << whole << torn;
    auto read = ReadManifest(path);
    ASSERT_TRUE(read) << read.reason();
    ASSERT_EQ(read->size(), 1u);
    std::string reason;
    {
        auto writer = ManifestWriter::Open(path, reason);
        ASSERT_TRUE(writer.has_value()) << reason;
        ASSERT_TRUE(writer->Append(Entry("c.png", "written"), reason)) << reason;
    }
    EXPECT_EQ(test::ReadFileBytes(path), whole + ManifestLine(Entry("c.png", "written")) + "\n");
}

TEST(Manifest, ADamagedLineBeforeTheLastFailsTheRead) {
    test::TempDir dir;
    const std::string path = dir.File("m.jsonl");
    std::ofstream(path, std::ios::binary) << ManifestLine(Entry("a.png", "written")) << "\n"
                                          << "{\"source\": 12}\n"
                                          << ManifestLine(Entry("c.png", "written")) << "\n";
    const auto read = ReadManifest(path);
    ASSERT_FALSE(read);
    EXPECT_EQ(read.reason(), "line 2 is not a manifest entry");
    EXPECT_TRUE(ReadManifest(dir.File("none.jsonl")));  // none yet: no entries
    // A count of bytes is a whole number of at least 0.
    const std::string line = ManifestLine(Entry("a.png", "written"));
    for (const char* bytes : {"1.5", "-1", "1.23e58"}) {
        std::string damaged = line;
        damaged.replace(damaged.find("12,"), 2, bytes);
        EXPECT_FALSE(ManifestFromText(damaged + "\n")) << damaged;
    }
}

TEST(Manifest, TheSettingsOfEveryEntryMustBeTheRunsOwn) {
    std::vector<ManifestEntry> entries = {Entry("a.png", "written"), Entry("b.png", "written")};
    EXPECT_EQ(ForeignSettings(entries, "fingerprint"), "");
    entries[1].settings = "another";
    EXPECT_EQ(ForeignSettings(entries, "fingerprint"),
              "entry 2 was written with other settings (name, format, folder or crop rule)");
    CropSettings a;
    CropSettings b = a;
    EXPECT_EQ(SettingsFingerprint(a), SettingsFingerprint(b));
    b.nameTemplate = "[FileName]";
    EXPECT_NE(SettingsFingerprint(a), SettingsFingerprint(b));
}

TEST(BatchPart, ImagesRecordedAsDoneAreSkippedOnlyWhileTheirOutputsAreUnchanged) {
    test::TempDir dir;
    CropSettings settings;
    settings.outputFolder = dir.File("out");
    settings.nameTemplate = "[FileName]";
    settings.outputFormat = OutputFormat::Png;  // PNG
    fs::create_directories(settings.outputFolder);
    std::vector<std::string> all;
    for (const char* name : {"a", "b", "c", "d"}) {
        all.push_back(dir.File(std::string(name) + ".png"));
        test::CoordinateImage(20, 10).pngsave(all.back().c_str());
    }
    // a and b were written, c failed; b's output has changed since.
    std::vector<ManifestEntry> done;
    for (const char* name : {"a", "b"}) {
        ManifestEntry entry;
        entry.source = dir.File(std::string(name) + ".png");
        entry.output = settings.outputFolder + "/" + name + ".png";
        entry.status = ImageStatus::Written;
        std::ofstream(entry.output, std::ios::binary) << "twelve bytes";
        entry.bytes = 12;
        entry.sha256 = Sha256OfText("twelve bytes");
        done.push_back(entry);
    }
    std::ofstream(done[1].output, std::ios::binary) << "twelve bytez";
    ManifestEntry failed;
    failed.source = all[2];
    failed.output = settings.outputFolder + "/c.png";
    failed.status = ImageStatus::Failed;
    done.push_back(failed);

    const BatchPart part = SelectBatchPart(settings, all, ClashPolicy::Refuse, std::nullopt, done);
    EXPECT_EQ(part.shardSize, 4);
    EXPECT_EQ(part.alreadyDone, 1);
    EXPECT_EQ(part.list, (std::vector<std::string>{all[1], all[2], all[3]}));
    ASSERT_EQ(part.plan.images.size(), 3u);
    EXPECT_EQ(part.plan.images[0].path, settings.outputFolder + "/b.png");

    // Shard 1 of 2 takes b and d, and b is done again.
    const BatchPart shard = SelectBatchPart(settings, all, ClashPolicy::Refuse, Shard{1, 2}, done);
    EXPECT_EQ(shard.shardSize, 2);
    EXPECT_EQ(shard.list, (std::vector<std::string>{all[1], all[3]}));
}

}  // namespace
}  // namespace vellumo
