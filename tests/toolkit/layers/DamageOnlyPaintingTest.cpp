// Pairs of renderings: whatever changes, a compositor that paints only the damage shows the same picture as
// one that starts afresh.
#include "platform/toolkit/layers/Compositor.h"
#include "platform/toolkit/text/TextLayout.h"
#include "tests/support/ToolkitTest.h"
#include "tests/toolkit/layers/LayerScene.h"
#include "tests/toolkit/rendering/PixelTesting.h"

#include <cmath>
#include <random>

namespace toolkit {
namespace {

enum class Movements { Upright, Any };

struct Circumstances {
    double scale;
    Movements movements;
    unsigned seed;
};

void PrintTo(const Circumstances& circumstances, std::ostream* stream) {
    *stream << "scale " << circumstances.scale << ", seed " << circumstances.seed;
}

class DamageOnlyPainting : public support::ToolkitTest, public testing::WithParamInterface<Circumstances> {
protected:
    static constexpr Size screen{120, 160};

    DamageOnlyPainting()
        : random(GetParam().seed), stripes([](Canvas& canvas, Rect bounds) {
              for (double x = bounds.x; x < bounds.maxX(); x += 4)
                  canvas.fillRect({x, bounds.y, 2, bounds.height}, Color::rgba(0.1, 0.8, 0.5));
          }) {
        setFontDirectory(VELA_SOURCE_DIR "/resources/fonts", true);
        picture = Image::draw({37, 23}, 1, [](Canvas& canvas) {
            canvas.fillLinearGradient({0, 0, 37, 23}, {0, 0}, {37, 23},
                                      {{0, red()}, {1, Color::rgba(0, 0, 1, 0.4)}});
        });
        for (int i = 0; i < 5; ++i)
            roots.push_back(newLayer());
        for (int i = 0; i < 25; ++i)
            anyLayer()->addSublayer(newLayer());
    }
    ~DamageOnlyPainting() override {
        for (const auto& layer : layers)
            layer->setDelegate(nullptr);
    }

    double number(double from, double to) { return std::uniform_real_distribution<double>(from, to)(random); }
    int choice(int count) { return std::uniform_int_distribution<int>(0, count - 1)(random); }
    Color color() {
        return Color::rgba(number(0, 1), number(0, 1), number(0, 1), choice(2) ? 1 : number(0.2, 1));
    }
    Rect frame() { return {number(-30, 110), number(-30, 150), number(0, 90), number(0, 90)}; }

    std::shared_ptr<Layer> newLayer() {
        auto layer = choice(5) ? std::make_shared<Layer>() : std::make_shared<BarLayer>();
        layer->setAnchorPoint({number(0, 1), 0.5});
        layers.push_back(layer);
        change(*layer, 0);
        change(*layer, 2);
        if (choice(2))
            changeLook(*layer);
        return layer;
    }
    std::shared_ptr<Layer> anyLayer() {
        return layers[static_cast<std::size_t>(choice(static_cast<int>(layers.size())))];
    }
    bool isAbove(const Layer* layer, const Layer& other) {
        for (; layer; layer = layer->superlayer())
            if (layer == &other)
                return true;
        return false;
    }

