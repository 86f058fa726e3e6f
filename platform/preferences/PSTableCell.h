// A cell of a settings page that draws itself: a row's own cell, or the one at the head of a group.
//
// Its class is named by a specifier's property ("cellClass", "headerCellClass"). A page makes it, whenever
// its rows are reloaded, and gives it its specifier once; whoever shows the page gives it its frame: the
// page's width, and the height that it prefers for that.
#pragma once

#include "platform/preferences/PSSpecifier.h"
#include "platform/toolkit/views/UIView.h"

#include <memory>
#include <string>

namespace preferences {

class PSTableCell : public toolkit::UIView {
    RUNTIME_CLASS()
public:
    /// "initWithStyle:reuseIdentifier:specifier:" and "initWithSpecifier:" in one: called once, right after
    /// the cell was made. Overriders call the base.
    virtual void initWithSpecifier(const std::shared_ptr<PSSpecifier>& specifier);
    /// Points.
    virtual double preferredHeightForWidth(double width) const;

    const std::shared_ptr<PSSpecifier>& specifier() const { return specifier_; }
    int style() const { return style_; }
    const std::string& reuseIdentifier() const { return reuseIdentifier_; }

    static constexpr double defaultHeight = 44; // points

protected:
    void setStyle(int style, std::string reuseIdentifier);

private:
    std::shared_ptr<PSSpecifier> specifier_;
    int style_ = 0;
    std::string reuseIdentifier_;
};

} // namespace preferences
