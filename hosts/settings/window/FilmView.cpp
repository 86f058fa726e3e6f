#include "hosts/settings/window/FilmView.h"

#include "hosts/settings/program/Address.h"
#include "hosts/settings/window/Accessibility.h"
#include "hosts/settings/window/Attached.h"

namespace settings {

FilmView& FilmView::make(std::shared_ptr<preferences::AVPlayer> player) {
    GtkWidget* video = gtk_video_new();
    return attach<FilmView>(video, video, std::move(player));
}

FilmView::FilmView(GtkWidget* video, std::shared_ptr<preferences::AVPlayer> player)
    : video_(video), player_(std::move(player)), stream_(nullptr) {
    GFile* file = g_file_new_for_uri(realAddress(player_->url()).c_str());
    stream_ = gtk_media_file_new_for_file(file);
    g_object_unref(file);
    gtk_video_set_media_stream(GTK_VIDEO(video_), stream_);
    setAccessibleName(video_, "Film");
    player_->setPlayingChangedHandler([this] { follow(); });
    follow();
}

FilmView::~FilmView() {
    player_->setPlayingChangedHandler({});
    gtk_media_stream_pause(stream_);
    g_object_unref(stream_);
}

void FilmView::follow() {
    gtk_media_stream_set_playing(stream_, player_->isPlaying());
}

} // namespace settings
