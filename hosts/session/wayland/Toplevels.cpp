#include "hosts/session/wayland/Toplevels.h"

#include "hosts/session/wayland/Protocols.h"

#include <algorithm>
#include <span>
#include <utility>

namespace session {

struct Toplevels::Toplevel {
    Toplevels& all;
    Proxy<zwlr_foreign_toplevel_handle_v1> handle;
    std::string application;
    std::string pendingApplication;
    bool active = false;
    bool pendingActive = false;
};

struct Toplevels::Listener {
    using Handle = zwlr_foreign_toplevel_handle_v1;
    static Toplevel& self(void* data) { return *static_cast<Toplevel*>(data); }

    static void title(void*, Handle*, const char*) {}
    static void appId(void* data, Handle*, const char* name) { self(data).pendingApplication = name; }
    static void entered(void*, Handle*, wl_output*) {}
    static void left(void*, Handle*, wl_output*) {}
    static void state(void* data, Handle*, wl_array* states) {
        const std::span values(static_cast<const std::uint32_t*>(states->data),
                               states->size / sizeof(std::uint32_t));
        const bool minimized =
            std::ranges::count(values, ZWLR_FOREIGN_TOPLEVEL_HANDLE_V1_STATE_MINIMIZED) > 0;
        self(data).pendingActive =
            !minimized && std::ranges::count(values, ZWLR_FOREIGN_TOPLEVEL_HANDLE_V1_STATE_ACTIVATED) > 0;
    }
    static void done(void* data, Handle*) {
        Toplevel& toplevel = self(data);
        toplevel.application = toplevel.pendingApplication;
        toplevel.active = toplevel.pendingActive;
        toplevel.all.update();
    }
    static void closed(void* data, Handle*) {
        Toplevels& all = self(data).all;
        std::erase_if(all.toplevels_, [data](const auto& toplevel) { return toplevel.get() == data; });
        all.update();
    }
    static void parent(void*, Handle*, Handle*) {}
    static constexpr zwlr_foreign_toplevel_handle_v1_listener handle{title, appId, entered, left,
                                                                     state, done,  closed,  parent};

    static void added(void* data, zwlr_foreign_toplevel_manager_v1*, Handle* object) {
        auto& all = *static_cast<Toplevels*>(data);
        all.toplevels_.push_back(std::make_unique<Toplevel>(all, Proxy<Handle>(object)));
        zwlr_foreign_toplevel_handle_v1_add_listener(object, &handle, all.toplevels_.back().get());
    }
    static void finished(void*, zwlr_foreign_toplevel_manager_v1*) {}
    static constexpr zwlr_foreign_toplevel_manager_v1_listener manager{added, finished};
};

Toplevels::Toplevels(Proxy<zwlr_foreign_toplevel_manager_v1> manager, std::function<void()> changed)
    : manager_(std::move(manager)), changed_(std::move(changed)) {
    zwlr_foreign_toplevel_manager_v1_add_listener(manager_.get(), &Listener::manager, this);
}

Toplevels::~Toplevels() = default;

void Toplevels::setHeld(bool held) {
    held_ = held;
    // The compositor gives the keyboard back in its own time: until it says so, whoever was in front still
    // is.
    if (active() || !isThere(front_))
        update();
}

const Toplevels::Toplevel* Toplevels::active() const {
    const auto found =
        std::ranges::find_if(toplevels_, [](const auto& toplevel) { return toplevel->active; });
    return found == toplevels_.end() ? nullptr : found->get();
}

bool Toplevels::isThere(const std::string& application) const {
    return std::ranges::any_of(toplevels_,
                               [&](const auto& toplevel) { return toplevel->application == application; });
}

void Toplevels::update() {
    if (held_)
        return;
    const Toplevel* toplevel = active();
    const std::string front = toplevel ? toplevel->application : "";
    if (std::exchange(front_, front) != front)
        changed_();
}

} // namespace session
