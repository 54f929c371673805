#include "imaging/SourceTap.h"

#include <atomic>
#include <mutex>
#include <string>

#include "imaging/VipsRuntime.h"

namespace vellumo::sourcetap {

namespace {

// Held by the tapped image's metadata, which libvips copies, counted, onto
// every image made from it; freed with the last of them.
struct TapState {
    std::atomic<bool> failed{false};
    // The decoder's first warning where it failed (libpng gives its cause
    // as a warning and then fails with "libpng read error").
    std::mutex mutex;
    std::string cause;

    void Fail(const std::string& warning) {
        std::lock_guard lock(mutex);
        if (cause.empty()) {
            cause = warning;
        }
        failed.store(true);
    }
};

int FreeState(void* state, void* /*unused*/) {
    delete static_cast<TapState*>(state);
    return 0;
}

// Every region asked of the tap is the same region of the decoder's image.
int Generate(VipsRegion* out, void* sequence, void* /*input*/, void* state, gboolean* /*stop*/) {
    auto* in = static_cast<VipsRegion*>(sequence);
    const VipsRect* wanted = &out->valid;
    const vipsruntime::WarningCollector warnings;
    if (vips_region_prepare(in, wanted) != 0) {
        static_cast<TapState*>(state)->Fail(warnings.First());
        return -1;
    }
    return vips_region_region(out, in, wanted, wanted->left, wanted->top);
}

}  // namespace

vips::VImage Tap(const vips::VImage& pixels) {
    VipsImage* in = pixels.get_image();
    VipsImage* out = vips_image_new();
    if (vips_image_pipelinev(out, VIPS_DEMAND_STYLE_THINSTRIP, in, nullptr) != 0) {
        g_object_unref(out);
        return pixels;
    }
    auto* state = new TapState;
    // Taken once here so that the decoding threads, which take it before
    // they touch the state, are seen to come after its construction (they
    // are started by GLib, which ThreadSanitizer does not see).
    { const std::lock_guard lock(state->mutex); }
    vips_image_set_blob(out, kTapField, FreeState, state, sizeof(TapState));
    // The tap keeps the decoder's image for as long as it lives.
    g_object_ref(in);
    vips_object_local(out, in);
    if (vips_image_generate(out, vips_start_one, Generate, vips_stop_one, in, state) != 0) {
        g_object_unref(out);
        return pixels;
    }
    return vips::VImage(out);
}

namespace {

TapState* StateOf(const vips::VImage& image) {
    VipsImage* raw = image.get_image();
    if (raw == nullptr || vips_image_get_typeof(raw, kTapField) == 0) {
        return nullptr;
    }
    const void* data = nullptr;
    std::size_t length = 0;
    if (vips_image_get_blob(raw, kTapField, &data, &length) != 0 || data == nullptr) {
        return nullptr;
    }
    return static_cast<TapState*>(const_cast<void*>(data));
}

}  // namespace

bool DecoderFailed(const vips::VImage& image) {
    const TapState* state = StateOf(image);
    return state != nullptr && state->failed.load();
}

std::string DecoderWarning(const vips::VImage& image) {
    TapState* state = StateOf(image);
    if (state == nullptr) {
        return {};
    }
    std::lock_guard lock(state->mutex);
    return state->cause;
}

}  // namespace vellumo::sourcetap
