#include "hosts/phone/applications/RadioView.h"

#include "hosts/phone/artwork/CoverArtwork.h"
#include "hosts/phone/music/RadioStations.h"
#include "hosts/phone/screens/Labels.h"
#include "platform/foundation/RunLoop.h"
#include "platform/toolkit/windows/UIScreen.h"

using namespace toolkit;

namespace phone {

namespace {

const Color tint = Color::rgba(0.55, 0.25, 0.80);
constexpr double formDuration = 0.25; // seconds

} // namespace

runtime::Class& RadioView::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<RadioView>("RadioView", &UIView::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(RadioView)

RadioView::RadioView(PhoneMediaPort& music)
    : music_(music),
      cover_(drawCover(CoverKind::Station, MusicRow::coverSide, UIScreen::mainScreen().scale())),
      list_(std::make_shared<RowList>(
          MusicRow::height, RowList::Content{[] { return std::make_shared<MusicRow>(tint); },
                                             [this](ListRow& row) { showRow(static_cast<MusicRow&>(row)); },
                                             [this](std::size_t line) { choose(line); }})),
      empty_(makeLabel("No Stations\nAdd one by its address.", Font::system(17), Color::white(0.48),
                       TextAlignment::Center)),
      form_(std::make_shared<StationForm>()),
      bar_(std::make_shared<NavigationBar>("Radio", NavigationBarStyle::Light, tint)),
      nowPlaying_(std::make_shared<NowPlayingBar>(music, tint, [this] {
          list_->refresh();
          setNeedsLayout();
      })) {
    setBackgroundColor(Color::white(0.985));
    empty_->setNumberOfLines(0);
    form_->setHidden(true);
    for (const std::shared_ptr<UIView>& part :
         std::initializer_list<std::shared_ptr<UIView>>{list_, empty_, nowPlaying_, form_, bar_})
        addSubview(part);
    reload();
}

void RadioView::setActive(bool active) {
    nowPlaying_->setActive(active);
    if (active)
        reload();
}

void RadioView::setKeyboardFrame(Rect frame) {
    keyboardHeight_ = frame.height;
    setNeedsLayout();
}

void RadioView::reload() {
    stations_ = RadioStations::all();
    list_->reload(stations_.size());
    empty_->setHidden(!stations_.empty());
    if (mode_ == Mode::Editing && stations_.empty())
        mode_ = Mode::List;
    showButtons();
}

void RadioView::setMode(Mode mode) {
    const bool wasAdding = mode_ == Mode::Adding;
    mode_ = mode;
    const bool adding = mode == Mode::Adding;
    if (adding) {
        form_->setHidden(false);
        form_->begin();
    } else if (wasAdding) {
        form_->end();
    }
    if (adding != wasAdding) {
        form_->setAlpha(adding ? 0 : 1);
        const runtime::WeakPtr<StationForm> form(form_);
        UIView::animate(
            formDuration, 0, AnimationCurve::EaseInOut, [&] { form_->setAlpha(adding ? 1 : 0); },
            [form, adding](bool finished) {
                if (finished && form && !adding)
                    form->setHidden(true);
            });
    }
    list_->refresh();
    showButtons();
}

void RadioView::showButtons() {
    switch (mode_) {
    case Mode::List:
        bar_->setTitle("Radio");
        bar_->setLeftButton(stations_.empty() ? "" : "Edit", [this] { setMode(Mode::Editing); });
        bar_->setRightButton("Add", [this] { setMode(Mode::Adding); });
        return;
    case Mode::Editing:
        bar_->setTitle("Radio");
        bar_->setLeftButton("Done", [this] { setMode(Mode::List); });
        bar_->setRightButton("", {});
        return;
    case Mode::Adding:
        bar_->setTitle("New Station");
        bar_->setLeftButton("Cancel", [this] { setMode(Mode::List); });
        bar_->setRightButton("Save", [this] { save(); });
        return;
    }
}

void RadioView::showRow(MusicRow& row) {
    const RadioStation& station = stations_[row.index()];
    row.setText(station.name, station.url, "");
    row.setCover(nullptr, cover_);
    row.setCurrent(music_.player().station() == station);
    const std::size_t line = row.index();
    row.setRemoveHandler(mode_ == Mode::Editing ? [this, line] { remove(line); } : std::function<void()>());
}

void RadioView::choose(std::size_t line) {
    if (mode_ == Mode::List)
        music_.player().playStation(stations_[line]);
}

void RadioView::remove(std::size_t line) {
    // The button that was touched belongs to a row that is about to show another station.
    const runtime::WeakPtr<RadioView> self(this);
    foundation::RunLoop::main().performOnMain([self, line] {
        if (self && RadioStations::remove(line))
            self->reload();
    });
}

void RadioView::save() {
    const auto station = form_->station();
    if (!station)
        return;
    if (!RadioStations::add(*station))
        return form_->complain("The list of stations is full, or cannot be written.");
    setMode(Mode::List);
    reload();
}

void RadioView::layoutSubviews() {
    const Size size = bounds().size();
    const double top = NavigationBar::heightFor(size);
    const double foot = nowPlaying_->hasContent() ? NowPlayingBar::height : 0;
    bar_->setFrame({0, 0, size.width, top});
    const Point offset = list_->contentOffset();
    list_->setContentInset({0, 0, foot, 0});
    list_->setBounds({offset, {size.width, size.height - top}});
    list_->setCenter({size.width / 2, top + (size.height - top) / 2});
    empty_->setFrame({24, top, size.width - 48, size.height - top - foot});
    form_->setFrame({0, top, size.width, size.height - top - keyboardHeight_});
    nowPlaying_->setFrame({0, size.height - NowPlayingBar::height, size.width, NowPlayingBar::height});
}

} // namespace phone
