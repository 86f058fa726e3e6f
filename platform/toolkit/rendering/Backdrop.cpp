#include "platform/toolkit/rendering/Backdrop.h"

#include <cstring>

namespace toolkit {

namespace {

// Three box passes of nine cells come close to a Gaussian blur with a standard deviation of 18 points.
constexpr int boxReach = 4;
constexpr int boxPasses = 3;
constexpr double pointsPerCell = 4;
// Interpolation weights are sixteenths, which keeps a weighted 8.4 colour within 16 bits.
constexpr int weightOne = 16;

struct Glass {
    double saturation;
    double tintOpacity;
    double tint[3]; // blue, green, red
};

constexpr Glass darkGlass{1.6, 0.72, {0.115, 0.11, 0.11}};
constexpr Glass lightGlass{1.6, 0.66, {0.97, 0.97, 0.97}};

int floorDivide(int value, int divisor) {
    return value >= 0 ? value / divisor : -((-value + divisor - 1) / divisor);
}

/// Where a cell takes its colour from: one cell's width of pixels, moved inwards at the edges, so that no
/// thin strip of pixels there decides a whole cell.
struct Window {
    int from;
    int to;
};

Window windowOf(int cellIndex, int cell, int from, int to) {
    int start = std::max(cellIndex * cell, from), end = std::min((cellIndex + 1) * cell, to);
    if (end - start < cell) {
        start = std::max(from, std::min(start, end - cell));
        end = std::min(to, std::max(end, start + cell));
    }
    return {start, end};
}

void addRow(std::uint16_t* __restrict sums, const std::uint8_t* __restrict row, int count) {
    for (int i = 0; i < count; ++i)
        sums[i] = static_cast<std::uint16_t>(sums[i] + row[i]);
}

/// One row of the picture: two expanded grid rows mixed.
void mixRows(std::uint8_t* __restrict out, const std::uint16_t* __restrict upper,
             const std::uint16_t* __restrict lower, int count, int weight) {
    const auto lowerWeight = static_cast<std::uint16_t>(weight);
    const auto upperWeight = static_cast<std::uint16_t>(weightOne - weight);
    for (int i = 0; i < count; ++i) {
        const auto mixed = static_cast<std::uint16_t>(upper[i] * upperWeight + lower[i] * lowerWeight + 128);
        out[i] = static_cast<std::uint8_t>(mixed >> 8);
    }
}

/// Where a pixel lies between the middles of two cells of a grid.
struct Between {
    int first;
    int second;
    int weight; // of the second, in sixteenths
};

Between between(int pixel, int cell, int firstCell, int cells) {
    // In halves of a pixel, the pixel's middle less the middle of cell 0.
    const int distance = 2 * pixel + 1 - cell;
    const int index = floorDivide(distance, 2 * cell);
    const int rest = distance - index * 2 * cell;
    const int weight = (rest * weightOne + cell) / (2 * cell);
    const int local = index - firstCell;
    return {std::clamp(local, 0, cells - 1), std::clamp(local + 1, 0, cells - 1), weight};
}

/// How much of a pixel a rounded rectangle covers, from 0 to 255; exact enough for an edge of one pixel.
int coverage(int x, int y, const PixelRect& shape, double radius) {
    const double px = x + 0.5, py = y + 0.5;
    const double dx = std::max({shape.x + radius - px, px - (shape.maxX() - radius), 0.0});
    const double dy = std::max({shape.y + radius - py, py - (shape.maxY() - radius), 0.0});
    if (dx == 0 || dy == 0)
        return 255;
    return static_cast<int>(std::clamp(radius - std::hypot(dx, dy) + 0.5, 0.0, 1.0) * 255 + 0.5);
}

/// Replaces one row by the glass as far as the rounded rectangle covers each pixel.
void layCovered(std::uint8_t* out, const std::uint8_t* glass, int left, int y, int width,
                const PixelRect& shape, double radius) {
    for (int x = 0; x < width; ++x) {
        const int covered = coverage(left + x, y, shape, radius);
        for (int i = x * 4; i < x * 4 + 4; ++i)
            out[i] = static_cast<std::uint8_t>((out[i] * (255 - covered) + glass[i] * covered + 127) / 255);
    }
}

/// Grid rows stretched to the width of what is drawn, in 8.4 fixed point. Two neighbours are kept, which is
/// what the rows of a picture are mixed from, one after the other.
class StretchedRows {
public:
    StretchedRows(const std::vector<std::uint16_t>& colors, int columns, std::vector<Between> across)
        : colors_(colors), columns_(columns), across_(std::move(across)) {
        for (auto& row : rows_)
            row.resize(across_.size() * 4);
    }
    const std::uint16_t* row(int index) {
        const int place = index & 1;
        if (held_[place] != index)
            stretch(index, rows_[place].data());
        held_[place] = index;
        return rows_[place].data();
    }

private:
    void stretch(int index, std::uint16_t* out) const {
        const std::uint16_t* line = colors_.data() + static_cast<std::ptrdiff_t>(index) * columns_ * 4;
        for (const Between& b : across_) {
            const std::uint16_t *first = line + b.first * 4, *second = line + b.second * 4;
            for (int channel = 0; channel < 4; ++channel)
                *out++ = static_cast<std::uint16_t>(
                    (first[channel] * (weightOne - b.weight) + second[channel] * b.weight) >> 8);
        }
    }

