// Loading, cropping and the preview veil on photo-sized images.
//
//   build/bench/vellumo_bench_core [--benchmark_filter=...]
//
// Inputs are generated once into the build tree (bench-data/).

#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>

#include "batch/CropRectangle.h"
#include "batch/OutputPlan.h"
#include "bench/BenchInputs.h"
#include "imaging/FaceDetection.h"
#include "imaging/ImageTools.h"
#include "tests/support/TestData.h"
#include "tests/support/TestImages.h"

namespace vellumo {
namespace {

using bench::PhotoAs;
using bench::PhotoJpeg24;
using bench::PhotoPng100;

void BM_Load24MegapixelJpeg(benchmark::State& state) {
    for (auto _ : state) {
        LoadResult loaded = ImageTools::LoadImage(PhotoJpeg24());
        benchmark::DoNotOptimize(loaded);
        if (!loaded)
            state.SkipWithError(loaded.reason().c_str());
    }
}
BENCHMARK(BM_Load24MegapixelJpeg)->Unit(benchmark::kMillisecond)->UseRealTime();

// Load, cut the centre half of each side, and hold the cut pixels in memory.
void BM_LoadAndCropCentreHalf24MegapixelJpeg(benchmark::State& state) {
    for (auto _ : state) {
        const LoadResult loaded = ImageTools::LoadImage(PhotoJpeg24());
        if (!loaded) {
            state.SkipWithError(loaded.reason().c_str());
            break;
        }
        const Image cut = ImageTools::CropImage(*loaded, {1500, 1000, 3000, 2000});
        vips::VImage held = test::PixelsOf(cut);
        benchmark::DoNotOptimize(held);
    }
}
BENCHMARK(BM_LoadAndCropCentreHalf24MegapixelJpeg)->Unit(benchmark::kMillisecond)->UseRealTime();

// The veil outside a 3:2 rectangle on a preview-sized image, computed into
// memory.
void BM_OverlayPreviewSized(benchmark::State& state) {
    const Image preview = test::MakeImage(test::PhotoLikeImage(1200, 800).copy_memory());
    const Rect r = ImageTools::AutoCropRectangle(preview, ClassicRatio::ThreeTwo);
    for (auto _ : state) {
        const Image veiled =
            ImageTools::VeilOutsideRectangle(preview, {r.x, r.y + 37.5, r.width, r.height - 75});
        vips::VImage held = test::PixelsOf(veiled);
        benchmark::DoNotOptimize(held);
    }
}
BENCHMARK(BM_OverlayPreviewSized)->Unit(benchmark::kMillisecond)->UseRealTime();

// Where 2,000 images go, with the clashes of "[FileName]"
// found and numbered: the part of the crop command that runs on the
// window's GUI thread before the overwrite questions (existing outputs and
// sources are looked up on disk).
void BM_PlanOutputsOf2000Images(benchmark::State& state) {
    const std::filesystem::path folder = test::BuildPath("bench-data/plan");
    std::filesystem::create_directories(folder / "a");
    std::filesystem::create_directories(folder / "b");
    std::filesystem::create_directories(folder / "out");
    std::vector<std::string> list;
    for (int i = 0; i < 2000; ++i) {
        // A second camera's first 200 names again: 200 clashes.
        const auto path =
            folder / (i < 1800 ? "a" : "b") / ("IMG_" + std::to_string(i % 1800) + ".jpg");
        std::ofstream(path) << "x";
        list.push_back(path.string());
    }
    CropSettings settings;
    settings.outputFolder = (folder / "out").string();
    settings.nameTemplate = "[FileName]";
    for (auto _ : state) {
        OutputPlan plan = PlanOutputs(settings, list, ClashPolicy::Number);
        benchmark::DoNotOptimize(plan);
    }
}
BENCHMARK(BM_PlanOutputsOf2000Images)->Unit(benchmark::kMillisecond)->UseRealTime();

// The longer side of the window's preview picture at 1280 x 800.
constexpr int kPreviewSide = 800;

// What selecting a row costs in the window, less the drawing on screen:
// decode a preview-sized picture, veil it outside a 3:2 rectangle, and
// render it as 8-bit RGBA.
void PreviewOf(benchmark::State& state, const std::string& path) {
    for (auto _ : state) {
        const PreviewResult preview = ImageTools::LoadPreview(path, kPreviewSide);
        if (!preview) {
            state.SkipWithError(preview.reason().c_str());
            break;
        }
        const Image full = Image::OfSize(preview->fullSize.width, preview->fullSize.height);
        const Rect r = ImageTools::AutoCropRectangle(full, ClassicRatio::ThreeTwo);
        const double scale = preview->picture.Width() / full.Width();
        const Image veiled = ImageTools::VeilOutsideRectangle(
            preview->picture, {r.x * scale, r.y * scale, r.width * scale, r.height * scale});
        auto bitmap = ImageTools::RenderRgba8(veiled);
        benchmark::DoNotOptimize(bitmap);
    }
}

void BM_Preview24MegapixelJpeg(benchmark::State& state) {
    PreviewOf(state, PhotoJpeg24());
}
BENCHMARK(BM_Preview24MegapixelJpeg)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_Preview100MegapixelPng(benchmark::State& state) {
    PreviewOf(state, PhotoPng100());
}
BENCHMARK(BM_Preview100MegapixelPng)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(2);

// The 24-megapixel photo in other formats: the preview, and the contact
// sheet's thumbnail (256 pixels), each decoded alone.
void BM_Preview24MegapixelAs(benchmark::State& state, const char* extension, int side) {
    const std::string& path = PhotoAs(extension);
    for (auto _ : state) {
        const PreviewResult preview = ImageTools::LoadPreview(path, side);
        if (!preview) {
            state.SkipWithError(preview.reason().c_str());
            break;
        }
        benchmark::DoNotOptimize(preview);
    }
}
BENCHMARK_CAPTURE(BM_Preview24MegapixelAs, webp, "webp", kPreviewSide)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(BM_Preview24MegapixelAs, jp2, "jp2", kPreviewSide)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(BM_Preview24MegapixelAs, heic, "heic", kPreviewSide)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(BM_Preview24MegapixelAs, thumbnail_webp, "webp", 256)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(BM_Preview24MegapixelAs, thumbnail_jp2, "jp2", 256)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(BM_Preview24MegapixelAs, thumbnail_heic, "heic", 256)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

// What a smart anchor costs on a 24-megapixel photo: the reduced picture
// decoded (shrink-on-load) and judged, then the rectangle placed.
void SmartPlacementOf(benchmark::State& state, CropAnchor anchor) {
    CropSettings settings;
    settings.mode = CropMode::Auto;
    settings.autoCropRatio = RatioChoice::Ratio1x1;
    settings.anchor = anchor;
    const Image full = Image::OfSize(6000, 4000);
    for (auto _ : state) {
        const PreviewResult picture = ImageTools::LoadPreview(PhotoJpeg24(), kPlacementPictureSide);
        if (!picture) {
            state.SkipWithError(picture.reason().c_str());
            break;
        }
        // The faces anchor looks for faces in the picture first.
        const std::optional<FaceSearch> faces =
            anchor == CropAnchor::Faces
                ? std::optional<FaceSearch>(FindFaces(picture->picture, {6000, 4000}))
                : std::nullopt;
        const ResolvedCrop crop = ResolveCrop(settings, full, &picture->picture, std::nullopt,
                                              nullptr, faces ? &*faces : nullptr);
        benchmark::DoNotOptimize(crop);
    }
}

void BM_AttentionPlacement24MegapixelJpeg(benchmark::State& state) {
    SmartPlacementOf(state, CropAnchor::Attention);
}
BENCHMARK(BM_AttentionPlacement24MegapixelJpeg)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_EntropyPlacement24MegapixelJpeg(benchmark::State& state) {
    SmartPlacementOf(state, CropAnchor::Entropy);
}
BENCHMARK(BM_EntropyPlacement24MegapixelJpeg)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_FacesPlacement24MegapixelJpeg(benchmark::State& state) {
    SmartPlacementOf(state, CropAnchor::Faces);
}
BENCHMARK(BM_FacesPlacement24MegapixelJpeg)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

// Used by main() below.
void MakeInputs() {
    PhotoJpeg24();
    PhotoPng100();
    for (const char* extension : {"webp", "jp2", "heic"}) {
        PhotoAs(extension);
    }
}

}  // namespace vellumo

int main(int argc, char** argv) {
    return vellumo::bench::RunBenchmarks(argc, argv, vellumo::MakeInputs);
}
