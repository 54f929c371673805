// Encoding and writing a 12-megapixel crop in each output format.
//
//   build/bench/vellumo_bench_save [--benchmark_filter=...]
//
// Two crops of 4000 x 3000, decoded into memory before timing, so that the
// times are the encoding and the atomic write of the file alone: one from a
// photo-like 6000 x 4000 JPEG generated once into the build tree
// (bench-data/; its noise makes it hard to compress), one from a real
// 12.5-megapixel phone photo among the shared test images (skipped when
// they are missing).

#include <benchmark/benchmark.h>

#include <filesystem>

#include "bench/BenchInputs.h"
#include "imaging/ImageTools.h"
#include "tests/support/TestData.h"
#include "tests/support/TestImages.h"

namespace vellumo {
namespace {

Image CropIntoMemory(const std::string& file) {
    const LoadResult loaded = ImageTools::LoadImage(file);
    if (!loaded) {
        return Image();
    }
    const Image cut = ImageTools::CropImage(*loaded, {40, 40, 4000, 3000});
    return test::MakeImage(test::PixelsOf(cut));
}

const Image& Crop12Megapixels() {
    static const Image crop = [] {
        const std::string file = test::BuildPath("bench-data/photo-6000x4000.jpg");
        if (!std::filesystem::exists(file)) {
            std::filesystem::create_directories(std::filesystem::path(file).parent_path());
            test::PhotoLikeImage(6000, 4000)
                .jpegsave(file.c_str(), vips::VImage::option()->set("Q", 90));
        }
        return CropIntoMemory(file);
    }();
    return crop;
}

const Image& RealPhotoCrop12Megapixels() {
    static const Image crop =
        test::HaveTestData() ? CropIntoMemory(test::TestDataPath("large/sky.jpg")) : Image();
    return crop;
}

void BM_Save12MegapixelCrop(benchmark::State& state, OutputFormat format, double quality,
                            const char* name) {
    const bool real = std::string(name).rfind("real-", 0) == 0;
    const Image& crop = real ? RealPhotoCrop12Megapixels() : Crop12Megapixels();
    if (crop.IsEmpty()) {
        state.SkipWithError("no input image (shared test images missing?)");
        return;
    }
    const std::string path = test::BuildPath(std::string("bench-data/") + name);
    for (auto _ : state) {
        const SaveResult saved = ImageTools::TrySaveImage(crop, path, format, quality);
        if (!saved.saved) {
            state.SkipWithError(saved.reason.c_str());
            break;
        }
    }
    state.counters["bytes"] = static_cast<double>(std::filesystem::file_size(path));
}

BENCHMARK_CAPTURE(BM_Save12MegapixelCrop, JpegQuality80, OutputFormat::Jpg, 0.8, "save.jpg")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(BM_Save12MegapixelCrop, Png, OutputFormat::Png, 0.8, "save.png")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(BM_Save12MegapixelCrop, Tiff, OutputFormat::Tiff, 0.8, "save.tif")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(BM_Save12MegapixelCrop, Jpeg2000Quality80, OutputFormat::Jp2, 0.8, "save.jp2")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(BM_Save12MegapixelCrop, Gif, OutputFormat::Gif, 0.8, "save.gif")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(BM_Save12MegapixelCrop, Bmp, OutputFormat::Bmp, 0.8, "save.bmp")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

BENCHMARK_CAPTURE(BM_Save12MegapixelCrop, RealPhotoJpegQuality80, OutputFormat::Jpg, 0.8,
                  "real-save.jpg")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(BM_Save12MegapixelCrop, RealPhotoPng, OutputFormat::Png, 0.8, "real-save.png")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(BM_Save12MegapixelCrop, RealPhotoTiff, OutputFormat::Tiff, 0.8, "real-save.tif")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(BM_Save12MegapixelCrop, RealPhotoJpeg2000Quality80, OutputFormat::Jp2, 0.8,
                  "real-save.jp2")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

// The whole path for one photo: load, crop, save as JPEG at quality 0.8.
void BM_LoadCropSaveJpeg(benchmark::State& state) {
    const std::string file = test::BuildPath("bench-data/photo-6000x4000.jpg");
    const std::string path = test::BuildPath("bench-data/pipeline.jpg");
    for (auto _ : state) {
        const LoadResult loaded = ImageTools::LoadImage(file);
        if (!loaded) {
            state.SkipWithError(loaded.reason().c_str());
            break;
        }
        const Image cut = ImageTools::CropImage(*loaded, {1000, 500, 4000, 3000});
        if (!ImageTools::SaveImage(cut, path, OutputFormat::Jpg, 0.8)) {
            state.SkipWithError("save failed");
            break;
        }
    }
}
BENCHMARK(BM_LoadCropSaveJpeg)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace vellumo

int main(int argc, char** argv) {
    // Generated and decoded before any timing starts.
    return vellumo::bench::RunBenchmarks(argc, argv, [] {
        vellumo::Crop12Megapixels();
        vellumo::RealPhotoCrop12Megapixels();
    });
}
