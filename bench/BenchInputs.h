#pragma once

// Photo-like inputs shared by the benchmarks, generated once into the build
// tree (bench-data/) and reused by every later run.

#include <functional>
#include <string>
#include <vector>

namespace vellumo::bench {

// A 6000 x 4000 (24-megapixel) JPEG at quality 90.
const std::string& PhotoJpeg24();

// `count` different 6000 x 4000 JPEGs at quality 90, as a camera's series.
std::vector<std::string> PhotoJpeg24Series(int count);

// PhotoJpeg24's picture written as `extension` ("webp", "jp2", "heic") at
// the quality a phone or a web shop writes (80; 45 for JPEG 2000).
const std::string& PhotoAs(const std::string& extension);

// A 10000 x 10000 (100-megapixel) PNG.
const std::string& PhotoPng100();

// The main() of a Google Benchmark program: `prepare` makes the inputs before
// any timing starts, then the benchmarks the arguments select run.
int RunBenchmarks(int argc, char** argv, const std::function<void()>& prepare);

}  // namespace vellumo::bench
