// The messages between the engine and its workers: each one's struct
// survives its trip through a frame exactly, and a frame that holds no
// message of its direction (damaged, cut, of another type) is refused,
// never thrown at the reader.

#include <gtest/gtest.h>

#include "imaging/ImageAccess.h"
#include "imaging/ImageTools.h"
#include "tests/support/TestImages.h"
#include "worker/WorkerProtocol.h"

namespace vellumo::workerprotocol {
namespace {

ImageTask SomeTask() {
    ImageTask task;
    task.index = 7;
    task.source = "/in/ä photo.jpg";
    task.output = "/out/ä photo_cropped (8).png";
    task.decision = OverwriteDecision::Skip;
    task.settings.mode = CropMode::Percents;
    task.settings.percentsOriginX = 12.5f;
    task.settings.quality = 67;
    task.settings.outputFormat = OutputFormat::Png;
    task.adjustedRect = Rect{1.5, 2.25, 300, 200.125};
    task.kind = TaskKind::CropCarryingMetadata;
    task.target = OutputTarget::Source;
    return task;
}

TEST(WorkerProtocol, EveryTaskKindAndTargetReadsBackByItsName) {
    for (const TaskKind kind : {TaskKind::Crop, TaskKind::CropCarryingMetadata, TaskKind::DryRun,
                                TaskKind::CarryMetadataOnly, TaskKind::NameFacts}) {
        EXPECT_EQ(TaskKindFromName(TaskKindName(kind)), kind) << TaskKindName(kind);
        for (const OutputTarget target : {OutputTarget::NewFile, OutputTarget::Source}) {
            ImageTask task = SomeTask();
            task.kind = kind;
            task.target = target;
            const std::optional<Request> read =
                DecodeRequest(Encode(Request(ImageRequest{task, 1, false})));
            ASSERT_TRUE(read);
            const auto* back = std::get_if<ImageRequest>(&*read);
            ASSERT_NE(back, nullptr);
            EXPECT_EQ(back->task.kind, kind);
            EXPECT_EQ(back->task.target, target);
        }
    }
    EXPECT_EQ(std::string(TaskKindName(TaskKind::CarryMetadataOnly)), "carry-metadata-only");
    EXPECT_FALSE(TaskKindFromName("crop-everything").has_value());
    EXPECT_FALSE(OutputTargetFromName("elsewhere").has_value());
    EXPECT_TRUE(CarriesMetadata(TaskKind::CropCarryingMetadata));
    EXPECT_TRUE(CarriesMetadata(TaskKind::CarryMetadataOnly));
    EXPECT_FALSE(CarriesMetadata(TaskKind::Crop));
    EXPECT_FALSE(CarriesMetadata(TaskKind::DryRun));
}

TEST(WorkerProtocol, ARequestReadsBackAsItWasSent) {
    const ImageRequest image{SomeTask(), 123'456'789, true};
    const std::optional<Request> read = DecodeRequest(Encode(Request(image)));
    ASSERT_TRUE(read);
    const auto* back = std::get_if<ImageRequest>(&*read);
    ASSERT_NE(back, nullptr);
    EXPECT_EQ(back->maxPixels, 123'456'789u);
    EXPECT_TRUE(back->onlySecondDecoder);
    EXPECT_EQ(back->task.index, 7);
    EXPECT_EQ(back->task.source, image.task.source);
    EXPECT_EQ(back->task.output, image.task.output);
    EXPECT_EQ(back->task.decision, OverwriteDecision::Skip);
    EXPECT_EQ(back->task.settings.mode, CropMode::Percents);
    EXPECT_EQ(back->task.settings.percentsOriginX, 12.5f);
    EXPECT_EQ(back->task.settings.quality, 67.0f);
    EXPECT_EQ(back->task.adjustedRect, image.task.adjustedRect);
    EXPECT_EQ(back->task.kind, TaskKind::CropCarryingMetadata);
    EXPECT_EQ(back->task.target, OutputTarget::Source);

    const std::optional<Request> preview =
        DecodeRequest(Encode(Request(PreviewRequest{"/a b.png", 512, 99, false})));
    ASSERT_TRUE(preview);
    const auto* p = std::get_if<PreviewRequest>(&*preview);
    ASSERT_NE(p, nullptr);
    EXPECT_EQ(p->path, "/a b.png");
    EXPECT_EQ(p->maxSide, 512);
    EXPECT_EQ(p->maxPixels, 99u);
    EXPECT_FALSE(p->onlySecondDecoder);
    EXPECT_EQ(p->looks, PreviewLooks{});
    EXPECT_FALSE(p->embedded);

    PreviewRequest embedded{"/camera.jpg", 160, 99};
    embedded.embedded = true;
    const std::optional<Request> standIn = DecodeRequest(Encode(Request(embedded)));
    ASSERT_TRUE(standIn);
    EXPECT_TRUE(std::get<PreviewRequest>(*standIn).embedded);

    // What the preview asks its worker to look for besides the picture.
    const PreviewLooks looks{true, 12.345678901};
    const std::optional<Request> looking =
        DecodeRequest(Encode(Request(PreviewRequest{"/p.jpg", 512, 99, false, looks})));
    ASSERT_TRUE(looking);
    EXPECT_EQ(std::get<PreviewRequest>(*looking).looks, looks);
}

TEST(WorkerProtocol, AFailureKeepsItsCauseForTheWindowsWords) {
    ImageOutcome outcome;
    outcome.failure = Failure::At(FailureStage::Crop,
                                  Sentence{"faces could not be looked for: %1", {"no memory"}});
    const auto reply = DecodeReply(Encode(Reply(OutcomeReply{outcome})));
    ASSERT_TRUE(reply);
    const Failure& back = *std::get<OutcomeReply>(*reply).outcome.failure;
    EXPECT_EQ(back.stage, FailureStage::Crop);
    EXPECT_EQ(back.reason, "cannot crop: faces could not be looked for: no memory");
    EXPECT_EQ(back.detail.pattern, "faces could not be looked for: %1");
    EXPECT_EQ(back.detail.values, std::vector<std::string>{"no memory"});
}

TEST(WorkerProtocol, RepliesReadBackAsTheyWereSent) {
    ImageOutcome outcome;
    outcome.status = ImageStatus::Written;
    outcome.rect = Rect{10, 20, 30.5, 40};
    outcome.outputSize = Size{30, 40};
    outcome.warnings = {{"Clipped to %1 × %2", {"30", "40"}}, {"first frame only (of %1)", {"3"}}};
    outcome.notes = {{NoteKind::DateNotSet, "permission denied"}};
    outcome.photoFacts = PhotoFacts{CalendarTime{2021, 12, 24, 18, 30, 15}, "PEN-F"};
    const auto reply = DecodeReply(Encode(Reply(OutcomeReply{outcome})));
    ASSERT_TRUE(reply);
    const auto* back = std::get_if<OutcomeReply>(&*reply);
    ASSERT_NE(back, nullptr);
    EXPECT_EQ(back->outcome.status, ImageStatus::Written);
    EXPECT_EQ(back->outcome.rect, outcome.rect);
    EXPECT_EQ(back->outcome.outputSize, outcome.outputSize);
    EXPECT_EQ(back->outcome.warnings, outcome.warnings);
    EXPECT_EQ(back->outcome.WarningLine(), "Clipped to 30 × 40; first frame only (of 3)");
    EXPECT_EQ(back->outcome.notes, outcome.notes);
    EXPECT_EQ(back->outcome.photoFacts, outcome.photoFacts);
    outcome.photoFacts = PhotoFacts{};  // no date at all
    EXPECT_EQ(std::get<OutcomeReply>(*DecodeReply(Encode(Reply(OutcomeReply{outcome}))))
                  .outcome.photoFacts,
              outcome.photoFacts);

    const auto note = DecodeReply(Encode(Reply(DecodingNote{1ull << 40})));
    ASSERT_TRUE(note && std::holds_alternative<DecodingNote>(*note));
    EXPECT_EQ(std::get<DecodingNote>(*note).bytes, 1ull << 40);
    const auto hello = DecodeReply(Encode(Reply(Hello{})));
    ASSERT_TRUE(hello && std::holds_alternative<Hello>(*hello));
    EXPECT_EQ(std::get<Hello>(*hello).version, kVersion);
}

TEST(WorkerProtocol, APictureTravelsWithEveryPixel) {
    const Image picture = test::MakeImage(test::CoordinateImage(40, 30));
    const Preview sent{Size{4000, 3000}, picture, 3, JpegGrid{16, 16, 4000, 3000, 6}};
    const auto reply = DecodeReply(Encode(Reply(PreviewReply{PreviewResult::Success(sent)})));
    ASSERT_TRUE(reply);
    const PreviewResult& back = std::get<PreviewReply>(*reply).preview;
    ASSERT_TRUE(back) << back.reason();
    EXPECT_EQ(back->fullSize, (Size{4000, 3000}));
    EXPECT_EQ(back->pages, 3);
    ASSERT_TRUE(back->jpegGrid);
    EXPECT_EQ(back->jpegGrid->orientation, 6);
    EXPECT_EQ(ImageTools::RenderRgba8(back->picture)->pixels,
              ImageTools::RenderRgba8(picture)->pixels);

    EXPECT_FALSE(back->faces);
    EXPECT_FALSE(back->trim);

    const auto failed =
        DecodeReply(Encode(Reply(PreviewReply{PreviewResult::Failure("cannot decode: cut")})));
    ASSERT_TRUE(failed);
    EXPECT_EQ(std::get<PreviewReply>(*failed).preview.reason(), "cannot decode: cut");
}

TEST(WorkerProtocol, WhatAPreviewLookedForTravelsWithIt) {
    Preview sent{Size{4000, 3000}, test::MakeImage(test::CoordinateImage(40, 30)), 1, {}};
    sent.faces =
        FaceSearch{{{Rect{100.5, 200, 300, 310.25}, 1.75}, {Rect{10, 20, 30, 40}, 0.01}}, ""};
    sent.trim = TrimLook{7.5, Rect{12, 14, 3000, 2000}};
    auto reply = DecodeReply(Encode(Reply(PreviewReply{PreviewResult::Success(sent)})));
    ASSERT_TRUE(reply);
    const PreviewResult& back = std::get<PreviewReply>(*reply).preview;
    ASSERT_TRUE(back) << back.reason();
    ASSERT_TRUE(back->faces);
    EXPECT_EQ(back->faces->faces, sent.faces->faces);
    EXPECT_FALSE(back->faces->Failed());
    EXPECT_EQ(back->trim, sent.trim);

    // No face found, a detector that failed, a picture all background.
    sent.faces = FaceSearch{{}, "the detector ran out of memory"};
    sent.trim = TrimLook{0.0, std::nullopt};
    reply = DecodeReply(Encode(Reply(PreviewReply{PreviewResult::Success(sent)})));
    ASSERT_TRUE(reply);
    const PreviewResult& second = std::get<PreviewReply>(*reply).preview;
    ASSERT_TRUE(second && second->faces);
    EXPECT_TRUE(second->faces->faces.empty());
    EXPECT_EQ(second->faces->failure, "the detector ran out of memory");
    EXPECT_EQ(second->trim, sent.trim);

    // A face of the wrong shape is no reply.
    Message damaged = Encode(Reply(PreviewReply{PreviewResult::Success(sent)}));
    const std::size_t at = damaged.json.find("\"failure\"");
    ASSERT_NE(at, std::string::npos);
    damaged.json.replace(at, 9, "\"fail\"");
    EXPECT_FALSE(DecodeReply(damaged));
}

TEST(WorkerProtocol, FramesHoldingNoMessageOfTheirDirectionAreRefused) {
    const Message image = Encode(Request(ImageRequest{SomeTask(), 1, false}));
    EXPECT_FALSE(DecodeReply(image));  // a request is no reply
    EXPECT_FALSE(DecodeRequest(Encode(Reply(Hello{}))));
    EXPECT_FALSE(DecodeRequest({"{\"type\": \"image\"", {}}));     // cut JSON
    EXPECT_FALSE(DecodeRequest({"[1, 2, 3]", {}}));                // no object
    EXPECT_FALSE(DecodeRequest({"{\"type\": \"unknown\"}", {}}));  // another type
    EXPECT_FALSE(
        DecodeRequest({"{\"type\": \"preview\", \"path\": 5, \"maxSide\": 1, "
                       "\"maxPixels\": 1, \"onlySecondDecoder\": false, \"faces\": false}",
                       {}}));  // a field of another kind
    Message cut = image;
    cut.json.erase(cut.json.find("\"maxPixels\""), 1);
    EXPECT_FALSE(DecodeRequest(cut));
    // Whole numbers with a fraction, or beyond their field's type.
    for (const char* number : {"1.5", "4e84", "-1", "18446744073709551616"}) {
        EXPECT_FALSE(
            DecodeReply({std::string("{\"type\": \"decoding\", \"bytes\": ") + number + "}", {}}))
            << number;
    }
    EXPECT_TRUE(DecodeReply({"{\"type\": \"decoding\", \"bytes\": 18446744073709551615}", {}}));
    // A picture whose bytes do not match its size is a failure with a reason.
    Message picture = Encode(Reply(PreviewReply{PreviewResult::Success(
        Preview{Size{40, 30}, test::MakeImage(test::CoordinateImage(40, 30)), 1, {}})}));
    picture.binary.pop_back();
    const auto damaged = DecodeReply(picture);
    ASSERT_TRUE(damaged);
    EXPECT_EQ(std::get<PreviewReply>(*damaged).preview.reason(),
              "the image worker sent a damaged picture");
}

}  // namespace
}  // namespace vellumo::workerprotocol