    const std::vector<std::uint16_t>& colors_;
    int columns_;
    std::vector<Between> across_;
    std::vector<std::uint16_t> rows_[2];
    int held_[2] = {-1, -1};
};

} // namespace

Backdrop::Backdrop(std::span<const PixelView> targets, PixelRect rect, double pixelsPerPoint,
                   BackdropStyle style) {
    if (!targets.empty())
        rect = rect.intersection(targets.front().rect());
    if (targets.empty() || rect.isEmpty())
        return;
    rect_ = rect;
    // A row of up to 32 sums of 255 stays far below what 16 bits hold.
    cell_ = std::clamp(static_cast<int>(std::lround(pointsPerCell * pixelsPerPoint)), 2, 32);
    columns_ = floorDivide(rect.maxX() - 1, cell_) - floorDivide(rect.x, cell_) + 1;
    rows_ = floorDivide(rect.maxY() - 1, cell_) - floorDivide(rect.y, cell_) + 1;
    colors_.assign(static_cast<std::size_t>(columns_) * static_cast<std::size_t>(rows_) * 4, 0);
    for (const PixelView& target : targets)
        sample(target);
    for (int pass = 0; pass < boxPasses; ++pass) {
        blurRows();
        blurColumns();
    }
    tint(style);
}

int Backdrop::firstCell(int coordinate) const {
    return floorDivide(coordinate, cell_);
}

void Backdrop::sample(const PixelView& target) {
    const PixelRect area = rect_.intersection(target.rect());
    if (area.isEmpty())
        return;
    std::vector<std::uint16_t> sums(static_cast<std::size_t>(area.width) * 4);
    const int firstColumn = firstCell(rect_.x), firstRow = firstCell(rect_.y);
    const int left = firstCell(area.x), right = firstCell(area.maxX() - 1);
    for (int row = firstCell(area.y); row <= firstCell(area.maxY() - 1); ++row) {
        const Window vertical = windowOf(row, cell_, area.y, area.maxY());
        std::fill(sums.begin(), sums.end(), std::uint16_t{0});
        for (int y = vertical.from; y < vertical.to; ++y)
            addRow(sums.data(), target.at(area.x, y), area.width * 4);
        std::uint16_t* out =
            colors_.data() +
            (static_cast<std::ptrdiff_t>(row - firstRow) * columns_ + left - firstColumn) * 4;
        for (int column = left; column <= right; ++column, out += 4) {
            const Window horizontal = windowOf(column, cell_, area.x, area.maxX());
            unsigned total[4] = {};
            const std::uint16_t* in = sums.data() + static_cast<std::ptrdiff_t>(horizontal.from - area.x) * 4;
            for (int x = horizontal.from; x < horizontal.to; ++x, in += 4)
                for (int channel = 0; channel < 4; ++channel)
                    total[channel] += in[channel];
            // The window is what the cell shows; where the target ends within the cell, it covers less of it.
            const auto pixels =
                static_cast<unsigned>((vertical.to - vertical.from) * (horizontal.to - horizontal.from));
            const unsigned alpha = total[3] * 256u / pixels;
            const unsigned beneath = 65280u - std::min(alpha, 65280u);
            for (int channel = 0; channel < 4; ++channel)
                out[channel] = static_cast<std::uint16_t>(
                    std::min(65280u, total[channel] * 256u / pixels + out[channel] * beneath / 65280u));
        }
    }
}

void Backdrop::blurRows() {
    std::vector<std::uint16_t> source(static_cast<std::size_t>(columns_) * 4);
    constexpr int size = 2 * boxReach + 1;
    for (int row = 0; row < rows_; ++row) {
        std::uint16_t* line = colors_.data() + static_cast<std::ptrdiff_t>(row) * columns_ * 4;
        std::copy_n(line, source.size(), source.data());
        const auto at = [&](int column, int channel) {
            return static_cast<int>(
                source[static_cast<std::size_t>(std::clamp(column, 0, columns_ - 1) * 4 + channel)]);
        };
        int sums[4];
        for (int channel = 0; channel < 4; ++channel) {
            sums[channel] = size / 2;
            for (int i = -boxReach; i <= boxReach; ++i)
                sums[channel] += at(i, channel);
        }
        for (int column = 0; column < columns_; ++column)
            for (int channel = 0; channel < 4; ++channel) {
                line[column * 4 + channel] = static_cast<std::uint16_t>(sums[channel] / size);
                sums[channel] += at(column + boxReach + 1, channel) - at(column - boxReach, channel);
            }
    }
}

void Backdrop::blurColumns() {
    const std::vector<std::uint16_t> source = colors_;
    constexpr int size = 2 * boxReach + 1;
    const std::size_t width = static_cast<std::size_t>(columns_) * 4;
    const auto line = [&](int row) {
        return source.data() + static_cast<std::size_t>(std::clamp(row, 0, rows_ - 1)) * width;
    };
    std::vector<int> sums(width, size / 2);
    for (int i = -boxReach; i <= boxReach; ++i)
        for (std::size_t x = 0; x < width; ++x)
            sums[x] += line(i)[x];
    for (int row = 0; row < rows_; ++row) {
        std::uint16_t* out = colors_.data() + static_cast<std::size_t>(row) * width;
        const std::uint16_t* entering = line(row + boxReach + 1);
        const std::uint16_t* leaving = line(row - boxReach);
        for (std::size_t x = 0; x < width; ++x) {
            out[x] = static_cast<std::uint16_t>(sums[x] / size);
            sums[x] += entering[x] - leaving[x];
        }
    }
}

void Backdrop::tint(BackdropStyle style) {
    const Glass& glass = style == BackdropStyle::Dark ? darkGlass : lightGlass;
    constexpr double one = 65280;
    for (std::size_t i = 0; i < colors_.size(); i += 4) {
        std::uint16_t* color = colors_.data() + i;
        const double luminance = 0.0722 * color[0] + 0.7152 * color[1] + 0.2126 * color[2];
        for (int channel = 0; channel < 3; ++channel) {
            const double saturated = luminance + (color[channel] - luminance) * glass.saturation;
            const double bounded = std::clamp(saturated, 0.0, static_cast<double>(color[3]));
            color[channel] = static_cast<std::uint16_t>(bounded * (1 - glass.tintOpacity) +
                                                        one * glass.tint[channel] * glass.tintOpacity + 0.5);
        }
        color[3] =
            static_cast<std::uint16_t>(color[3] * (1 - glass.tintOpacity) + one * glass.tintOpacity + 0.5);
    }
}

void Backdrop::draw(const PixelView& target, PixelRect clip, PixelRect shape, double cornerRadius) const {
    clip = clip.intersection(rect_).intersection(target.rect());
    if (clip.isEmpty() || isEmpty())
        return;
    const double radius = std::min(cornerRadius, std::min(shape.width, shape.height) / 2.0);
    const int count = clip.width * 4;
    std::vector<Between> across(static_cast<std::size_t>(clip.width));
    for (int x = 0; x < clip.width; ++x)
        across[static_cast<std::size_t>(x)] = between(clip.x + x, cell_, firstCell(rect_.x), columns_);
    StretchedRows rows(colors_, columns_, std::move(across));
    std::vector<std::uint8_t> glass(static_cast<std::size_t>(count));
    for (int y = clip.y; y < clip.maxY(); ++y) {
        const Between down = between(y, cell_, firstCell(rect_.y), rows_);
        const std::uint16_t* upper = rows.row(down.first);
        const std::uint16_t* lower = rows.row(down.second);
        const bool inCorners = radius > 0 && (y < shape.y + radius || y + 1 > shape.maxY() - radius);
        std::uint8_t* out = target.at(clip.x, y);
        mixRows(inCorners ? glass.data() : out, upper, lower, count, down.weight);
        if (inCorners)
            layCovered(out, glass.data(), clip.x, y, clip.width, shape, radius);
    }
}

} // namespace toolkit
