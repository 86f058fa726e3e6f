#include "platform/media/CoverStore.h"

#include "platform/foundation/RunLoop.h"
#include "platform/media/MediaPort.h"
#include "platform/toolkit/rendering/ImageFile.h"

#include <algorithm>
#include <cmath>

namespace media {

namespace {

/// Above any screen's needs, and far from what an int holds.
constexpr double greatestSide = 8192; // pixels

/// A song's cover as a picture just large enough to cover `width` × `height` pixels. Any thread.
CoverStore::Picture readCover(std::int64_t persistentID, int width, int height, double scale) {
    const MediaPort* port = MediaPort::current();
    const auto bytes = port ? port->artworkData(persistentID) : std::vector<std::uint8_t>();
    if (bytes.empty())
        return nullptr;
    const auto whole = toolkit::decodeImage(bytes, scale);
    if (!whole)
        return nullptr;
    const double reduction = std::max(static_cast<double>(width) / whole->pixelWidth(),
                                      static_cast<double>(height) / whole->pixelHeight());
    if (reduction >= 1)
        return whole;
    const auto reduced = [reduction](int side) {
        return std::max(1, static_cast<int>(std::lround(side * reduction)));
    };
    return whole->reducedTo(reduced(whole->pixelWidth()), reduced(whole->pixelHeight()));
}

std::int64_t pixelsOf(const CoverStore::Picture& picture) {
    return picture ? std::int64_t{picture->pixelWidth()} * picture->pixelHeight() : 1;
}

} // namespace

CoverStore& CoverStore::shared() {
    static auto& store = *new CoverStore; // never torn down
    return store;
}

CoverStore::Key CoverStore::keyOf(const Request& request) {
    const auto pixels = [&request](double points) {
        const double side = std::ceil(points * request.scale);
        return side > 1 ? static_cast<int>(std::min(side, greatestSide)) : 1;
    };
    return {request.persistentID, pixels(request.size.width), pixels(request.size.height)};
}

const CoverStore::Picture* CoverStore::find(const Key& key) {
    const auto found = entries_.find(key);
    if (found == entries_.end())
        return nullptr;
    uses_.splice(uses_.begin(), uses_, found->second.use);
    return &found->second.picture;
}

void CoverStore::keep(const Key& key, Picture picture) {
    if (entries_.contains(key))
        return;
    pixels_ += pixelsOf(picture);
    uses_.push_front(key);
    entries_[key] = {std::move(picture), uses_.begin()};
    while (pixels_ > capacity && uses_.size() > 1)
        forget(entries_.find(uses_.back()));
}

void CoverStore::forget(std::map<Key, Entry>::iterator entry) {
    pixels_ -= pixelsOf(entry->second.picture);
    uses_.erase(entry->second.use);
    entries_.erase(entry);
}

CoverStore::Picture CoverStore::cover(const Request& request) {
    const Key key = keyOf(request);
    if (const Picture* kept = find(key))
        return *kept;
    const Picture picture = readCover(request.persistentID, key.width, key.height, request.scale);
    keep(key, picture);
    return picture;
}

foundation::Handle CoverStore::load(const Request& request, Ready ready) {
    const Key key = keyOf(request);
    if (const Picture* kept = find(key)) {
        ready(*kept);
        return {};
    }
    const auto waiter = std::make_shared<Ready>(std::move(ready));
    auto& waiters = waiting_[key];
    waiters.push_back(waiter);
    if (waiters.size() == 1)
        foundation::RunLoop::main().performInBackground(
            [this, key, scale = request.scale, generation = generation_] {
                const auto picture = readCover(key.persistentID, key.width, key.height, scale);
                foundation::RunLoop::main().performOnMain(
                    [this, key, picture, generation] { arrived(key, picture, generation); });
            });
    return foundation::Handle([waiter] { *waiter = nullptr; });
}

void CoverStore::arrived(const Key& key, const Picture& picture, unsigned generation) {
    if (generation == generation_)
        keep(key, picture);
    const auto waiters = waiting_.extract(key);
    if (waiters.empty())
        return;
    for (const auto& waiter : waiters.mapped())
        if (const Ready ready = std::exchange(*waiter, nullptr))
            ready(picture);
}

void CoverStore::forgetUnused() {
    for (auto entry = entries_.begin(); entry != entries_.end();) {
        const auto next = std::next(entry);
        if (entry->second.picture.use_count() == 1)
            forget(entry);
        entry = next;
    }
}

void CoverStore::clear() {
    ++generation_;
    entries_.clear();
    uses_.clear();
    pixels_ = 0;
}

} // namespace media
