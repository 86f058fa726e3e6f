#include "hosts/phone/applications/PhotosView.h"

#include "hosts/phone/artwork/PhotoArtwork.h"

using namespace toolkit;

namespace phone {

namespace {

constexpr int photoCount = 40;
constexpr double openDuration = 0.3; // seconds
const Color tint = Color::rgba(0.0, 0.46, 0.95);

} // namespace

runtime::Class& PhotosView::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<PhotosView>("PhotosView", &UIView::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(PhotosView)

PhotosView::PhotosView()
    : grid_(std::make_shared<PhotoGrid>(photoCount, [this](int number, Rect from) { open(number, from); })),
      viewer_(std::make_shared<PhotoViewer>(photoCount,
                                            [this](int number) { bar_->setTitle(photoTitle(number)); })),
      bar_(std::make_shared<NavigationBar>("Moments", NavigationBarStyle::Light, tint)) {
    setBackgroundColor(Color::white(1));
    viewer_->setHidden(true);
    addSubview(grid_);
    addSubview(viewer_);
    addSubview(bar_);
}

void PhotosView::layoutSubviews() {
    const Size size = bounds().size();
    const double top = NavigationBar::heightFor(size);
    bar_->setFrame({0, 0, size.width, top});
    for (const std::shared_ptr<UIView>& page :
         {std::shared_ptr<UIView>(grid_), std::shared_ptr<UIView>(viewer_)}) {
        const Point offset = page->bounds().origin();
        page->setBounds({offset, {size.width, size.height - top}});
        page->setCenter({size.width / 2, top + (size.height - top) / 2});
    }
}

void PhotosView::open(int number, Rect from) {
    viewer_->setHidden(false);
    viewer_->setTransform({});
    viewer_->show(number);
    viewer_->layoutIfNeeded();
    bar_->setLeftButton("‹ Moments", [this] { close(); });
    const Rect local = convertRectTo(bounds(), nullptr);
    const double scale = from.width / viewer_->bounds().width;
    const Point middle = viewer_->center();
    viewer_->setTransform(AffineTransform::scale(scale, scale)
                              .then(AffineTransform::translation(from.center().x - local.x - middle.x,
                                                                 from.center().y - local.y - middle.y)));
    viewer_->setAlpha(0);
    UIView::animate(openDuration, 0, AnimationCurve::EaseOut, [this] {
        viewer_->setTransform({});
        viewer_->setAlpha(1);
    });
}

void PhotosView::close() {
    bar_->setTitle("Moments");
    bar_->setLeftButton("", {});
    const runtime::WeakPtr<PhotosView> self(this);
    UIView::animate(
        openDuration, 0, AnimationCurve::EaseOut, [this] { viewer_->setAlpha(0); },
        [self](bool finished) {
            if (finished && self)
                self->viewer_->setHidden(true);
        });
}

} // namespace phone
