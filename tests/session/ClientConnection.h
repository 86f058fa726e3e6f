// The connection of a test's own client to a compositor, and the objects that go with it. One thread only.
#pragma once

#include <wayland-client-core.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

struct wl_registry;

namespace tests {

class ClientConnection {
public:
    /// Knows what the compositor offers when it returns; throws std::runtime_error when nobody listens there.
    explicit ClientConnection(const std::filesystem::path& socket);
    /// The compositor is told of no single object's end.
    ~ClientConnection();
    ClientConnection(const ClientConnection&) = delete;
    ClientConnection& operator=(const ClientConnection&) = delete;

    wl_display* display() const { return display_; }
    /// Until everything that was asked has been answered.
    void roundTrip();

    /// The first object of an interface that the compositor offered, for the caller to destroy or to let
    /// keep(); null when there is none.
    template <class Object>
    Object* bind(const wl_interface& interface, std::uint32_t version) {
        return reinterpret_cast<Object*>(bindObject(interface, version));
    }
    /// Destroys it when the connection ends, if it is not null.
    template <class Object>
    Object* keep(Object* object) {
        if (object)
            kept_.push_back(reinterpret_cast<wl_proxy*>(object));
        return object;
    }

private:
    struct Offer {
        std::uint32_t name;
        std::string interface;
    };
    wl_proxy* bindObject(const wl_interface& interface, std::uint32_t version);

    wl_display* display_;
    wl_registry* registry_;
    std::vector<Offer> offers_;
    std::vector<wl_proxy*> kept_;
};

} // namespace tests
