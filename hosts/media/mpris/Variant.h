// An owned value of the bus.
#pragma once

#include <memory>

#include <gio/gio.h>

namespace playback {

struct VariantRelease {
    void operator()(GVariant* value) const { g_variant_unref(value); }
};
using Variant = std::unique_ptr<GVariant, VariantRelease>;

/// Takes over a value that was just made, as it comes from the g_variant_new… functions.
inline Variant adopt(GVariant* value) {
    return Variant(g_variant_ref_sink(value));
}

} // namespace playback
