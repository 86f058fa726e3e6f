// The photo library: a grid of pictures, and the one that was tapped over the whole screen.
#pragma once

#include "hosts/phone/applications/NavigationBar.h"
#include "hosts/phone/applications/PhotoGrid.h"
#include "hosts/phone/applications/PhotoViewer.h"

namespace phone {

class PhotosView : public toolkit::UIView {
    RUNTIME_CLASS()
public:
    PhotosView();

    void layoutSubviews() override;

private:
    void open(int number, toolkit::Rect from);
    void close();

    std::shared_ptr<PhotoGrid> grid_;
    std::shared_ptr<PhotoViewer> viewer_;
    std::shared_ptr<NavigationBar> bar_;
};

} // namespace phone
