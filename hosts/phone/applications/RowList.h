// A scrolling list of rows of equal height, however long: only the rows in sight exist.
#pragma once

#include "platform/toolkit/scrolling/UIScrollView.h"
#include "platform/toolkit/views/UIControl.h"

#include <map>

namespace phone {

/// One row: a control that knows which line of the list it shows now.
class ListRow : public toolkit::UIControl {
    RUNTIME_CLASS()
public:
    explicit ListRow(toolkit::Color highlightColor);

    std::size_t index() const { return index_; }
    void setIndex(std::size_t index) { index_ = index; }

protected:
    void highlightChanged() override;

private:
    std::size_t index_ = 0;
    toolkit::Color highlightColor_;
};

class RowList : public toolkit::UIScrollView, private toolkit::ScrollViewDelegate {
    RUNTIME_CLASS()
public:
    struct Content {
        std::function<std::shared_ptr<ListRow>()> make;
        /// Shows what stands in the row's line.
        std::function<void(ListRow&)> show;
        std::function<void(std::size_t)> chosen;
    };

    RowList(double rowHeight, Content content);
    ~RowList() override;

    std::size_t count() const { return count_; }
    /// Shows everything anew.
    void reload(std::size_t count);
    /// Shows the rows in sight anew.
    void refresh();
    /// Brings a row to the middle.
    void scrollToRow(std::size_t index);

    void layoutSubviews() override;

private:
    void scrollViewDidScroll(UIScrollView&) override { placeRows(); }
    void placeRows();
    std::shared_ptr<ListRow> takeRow();

    double rowHeight_;
    Content content_;
    std::size_t count_ = 0;
    std::map<std::size_t, std::shared_ptr<ListRow>> shown_;
    std::vector<std::shared_ptr<ListRow>> spare_;
};

} // namespace phone
