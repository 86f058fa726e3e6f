#include "platform/toolkit/layers/Compositor.h"

#include "platform/toolkit/layers/ContentCache.h"
#include "platform/toolkit/layers/DamageRegion.h"
#include "platform/toolkit/layers/DisplayListBuilder.h"
#include "platform/toolkit/layers/DisplayListChanges.h"
#include "platform/toolkit/layers/FlatPrefix.h"
#include "platform/toolkit/layers/LayerPainter.h"
#include "platform/toolkit/layers/UncutAreas.h"
#include "platform/toolkit/rendering/CairoCanvas.h"

#include <cmath>
#include <iterator>

namespace toolkit {

namespace {

constexpr int longestSide = 16384;

int pixelSide(double points, double scale) {
    const double side = std::round(points * scale);
    return side >= 1 ? static_cast<int>(std::min<double>(side, longestSide)) : 1;
}

/// Whether the item alone decides every pixel of `area`.
bool covers(const DisplayItem& item, const PixelRect& area) {
    const DisplayLook& look = item.look;
    return item.part == DisplayItem::Part::Body && item.groupDepth == 0 && look.isAligned &&
           look.background && look.background->alpha >= 1 && look.opacity >= 1 && look.cornerRadius == 0 &&
           look.shapeClips.empty() && look.clip.contains(area) &&
           PixelRect::around(look.toPixels.apply(look.bounds)).contains(area);
}

void fill(const PixelView& target, const PixelRect& area, Ground ground) {
    const std::uint32_t pixel = ground == Ground::Black ? 0xFF000000u : 0;
    for (int y = area.y; y < area.maxY(); ++y) {
        auto* row = reinterpret_cast<std::uint32_t*>(target.at(area.x, y));
        std::fill_n(row, area.width, pixel);
    }
}

double usableScale(double scale) {
    return scale > 0 && std::isfinite(scale) ? scale : 1;
}

} // namespace

struct Compositor::State {
    explicit State(Ground newGround) : ground(newGround) {}

    const Ground ground;
    int width = 0;
    int height = 0;
    double scale = 0;
    std::vector<std::uint8_t> pixels;
    std::vector<DisplayItem> items; // of the frame being composed, then of the last one
    std::vector<DisplayItem> previous;
    std::vector<DisplayItem> next;                         // being built
    std::unordered_map<std::uint64_t, Backdrop> backdrops; // by layer
    ContentCache contents;
    FlatPrefix prefix;
    std::uint64_t paintedFrames = 0;

    PixelView view() { return {pixels.data(), width, height, width * 4}; }
    void resize(int newWidth, int newHeight, double newScale);
    void damageBackdrops(DisplayListChanges& changes);
    DamageRegion damageOf(const DisplayListChanges& changes);
    void paint(const PixelView& target, std::size_t begin, std::size_t end, const PixelRect& damage);
    void paintDamage(const PixelRect& damage);
};

void Compositor::State::resize(int newWidth, int newHeight, double newScale) {
    width = newWidth;
    height = newHeight;
    scale = newScale;
    pixels.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4, 0);
    fill(view(), view().rect(), ground);
    previous.clear();
    items.clear();
    backdrops.clear();
    contents.clear();
    prefix.reset(width, height);
}

/// A backdrop beneath which anything changed is to be taken again, for which all of it has to be painted.
void Compositor::State::damageBackdrops(DisplayListChanges& changes) {
    std::unordered_map<std::uint64_t, Backdrop> kept;
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (items[i].part != DisplayItem::Part::Body || !items[i].look.backdrop)
            continue;
        const auto order = static_cast<std::ptrdiff_t>(i);
        const auto found = backdrops.find(items[i].layerId);
        bool stands = found != backdrops.end() && !changes.isChanged[i];
        for (std::size_t c = 0; stands && c < changes.changes.size(); ++c)
            stands =
                changes.changes[c].order >= order || !changes.changes[c].rect.intersects(items[i].extents);
        if (stands)
            kept.insert(std::move(*found));
        else
            changes.changes.push_back({items[i].extents, order});
    }
    backdrops = std::move(kept);
}

DamageRegion Compositor::State::damageOf(const DisplayListChanges& changes) {
    DamageRegion region(view().rect());
    for (const DisplayChange& change : changes.changes)
        region.add(change.rect);
    std::vector<PixelRect> uncut;
    for (const DisplayItem& item : items)
        std::ranges::copy(uncutAreas(item), std::back_inserter(uncut));
    for (std::size_t i = 0; i < uncut.size();) {
        if (region.cuts(uncut[i])) {
            region.add(uncut[i]);
            i = 0; // what has grown may now cut others
        } else {
            ++i;
        }
    }
    return region;
}

