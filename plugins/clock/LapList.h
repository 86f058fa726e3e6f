// The laps of the stopwatch under each other, the latest on top.
#pragma once

#include "Stopwatch.h"
#include "VelaPlugin.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace clockplugin {

class LapList {
public:
    explicit LapList(vela::plugin::Host& host);
    LapList(const LapList&) = delete;
    LapList& operator=(const LapList&) = delete;

    void setFrame(vela::plugin::Rect frame);
    /// Draws again only the rows that have changed.
    void show(const Stopwatch& stopwatch, double now);

private:
    enum class Mark { None, Fastest, Slowest };
    struct Content {
        std::size_t number = 0;
        std::string time;
        Mark mark = Mark::None;
        friend bool operator==(const Content&, const Content&) = default;
    };
    struct Row {
        Content content;
        std::unique_ptr<vela::plugin::DrawnArea> area;
    };

    static void draw(vela::plugin::Canvas& canvas, vela::plugin::Rect bounds, const Content& content);
    static Content contentOf(const Stopwatch& stopwatch, std::size_t lap, double now);
    void setCount(std::size_t count);
    void place();

    std::unique_ptr<vela::plugin::ScrollArea> list_;
    std::vector<std::unique_ptr<Row>> rows_; // goes before the list that it lies in
};

} // namespace clockplugin
