#include "hosts/settings/window/DocumentView.h"

#include "hosts/settings/window/Accessibility.h"
#include "hosts/settings/window/Attached.h"
#include "hosts/settings/window/Measures.h"
#include "hosts/settings/window/Text.h"

#include <adwaita.h>

#include <algorithm>

namespace settings {

namespace {

using web::HTMLBlock;

constexpr int blockGap = 10;
constexpr int listIndent = 22;
constexpr double headingScales[] = {1.7, 1.35, 1.15};

const char* styleTag(HTMLBlock::Style style) {
    switch (style) {
    case HTMLBlock::Style::Strong:
        return "strong";
    case HTMLBlock::Style::Emphasis:
        return "emphasis";
    case HTMLBlock::Style::Code:
        return "code";
    case HTMLBlock::Style::Plain:
        break;
    }
    return "plain";
}

GtkWidget* newReader() {
    GtkWidget* reader = gtk_text_view_new();
    gtk_text_view_set_editable(GTK_TEXT_VIEW(reader), FALSE);
    gtk_text_view_set_cursor_visible(GTK_TEXT_VIEW(reader), FALSE);
    gtk_text_view_set_wrap_mode(GTK_TEXT_VIEW(reader), GTK_WRAP_WORD_CHAR);
    gtk_text_view_set_pixels_below_lines(GTK_TEXT_VIEW(reader), 2);
    gtk_text_view_set_left_margin(GTK_TEXT_VIEW(reader), columnMargin);
    gtk_text_view_set_right_margin(GTK_TEXT_VIEW(reader), columnMargin);
    gtk_text_view_set_top_margin(GTK_TEXT_VIEW(reader), columnMargin);
    gtk_text_view_set_bottom_margin(GTK_TEXT_VIEW(reader), columnMargin);
    gtk_widget_add_css_class(reader, "document");
    setAccessibleName(reader, "Document");
    return reader;
}

} // namespace

DocumentView& DocumentView::make(const std::string& address) {
    GtkWidget* scroller = gtk_scrolled_window_new();
    return attach<DocumentView>(scroller, scroller, address);
}

DocumentView::DocumentView(GtkWidget* scroller, const std::string& address) : scroller_(scroller) {
    GtkWidget* reader = newReader();
    buffer_ = gtk_text_view_get_buffer(GTK_TEXT_VIEW(reader));
    addTags();
    GtkWidget* clamp = adw_clamp_scrollable_new();
    adw_clamp_scrollable_set_maximum_size(ADW_CLAMP_SCROLLABLE(clamp), widestColumn);
    adw_clamp_scrollable_set_child(ADW_CLAMP_SCROLLABLE(clamp), reader);
    gtk_scrolled_window_set_policy(GTK_SCROLLED_WINDOW(scroller_), GTK_POLICY_NEVER, GTK_POLICY_AUTOMATIC);
    gtk_scrolled_window_set_child(GTK_SCROLLED_WINDOW(scroller_), clamp);
    gtk_widget_set_focusable(scroller_, FALSE);
    loader_.load(address, [this, address](const auto& blocks) { show(blocks, address); });
}

void DocumentView::addTags() {
    gtk_text_buffer_create_tag(buffer_, "plain", nullptr, nullptr);
    gtk_text_buffer_create_tag(buffer_, "strong", "weight", PANGO_WEIGHT_BOLD, nullptr);
    gtk_text_buffer_create_tag(buffer_, "emphasis", "style", PANGO_STYLE_ITALIC, nullptr);
    gtk_text_buffer_create_tag(buffer_, "code", "family", "monospace", "scale", 0.92, nullptr);
    gtk_text_buffer_create_tag(buffer_, "block", "pixels-above-lines", blockGap, nullptr);
    int level = 1;
    for (const double scale : headingScales)
        gtk_text_buffer_create_tag(buffer_, ("heading" + std::to_string(level++)).c_str(), "weight",
                                   PANGO_WEIGHT_BOLD, "scale", scale, "pixels-above-lines", 2 * blockGap,
                                   nullptr);
    for (level = 1; level <= 3; ++level)
        gtk_text_buffer_create_tag(buffer_, ("item" + std::to_string(level)).c_str(), "left-margin",
                                   columnMargin + level * listIndent, "indent", -listIndent / 2, nullptr);
}

void DocumentView::show(const std::optional<std::vector<HTMLBlock>>& blocks, const std::string& address) {
    if (!blocks || blocks->empty())
        gtk_text_buffer_set_text(buffer_, displayed(address).c_str(), -1);
    else
        for (const HTMLBlock& block : *blocks)
            append(block);
    GtkTextIter begin;
    gtk_text_buffer_get_start_iter(buffer_, &begin);
    gtk_text_buffer_place_cursor(buffer_, &begin);
}

void DocumentView::append(const HTMLBlock& block) {
    GtkTextIter end, begin;
    gtk_text_buffer_get_end_iter(buffer_, &end);
    const int start = gtk_text_iter_get_offset(&end);
    if (block.kind == HTMLBlock::Kind::ListItem)
        gtk_text_buffer_insert(buffer_, &end, "• ", -1);
    for (const HTMLBlock::Run& run : block.runs)
        gtk_text_buffer_insert_with_tags_by_name(buffer_, &end, displayed(run.text).c_str(), -1,
                                                 styleTag(run.style), nullptr);
    gtk_text_buffer_insert(buffer_, &end, "\n", -1);
    gtk_text_buffer_get_iter_at_offset(buffer_, &begin, start);
    const std::string level = std::to_string(std::clamp(block.level, 1, 3));
    const std::string tag = block.kind == HTMLBlock::Kind::Heading    ? "heading" + level
                            : block.kind == HTMLBlock::Kind::ListItem ? "item" + level
                                                                      : "block";
    gtk_text_buffer_apply_tag_by_name(buffer_, tag.c_str(), &begin, &end);
}

} // namespace settings
