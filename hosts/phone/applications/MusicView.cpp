#include "hosts/phone/applications/MusicView.h"

#include "hosts/phone/artwork/CoverArtwork.h"
#include "platform/media/MPUChronologicalProgressView.h"
#include "platform/toolkit/windows/UIScreen.h"

#include <algorithm>

using namespace toolkit;

namespace phone {

namespace {

const Color tint = Color::rgba(0.93, 0.17, 0.38);

std::string textOf(const media::MPMediaItem& song, const char* property) {
    const auto* value = song.storedProperty(property);
    return value && value->string() ? *value->string() : std::string();
}

std::string joined(const std::string& a, const std::string& b) {
    return a.empty() || b.empty() ? a + b : a + " — " + b;
}

} // namespace

runtime::Class& MusicView::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<MusicView>("MusicView", &UIView::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(MusicView)

MusicView::MusicView(PhoneMediaPort& music)
    : music_(music),
      songs_(music.songs()),
      placeholder_(drawCover(CoverKind::Song, MusicRow::coverSide, UIScreen::mainScreen().scale())),
      list_(std::make_shared<RowList>(
          MusicRow::height, RowList::Content{[] { return std::make_shared<MusicRow>(tint); },
                                             [this](ListRow& row) { showRow(static_cast<MusicRow&>(row)); },
                                             [this](std::size_t line) {
                                                 const auto song = (*songs_)[line];
                                                 music_.playFromLibrary(song);
                                             }})),
      empty_(std::make_shared<EmptyMusicView>()),
      bar_(std::make_shared<NavigationBar>("Library", NavigationBarStyle::Light, tint)),
      nowPlaying_(std::make_shared<NowPlayingBar>(music, tint, [this] {
          list_->refresh();
          setNeedsLayout();
      })) {
    setBackgroundColor(Color::white(0.985));
    nowPlaying_->addHandler(ControlEvent::TouchUpInside, [this] { scrollToPlaying(); });
    for (const std::shared_ptr<UIView>& part :
         std::initializer_list<std::shared_ptr<UIView>>{list_, empty_, bar_, nowPlaying_})
        addSubview(part);
    if (const auto& library = music.library())
        library_ = library->addObserver([this] { libraryChanged(); });
    libraryChanged();
}

void MusicView::setActive(bool active) {
    nowPlaying_->setActive(active);
}

void MusicView::libraryChanged() {
    songs_ = music_.songs();
    list_->reload(songs_->size());
    list_->setHidden(songs_->empty());
    empty_->setHidden(!songs_->empty());
    empty_->setText(emptyText());
}

std::string MusicView::emptyText() const {
    const auto& library = music_.library();
    if (!library || library->directories().empty())
        return "Songs that you add to this phone appear here.";
    if (library->isScanning())
        return "Looking for music…";
    std::string places;
    for (const auto& directory : library->directories())
        places += (places.empty() ? "" : ", ") + directory.string();
    return "Music is looked for in " + places + ".";
}

void MusicView::showRow(MusicRow& row) const {
    const auto& song = *(*songs_)[row.index()];
    const auto* duration = song.storedProperty(media::MPMediaItemPropertyPlaybackDuration);
    row.setText(textOf(song, media::MPMediaItemPropertyTitle),
                joined(textOf(song, media::MPMediaItemPropertyArtist),
                       textOf(song, media::MPMediaItemPropertyAlbumTitle)),
                duration ? media::MPUChronologicalProgressView::timeText(duration->doubleValue()) : "");
    row.setCover(song.artwork(), placeholder_);
    const auto current = music_.player().nowPlayingItem();
    row.setCurrent(current && current->persistentID() == song.persistentID());
}

void MusicView::scrollToPlaying() {
    const auto current = music_.player().nowPlayingItem();
    const auto found = std::find_if(songs_->begin(), songs_->end(), [&](const auto& song) {
        return current && song->persistentID() == current->persistentID();
    });
    if (found != songs_->end())
        list_->scrollToRow(static_cast<std::size_t>(found - songs_->begin()));
}

void MusicView::layoutSubviews() {
    const Size size = bounds().size();
    const double top = NavigationBar::heightFor(size);
    const double foot = nowPlaying_->hasContent() ? NowPlayingBar::height : 0;
    bar_->setFrame({0, 0, size.width, top});
    const Point offset = list_->contentOffset();
    list_->setContentInset({0, 0, foot, 0});
    list_->setBounds({offset, {size.width, size.height - top}});
    list_->setCenter({size.width / 2, top + (size.height - top) / 2});
    empty_->setFrame({0, top, size.width, size.height - top - foot});
    nowPlaying_->setFrame({0, size.height - NowPlayingBar::height, size.width, NowPlayingBar::height});
}

} // namespace phone