    void change(Layer& layer, int kind) {
        switch (kind) {
        case 0: {
            const Rect to = frame();
            layer.setBounds({layer.bounds().origin(), to.size()});
            layer.setPosition(to.origin());
            break;
        }
        case 1:
            layer.setPosition({layer.position().x + number(-3, 3), layer.position().y + number(-3, 3)});
            break;
        case 2:
            layer.setBackgroundColor(choice(3) ? std::optional(color()) : std::nullopt);
            break;
        case 3:
            layer.setOpacity(choice(3) ? 1 : number(-0.1, 1.1));
            break;
        case 4:
            layer.setHidden(!choice(4));
            break;
        case 5:
            layer.setBounds({{number(-5, 5), number(-5, 5)}, layer.bounds().size()});
            break;
        case 6:
            if (GetParam().movements == Movements::Any)
                layer.setTransform(choice(2)
                                       ? AffineTransform()
                                       : AffineTransform::rotation(number(-3, 3))
                                             .then(AffineTransform::scale(number(0.5, 2), number(0.5, 2))));
            break;
        case 7:
            moveInTree(layer);
            break;
        default:
            changeLook(layer);
        }
    }
    void changeLook(Layer& layer) {
        switch (choice(10)) {
        case 0:
            return layer.setCornerRadius(choice(2) ? 0 : number(0, 20));
        case 1:
            return layer.setMasksToBounds(choice(2));
        case 2:
            return layer.setBorder(choice(2) ? 0 : number(0, 4), color());
        case 3:
            return layer.setShadow(
                {color(), choice(2) ? 0 : number(0, 1), number(0, 6), {number(-4, 4), number(-4, 4)}});
        case 4:
            return layer.setBackdrop(
                choice(2) ? std::optional(choice(2) ? BackdropStyle::Dark : BackdropStyle::Light)
                          : std::nullopt);
        case 5:
            return layer.setGroupBlend(static_cast<GroupBlend>(choice(3)));
        case 6:
            return layer.setContents(choice(2) ? picture : nullptr);
        case 7:
            return layer.setContentGravity(static_cast<ContentGravity>(choice(4)));
        case 8:
            return layer.setDelegate(choice(2) ? &stripes : nullptr);
        default:
            return layer.setMask(
                choice(2) ? std::nullopt
                          : std::optional(GradientMask{
                                {0, 0, number(10, 90), number(10, 90)},
                                {number(-9, 9), number(-9, 9)},
                                {0.5, 0},
                                {0.5, 1},
                                {{0, Color::clear()}, {0.3, Color::black()}, {1, Color::black()}}}));
        }
    }
    void moveInTree(Layer& layer) {
        for (std::size_t i = 0; i < roots.size(); ++i)
            if (roots[i].get() == &layer)
                return std::swap(roots[i],
                                 roots[static_cast<std::size_t>(choice(static_cast<int>(roots.size())))]);
        const auto parent = anyLayer();
        if (!isAbove(parent.get(), layer))
            parent->insertSublayer(layer.shared_from_this(), static_cast<std::size_t>(choice(5)));
    }

    /// The largest difference of any byte of the two pictures.
    int difference(const Compositor& a, const Compositor& b) {
        const std::size_t size =
            static_cast<std::size_t>(a.bytesPerRow()) * static_cast<std::size_t>(a.pixelHeight());
        int largest = 0;
        for (std::size_t i = 0; i < size; ++i)
            largest = std::max(largest, std::abs(a.pixels()[i] - b.pixels()[i]));
        return largest;
    }

    /// The painting library steps through turned pictures in 1/65536 of a pixel from the left edge of what it
    /// paints, so where that begins decides the last bit of a byte.
    int allowedDifference() const { return GetParam().movements == Movements::Any ? 2 : 0; }

    std::mt19937 random;
    DrawnContent stripes;
    std::shared_ptr<const Image> picture;
    std::vector<std::shared_ptr<Layer>> layers;
    std::vector<std::shared_ptr<Layer>> roots;
};

TEST_P(DamageOnlyPainting, ShowsTheSameAsPaintingEverythingAfresh) {
    Compositor compositor;
    double painted = 0, whole = 0;
    for (int frame = 0; frame < 60; ++frame) {
        const int changes = choice(4);
        for (int i = 0; i < changes; ++i)
            change(*anyLayer(), choice(12));
        painted += compositor.compose(roots, screen, GetParam().scale).paintedPixels();
        Compositor afresh;
        whole += afresh.compose(roots, screen, GetParam().scale).paintedPixels();
        ASSERT_LE(difference(compositor, afresh), allowedDifference()) << "frame " << frame;
    }
    EXPECT_LT(painted, whole);
}

/// A scene in which mostly one tree moves, so that the others are kept as one flat picture.
TEST_P(DamageOnlyPainting, ShowsTheSameWhileTheTreesBehindStandStill) {
    Compositor compositor;
    for (int frame = 0; frame < 60; ++frame) {
        change(*roots.back(), 1);
        if (frame % 20 == 19)
            change(*roots.front(), choice(12));
        compositor.compose(roots, screen, GetParam().scale);
        Compositor afresh;
        afresh.compose(roots, screen, GetParam().scale);
        ASSERT_LE(difference(compositor, afresh), allowedDifference()) << "frame " << frame;
    }
}

std::string nameOf(const testing::TestParamInfo<Circumstances>& info) {
    return (info.param.movements == Movements::Any ? "Any" : "Upright") + std::to_string(info.index);
}

INSTANTIATE_TEST_SUITE_P(
    AtEveryScale, DamageOnlyPainting,
    testing::Values(Circumstances{1, Movements::Upright, 1}, Circumstances{2, Movements::Upright, 2},
                    Circumstances{3, Movements::Upright, 3}, Circumstances{1.5, Movements::Upright, 4},
                    Circumstances{2, Movements::Upright, 5}, Circumstances{1, Movements::Any, 6},
                    Circumstances{2, Movements::Any, 7}, Circumstances{3, Movements::Any, 8}),
    nameOf);

} // namespace
} // namespace toolkit
