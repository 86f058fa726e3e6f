// The settings application's page: what this phone is.
#pragma once

#include "hosts/phone/applications/NavigationBar.h"
#include "platform/toolkit/scrolling/UIScrollView.h"

namespace phone {

class SettingsView : public toolkit::UIView {
    RUNTIME_CLASS()
public:
    SettingsView();

    /// Reads the values anew.
    void refresh();

    void layoutSubviews() override;

private:
    class Row;
    struct Group {
        std::shared_ptr<toolkit::UILabel> header;
        std::shared_ptr<toolkit::UIView> card;
        std::vector<std::shared_ptr<Row>> rows;
    };
    void addGroup(const std::string& header, const std::vector<std::string>& names);
    void setValue(std::size_t group, std::size_t row, const std::string& value);

    std::shared_ptr<NavigationBar> bar_;
    std::shared_ptr<toolkit::UIScrollView> page_;
    std::vector<Group> groups_;
};

} // namespace phone
