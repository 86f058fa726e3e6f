#include "hosts/phone/applications/RowList.h"

#include <algorithm>
#include <cmath>

using namespace toolkit;

namespace phone {

runtime::Class& ListRow::staticClass() {
    static runtime::Class& cls = runtime::ClassBuilder<ListRow>("ListRow", &UIControl::staticClass()).build();
    return cls;
}

runtime::Class& RowList::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<RowList>("RowList", &UIScrollView::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(ListRow)
RUNTIME_REGISTER_CLASS(RowList)

ListRow::ListRow(Color highlightColor) : highlightColor_(highlightColor) {}

void ListRow::highlightChanged() {
    setBackgroundColor(isHighlighted() ? highlightColor_ : Color::clear());
}

RowList::RowList(double rowHeight, Content content) : rowHeight_(rowHeight), content_(std::move(content)) {
    setDelegate(this);
}

RowList::~RowList() {
    setDelegate(nullptr);
}

void RowList::reload(std::size_t count) {
    count_ = count;
    setContentSize({bounds().width, rowHeight_ * static_cast<double>(count)});
    while (!shown_.empty() && shown_.rbegin()->first >= count) {
        shown_.rbegin()->second->setHidden(true);
        spare_.push_back(shown_.rbegin()->second);
        shown_.erase(std::prev(shown_.end()));
    }
    placeRows();
    refresh();
}

void RowList::refresh() {
    for (const auto& [index, row] : shown_)
        content_.show(*row);
}

void RowList::scrollToRow(std::size_t index) {
    const EdgeInsets inset = contentInset();
    const double visible = bounds().height - inset.top - inset.bottom;
    const double lowest = -inset.top, highest = contentSize().height + inset.bottom - bounds().height;
    const double wanted = (static_cast<double>(index) + 0.5) * rowHeight_ - visible / 2 - inset.top;
    setContentOffsetAnimated({0, std::clamp(wanted, lowest, std::max(lowest, highest))});
}

void RowList::layoutSubviews() {
    setContentSize({bounds().width, rowHeight_ * static_cast<double>(count_)});
    placeRows();
}

std::shared_ptr<ListRow> RowList::takeRow() {
    if (!spare_.empty()) {
        auto row = spare_.back();
        spare_.pop_back();
        row->setHidden(false);
        return row;
    }
    auto row = content_.make();
    row->addHandler(ControlEvent::TouchUpInside, [this, row = row.get()] {
        const auto chosen = content_.chosen;
        chosen(row->index());
    });
    insertSubview(row, 0); // beneath the indicators
    return row;
}

void RowList::placeRows() {
    const Rect area = bounds();
    const auto lineAt = [&](double y) {
        const double line = std::clamp(y / rowHeight_, 0.0, static_cast<double>(count_));
        return static_cast<std::size_t>(line);
    };
    const std::size_t first = lineAt(area.y);
    const std::size_t end = std::min(count_, lineAt(area.y + area.height) + 1);
    for (auto each = shown_.begin(); each != shown_.end();) {
        if (each->first >= first && each->first < end) {
            ++each;
            continue;
        }
        each->second->setHidden(true);
        spare_.push_back(each->second);
        each = shown_.erase(each);
    }
    for (std::size_t line = first; line < end; ++line) {
        auto& row = shown_[line];
        const bool fresh = !row;
        if (fresh)
            row = takeRow();
        row->setIndex(line);
        row->setFrame({0, rowHeight_ * static_cast<double>(line), area.width, rowHeight_});
        if (fresh)
            content_.show(*row);
    }
}

} // namespace phone
