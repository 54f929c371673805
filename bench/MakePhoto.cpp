// Writes photo-like JPEGs for the batch benchmark:
//   vellumo_make_photo WIDTH HEIGHT OUT.jpg [SEED]
// Different seeds give different noise, so no two files are alike.

#include <cstdio>
#include <cstdlib>
#include <string>

#include "imaging/VipsRuntime.h"
#include "tests/support/TestImages.h"

int main(int argc, char** argv) {
    if (argc < 4) {
        std::fprintf(stderr, "usage: vellumo_make_photo WIDTH HEIGHT OUT.jpg [SEED]\n");
        return 2;
    }
    const int width = std::atoi(argv[1]);
    const int height = std::atoi(argv[2]);
    const int seed = argc > 4 ? std::atoi(argv[4]) : 0;
    vellumo::vipsruntime::EnsureStarted();
    // Shift the pattern by the seed so that every file differs.
    vips::VImage photo = vellumo::test::PhotoLikeImage(width + seed % 97, height)
                             .extract_area(seed % 97, 0, width, height);
    photo.jpegsave(argv[3], vips::VImage::option()->set("Q", 90));
    return 0;
}
