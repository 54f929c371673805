// Apart from the benchmarks that use it: it reaches the pixel library's
// headers, which the window's benchmark must not see.

#include "bench/BenchInputs.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <map>

#include "imaging/VipsRuntime.h"
#include "tests/support/TestData.h"
#include "tests/support/TestImages.h"

namespace vellumo::bench {

namespace {

void PrepareFolder(const std::string& file) {
    std::filesystem::create_directories(std::filesystem::path(file).parent_path());
}

}  // namespace

const std::string& PhotoJpeg24() {
    static const std::string path = [] {
        const std::string file = test::BuildPath("bench-data/photo-6000x4000.jpg");
        if (!std::filesystem::exists(file)) {
            PrepareFolder(file);
            test::PhotoLikeImage(6000, 4000)
                .jpegsave(file.c_str(), vips::VImage::option()->set("Q", 90));
        }
        return file;
    }();
    return path;
}

const std::string& PhotoAs(const std::string& extension) {
    static std::map<std::string, std::string> made;
    std::string& path = made[extension];
    if (path.empty()) {
        path = test::BuildPath("bench-data/photo-6000x4000." + extension);
        if (!std::filesystem::exists(path)) {
            PrepareFolder(path);
            vipsruntime::EnsureStarted();
            vips::VImage::new_from_file(PhotoJpeg24().c_str())
                .write_to_file(path.c_str(),
                               vips::VImage::option()->set("Q", extension == "jp2" ? 45 : 80));
        }
    }
    return path;
}

std::vector<std::string> PhotoJpeg24Series(int count) {
    std::vector<std::string> files;
    for (int i = 0; i < count; ++i) {
        const std::string file =
            test::BuildPath("bench-data/series/photo-" + std::to_string(i) + ".jpg");
        if (!std::filesystem::exists(file)) {
            PrepareFolder(file);
            // Shifted by the index, so that no two files are alike.
            test::PhotoLikeImage(6000 + i, 4000)
                .extract_area(i, 0, 6000, 4000)
                .jpegsave(file.c_str(), vips::VImage::option()->set("Q", 90));
        }
        files.push_back(file);
    }
    return files;
}

const std::string& PhotoPng100() {
    static const std::string path = [] {
        const std::string file = test::BuildPath("bench-data/photo-10000x10000.png");
        if (!std::filesystem::exists(file)) {
            PrepareFolder(file);
            test::PhotoLikeImage(10000, 10000)
                .pngsave(file.c_str(), vips::VImage::option()->set("compression", 1));
        }
        return file;
    }();
    return path;
}

int RunBenchmarks(int argc, char** argv, const std::function<void()>& prepare) {
    prepare();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}

}  // namespace vellumo::bench