void Compositor::State::paint(const PixelView& target, std::size_t begin, std::size_t end,
                              const PixelRect& damage) {
    // The canvas counts in pixels; its scale still says how wide a point is, which the width of blurs depends
    // on.
    CairoCanvas canvas(target, scale);
    canvas.concat(AffineTransform::scale(1 / scale, 1 / scale));
    canvas.clipRect(damage.rect());
    LayerPainter painter(contents, scale);
    painter.setBackdropDrawer([this, &canvas](Canvas&, const DisplayItem& item) {
        auto found = backdrops.find(item.layerId);
        if (found == backdrops.end())
            found = backdrops.emplace(item.layerId, canvas.captureBackdrop(item.extents, *item.look.backdrop))
                        .first;
        canvas.drawBackdrop(found->second, item.look.bounds, item.look.cornerRadius);
    });
    painter.paint(items, begin, end, damage, canvas);
}

void Compositor::State::paintDamage(const PixelRect& damage) {
    std::size_t begin = prefix.itemCount();
    bool covered = false;
    for (std::size_t i = items.size(); i > begin && !covered; --i)
        if (covers(items[i - 1], damage)) {
            begin = i - 1;
            covered = true;
        }
    if (!covered && prefix.itemCount() > 0)
        prefix.copyTo(view(), damage);
    else if (!covered)
        fill(view(), damage, ground);
    paint(view(), begin, items.size(), damage);
}

Compositor::Compositor(Ground ground) : state_(std::make_unique<State>(ground)) {}

Compositor::~Compositor() = default;

double Compositor::Frame::paintedPixels() const {
    double sum = 0;
    for (const Rect& rect : damage)
        sum += rect.width * rect.height;
    return sum;
}

Compositor::Frame Compositor::compose(const std::vector<std::shared_ptr<Layer>>& roots, Size size,
                                      double scale) {
    scale = usableScale(scale);
    DisplayListBuilder(pixelsOf(size, scale), scale).build(roots, state_->next);
    std::vector<std::uint64_t> rootIds;
    for (const auto& root : roots)
        rootIds.push_back(root ? root->id() : 0);
    return composeList(state_->next, &rootIds, size, scale);
}

PixelRect Compositor::pixelsOf(Size size, double scale) {
    scale = usableScale(scale);
    return {0, 0, pixelSide(size.width, scale), pixelSide(size.height, scale)};
}

Compositor::Frame Compositor::composeItems(std::vector<DisplayItem>& items, Size size, double scale) {
    return composeList(items, nullptr, size, usableScale(scale));
}

Compositor::Frame Compositor::composeList(std::vector<DisplayItem>& items,
                                          const std::vector<std::uint64_t>* rootIds, Size size,
                                          double scale) {
    State& state = *state_;
    const PixelRect whole = pixelsOf(size, scale);
    const bool fresh = whole != state.view().rect() || scale != state.scale;
    if (fresh)
        state.resize(whole.width, whole.height, scale);
    std::swap(state.items, state.previous);
    std::swap(state.items, items);
    DisplayListChanges changes = compareDisplayLists(state.previous, state.items);
    state.damageBackdrops(changes);
    DamageRegion damage = state.damageOf(changes);
    if (fresh)
        damage.add(whole);
    Frame frame;
    if (damage.isEmpty())
        return frame;

    if (rootIds)
        state.prefix.update(*rootIds, state.items, changes,
                            [&state](const PixelView& target, std::size_t begin, std::size_t end) {
                                state.paint(target, begin, end, target.rect());
                            });
    for (const PixelRect& rect : damage.rects()) {
        state.paintDamage(rect);
        frame.damage.push_back(rect.rect());
    }
    state.contents.trim();
    ++state.paintedFrames;
    return frame;
}

const std::uint8_t* Compositor::pixels() const {
    return state_->pixels.data();
}
int Compositor::pixelWidth() const {
    return state_->width;
}
int Compositor::pixelHeight() const {
    return state_->height;
}
int Compositor::bytesPerRow() const {
    return state_->width * 4;
}

std::shared_ptr<const Image> Compositor::image() const {
    if (state_->pixels.empty())
        return nullptr;
    return std::make_shared<const Image>(state_->width, state_->height, state_->width * 4, state_->pixels,
                                         state_->scale);
}

std::uint64_t Compositor::paintedFrames() const {
    return state_->paintedFrames;
}

} // namespace toolkit
