// A media port whose every answer a test can set, and which writes down what it is asked to do.
#pragma once

#include "platform/media/MediaPort.h"

#include <cstdio>
#include <map>
#include <string>
#include <vector>

namespace tests {

class TestMediaPort final : public media::MediaPort {
public:
    TestMediaPort() { setCurrent(this); }
    ~TestMediaPort() override { setCurrent(nullptr); }

    media::SharedMediaItems library = std::make_shared<const media::MediaItems>();
    std::map<std::int64_t, std::vector<std::uint8_t>> covers;
    std::map<std::int64_t, std::string> words;
    std::vector<std::string> calls;
    mutable int coversRead = 0;
    double phoneVolume = 0.5;

    media::SharedMediaItems songs() const override { return library; }
    std::vector<std::uint8_t> artworkData(std::int64_t persistentID) const override {
        ++coversRead;
        const auto found = covers.find(persistentID);
        return found == covers.end() ? std::vector<std::uint8_t>() : found->second;
    }
    std::optional<std::string> lyrics(std::int64_t persistentID) const override {
        const auto found = words.find(persistentID);
        return found == words.end() ? std::nullopt : std::optional(found->second);
    }
    void setQueue(const media::MediaItems& items) override {
        calls.push_back("queue of " + std::to_string(items.size()));
    }
    void setNowPlayingItem(const std::shared_ptr<media::MPMediaItem>& item) override {
        calls.push_back("song " + std::to_string(item->persistentID()));
    }
    std::shared_ptr<media::MPMediaItem> nowPlayingItem() const override {
        return library->empty() ? nullptr : library->front();
    }
    void prepareToPlay() override { calls.push_back("prepare"); }
    void play() override { calls.push_back("play"); }
    void pause() override { calls.push_back("pause"); }
    void skipToNextItem() override { calls.push_back("next item"); }
    void skipToPreviousItem() override { calls.push_back("previous item"); }
    void perform(media::RemoteCommand command) override {
        static constexpr const char* names[]{"Play", "Pause", "TogglePlayPause", "NextTrack",
                                             "PreviousTrack"};
        calls.push_back(names[static_cast<int>(command)]);
    }
    void seek(double seconds) override { calls.push_back("seek " + rounded(seconds)); }
    double volume() const override { return phoneVolume; }
    void setVolume(double volume) override { calls.push_back("volume " + rounded(volume)); }
    void launchApplication(const std::string& bundleIdentifier) override {
        calls.push_back("launch " + bundleIdentifier);
    }

private:
    static std::string rounded(double value) {
        char text[32];
        std::snprintf(text, sizeof text, "%.2f", value);
        return text;
    }
};

} // namespace tests
