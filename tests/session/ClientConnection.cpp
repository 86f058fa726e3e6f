#include "tests/session/ClientConnection.h"

#include <algorithm>
#include <stdexcept>

#include <wayland-client.h>

namespace tests {

ClientConnection::ClientConnection(const std::filesystem::path& socket)
    : display_(wl_display_connect(socket.c_str())) {
    if (!display_)
        throw std::runtime_error("no connection to the compositor");
    static constexpr wl_registry_listener listener{
        [](void* data, wl_registry*, std::uint32_t name, const char* interface, std::uint32_t) {
            static_cast<ClientConnection*>(data)->offers_.push_back({name, interface});
        },
        [](void*, wl_registry*, std::uint32_t) {}};
    registry_ = keep(wl_display_get_registry(display_));
    wl_registry_add_listener(registry_, &listener, this);
    roundTrip();
}

ClientConnection::~ClientConnection() {
    for (wl_proxy* object : kept_)
        wl_proxy_destroy(object);
    wl_display_disconnect(display_);
}

void ClientConnection::roundTrip() {
    wl_display_roundtrip(display_);
}

wl_proxy* ClientConnection::bindObject(const wl_interface& interface, std::uint32_t version) {
    const auto offer = std::ranges::find(offers_, interface.name, &Offer::interface);
    if (offer == offers_.end())
        return nullptr;
    return static_cast<wl_proxy*>(wl_registry_bind(registry_, offer->name, &interface, version));
}

} // namespace tests
