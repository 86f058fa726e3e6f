#include "platform/toolkit/text/FontMap.h"

#include "platform/foundation/Log.h"

#include <fontconfig/fontconfig.h>
#include <pango/pangocairo.h>
#include <pango/pangofc-fontmap.h>

#include <cmath>
#include <memory>
#include <string>

namespace toolkit {

namespace {

struct ObjectUnref {
    void operator()(gpointer object) const { g_object_unref(object); }
};

std::unique_ptr<PangoFontMap, ObjectUnref> fontMap;
std::unique_ptr<PangoContext, ObjectUnref> context;

void makeContext(FcConfig* config) {
    context.reset();
    fontMap.reset(pango_cairo_font_map_new_for_font_type(CAIRO_FONT_TYPE_FT));
    if (config)
        pango_fc_font_map_set_config(PANGO_FC_FONT_MAP(fontMap.get()), config);
    context.reset(pango_font_map_create_context(fontMap.get()));
    cairo_font_options_t* options = cairo_font_options_create();
    cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GRAY);
    cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
    pango_cairo_context_set_font_options(context.get(), options);
    cairo_font_options_destroy(options);
    pango_context_set_round_glyph_positions(context.get(), FALSE);
    // The language of the machine must not choose among glyphs.
    pango_context_set_language(context.get(), pango_language_from_string("en"));
    pango_context_set_base_dir(context.get(), PANGO_DIRECTION_WEAK_LTR);
}

/// A configuration that knows no fonts and no rules of the machine's, only where the scanned fonts are
/// remembered.
FcConfig* makeEmptyConfig() {
    static const char description[] =
        "<?xml version=\"1.0\"?><!DOCTYPE fontconfig SYSTEM \"urn:fontconfig:fonts.dtd\">"
        "<fontconfig><cachedir prefix=\"xdg\">fontconfig</cachedir></fontconfig>";
    FcConfig* config = FcConfigCreate();
    if (config)
        FcConfigParseAndLoadFromMemory(config, reinterpret_cast<const FcChar8*>(description), FcTrue);
    return config;
}

int pangoWeight(FontWeight weight) {
    // The system's thin face is the family's thinnest, which the font files call 100.
    return weight == FontWeight::Thin ? static_cast<int>(PANGO_WEIGHT_THIN) : static_cast<int>(weight);
}

} // namespace

void setFontDirectory(const char* realPath, bool pinned) {
    FcConfig* config = pinned ? makeEmptyConfig() : FcInitLoadConfigAndFonts();
    if (!config)
        return;
    if (!FcConfigAppFontAddDir(config, reinterpret_cast<const FcChar8*>(realPath)))
        foundation::log(std::string("No fonts in ") + realPath);
    makeContext(config);
    FcConfigDestroy(config); // the font map holds its own reference
}

PangoContext* sharedTextContext() {
    if (!context)
        makeContext(nullptr);
    return context.get();
}

PangoFontDescription* makeFontDescription(const Font& font) {
    constexpr double largest = 1000, smallest = 1;
    const double size = font.size > smallest ? std::min(font.size, largest) : smallest;
    PangoFontDescription* description = pango_font_description_new();
    pango_font_description_set_family(description, "Inter,sans-serif");
    pango_font_description_set_weight(description, static_cast<PangoWeight>(pangoWeight(font.weight)));
    pango_font_description_set_absolute_size(description, std::round(size * PANGO_SCALE));
    return description;
}

} // namespace toolkit
