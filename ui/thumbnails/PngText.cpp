#include "ui/thumbnails/PngText.h"

#include <png.h>

#include <csetjmp>
#include <vector>

namespace vellumo {

namespace {

void AppendBytes(png_structp png, png_bytep data, png_size_t length) {
    auto* out = static_cast<QByteArray*>(png_get_io_ptr(png));
    out->append(reinterpret_cast<const char*>(data), static_cast<qsizetype>(length));
}

void NoFlush(png_structp) {}

}  // namespace

namespace {

// What libpng writes; prepared beforehand, since nothing that libpng may jump
// back over (setjmp) should be made after it.
struct PngJob {
    int width = 0;
    int height = 0;
    png_text* chunks = nullptr;
    int chunkCount = 0;
    png_bytep* rows = nullptr;
    QByteArray* out = nullptr;
};

bool WritePng(const PngJob& job) {
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    if (png == nullptr) {
        return false;
    }
    png_infop info = png_create_info_struct(png);
    if (info == nullptr || setjmp(png_jmpbuf(png)) != 0) {  // NOLINT(cert-err52-cpp)
        png_destroy_write_struct(&png, &info);
        return false;
    }
    png_set_write_fn(png, job.out, AppendBytes, NoFlush);
    png_set_IHDR(png, info, static_cast<png_uint_32>(job.width),
                 static_cast<png_uint_32>(job.height), 8, PNG_COLOR_TYPE_RGB_ALPHA,
                 PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    png_set_text(png, info, job.chunks, job.chunkCount);
    png_write_info(png, info);
    png_write_image(png, job.rows);
    png_write_end(png, nullptr);
    png_destroy_write_struct(&png, &info);
    return true;
}

}  // namespace

QByteArray PngWithTexts(const QImage& picture, const PngTexts& texts) {
    if (picture.isNull()) {
        return {};
    }
    const QImage rgba = picture.convertToFormat(QImage::Format_RGBA8888);
    std::vector<png_text> chunks(static_cast<std::size_t>(texts.size()));
    for (qsizetype i = 0; i < texts.size(); ++i) {
        png_text& chunk = chunks[static_cast<std::size_t>(i)];
        chunk.compression = PNG_TEXT_COMPRESSION_NONE;
        chunk.key = const_cast<png_charp>(texts[i].first.constData());
        chunk.text = const_cast<png_charp>(texts[i].second.constData());
        chunk.text_length = static_cast<png_size_t>(texts[i].second.size());
    }
    std::vector<png_bytep> rows(static_cast<std::size_t>(rgba.height()));
    for (int y = 0; y < rgba.height(); ++y) {
        rows[static_cast<std::size_t>(y)] = const_cast<png_bytep>(rgba.constScanLine(y));
    }
    QByteArray out;
    const PngJob job{rgba.width(), rgba.height(), chunks.data(), static_cast<int>(chunks.size()),
                     rows.data(),  &out};
    return WritePng(job) ? out : QByteArray();
}

}  // namespace vellumo
