// A film as GTK plays it, started and stopped by the player that it belongs to.
//
// Main thread only. Goes with its widget; keeps the player.
#pragma once

#include "platform/preferences/AVPlayer.h"

#include <gtk/gtk.h>

#include <memory>

namespace settings {

class FilmView {
public:
    /// A new widget with controls to play, wind and set the volume.
    static FilmView& make(std::shared_ptr<preferences::AVPlayer> player);
    ~FilmView();
    FilmView(const FilmView&) = delete;
    FilmView& operator=(const FilmView&) = delete;

    GtkWidget* widget() const { return video_; }

private:
    template <class T, class... Arguments>
    friend T& attach(GtkWidget*, Arguments&&...);
    FilmView(GtkWidget* video, std::shared_ptr<preferences::AVPlayer> player);
    void follow();

    GtkWidget* video_;
    std::shared_ptr<preferences::AVPlayer> player_;
    GtkMediaStream* stream_;
};

} // namespace settings
