#include "hosts/session/wayland/Globals.h"

#include "hosts/session/wayland/Protocols.h"

#include <algorithm>

namespace session {

namespace {

void globalAnnounced(void* data, wl_registry*, std::uint32_t name, const char* interface,
                     std::uint32_t version) {
    static_cast<Globals*>(data)->announced(name, interface, version);
}

void globalRemoved(void* data, wl_registry*, std::uint32_t name) {
    static_cast<Globals*>(data)->removed(name);
}

constexpr wl_registry_listener registryListener{globalAnnounced, globalRemoved};

/// Binds a global of the wanted kind in the highest version that both sides know; keeps the first of them.
template <class Object>
bool bindOnce(wl_registry* registry, Proxy<Object>& place, const wl_interface& wanted, std::uint32_t highest,
              std::uint32_t name, const std::string& interface, std::uint32_t version) {
    if (interface != wanted.name || place)
        return false;
    place.reset(static_cast<Object*>(wl_registry_bind(registry, name, &wanted, std::min(highest, version))));
    return true;
}

} // namespace

Globals::Globals(wl_display* display) : registry_(wl_display_get_registry(display)) {
    wl_registry_add_listener(registry_.get(), &registryListener, this);
}

Globals::~Globals() = default;

void Globals::announced(std::uint32_t name, const std::string& interface, std::uint32_t version) {
    const auto bind = [&](auto& place, const wl_interface& wanted, std::uint32_t highest) {
        return bindOnce(registry_.get(), place, wanted, highest, name, interface, version);
    };
    bind(compositor, wl_compositor_interface, 4);
    bind(subcompositor, wl_subcompositor_interface, 1);
    bind(shm, wl_shm_interface, 1);
    bind(layerShell, zwlr_layer_shell_v1_interface, 4);
    bind(viewporter, wp_viewporter_interface, 1);
    bind(singlePixelBuffers, wp_single_pixel_buffer_manager_v1_interface, 1);
    bind(screencopy, zwlr_screencopy_manager_v1_interface, 3);
    if (interface == wl_seat_interface.name && seat_.name == 0) {
        seat_ = {name, version};
        if (seatOffered_)
            seatOffered_();
    }
    if (interface == zwlr_foreign_toplevel_manager_v1_interface.name)
        toplevels_ = {name, version};
    const bool describes = bind(xdgOutputs, zxdg_output_manager_v1_interface, 3);
    const bool powers = bind(outputPower, zwlr_output_power_manager_v1_interface, 1);
    if (describes || powers)
        for (const auto& output : outputs_)
            describe(*output);
    if (interface == wl_output_interface.name)
        bindOutput(name, version);
}

template <class Object>
Proxy<Object> Globals::bindOffered(Offer offer, const wl_interface& wanted, std::uint32_t highest) {
    if (offer.name == 0)
        return nullptr;
    return Proxy<Object>(static_cast<Object*>(
        wl_registry_bind(registry_.get(), offer.name, &wanted, std::min(highest, offer.version))));
}

Proxy<wl_seat> Globals::bindSeat() {
    return bindOffered<wl_seat>(seat_, wl_seat_interface, 5);
}

Proxy<zwlr_foreign_toplevel_manager_v1> Globals::bindToplevels() {
    return bindOffered<zwlr_foreign_toplevel_manager_v1>(toplevels_,
                                                         zwlr_foreign_toplevel_manager_v1_interface, 3);
}

void Globals::bindOutput(std::uint32_t name, std::uint32_t version) {
    auto* object = static_cast<wl_output*>(
        wl_registry_bind(registry_.get(), name, &wl_output_interface, std::min(version, 4u)));
    outputs_.push_back(std::make_unique<Output>(Proxy<wl_output>(object), name, [this] {
        if (outputsChanged_)
            outputsChanged_();
    }));
    describe(*outputs_.back());
}

void Globals::describe(Output& output) {
    if (xdgOutputs && !output.isDescribed())
        output.describeBy(*xdgOutputs);
    else if (complete_ && compositor && layerShell && !output.isDescribed())
        output.describeBy(OutputProbe::Means{compositor.get(), layerShell.get()});
    if (outputPower && !output.isPowerWatched())
        output.watchPower(*outputPower);
}

/// Only now is it known who does not tell of outputs.
void Globals::beComplete() {
    complete_ = true;
    for (const auto& output : outputs_)
        describe(*output);
}

void Globals::removed(std::uint32_t name) {
    if (name == seat_.name)
        seat_ = {};
    const auto gone =
        std::erase_if(outputs_, [name](const auto& output) { return output->globalName() == name; });
    if (gone > 0 && outputsChanged_)
        outputsChanged_();
}

} // namespace session
