// What the compositor offers, bound as it is announced.
//
// compositor, subcompositor, shm and layerShell are always there once Connection is made; each of the others
// may be null, and MissingProtocols says so.
#pragma once

#include "hosts/session/wayland/Output.h"
#include "hosts/session/wayland/Proxy.h"

#include <functional>
#include <string>
#include <vector>

struct wl_interface;

namespace session {

class Globals {
public:
    explicit Globals(wl_display* display);
    ~Globals();
    Globals(const Globals&) = delete;
    Globals& operator=(const Globals&) = delete;

    Proxy<wl_compositor> compositor;
    Proxy<wl_subcompositor> subcompositor;
    Proxy<wl_shm> shm;
    Proxy<zwlr_layer_shell_v1> layerShell;
    Proxy<wp_viewporter> viewporter;
    Proxy<wp_single_pixel_buffer_manager_v1> singlePixelBuffers;
    Proxy<zwlr_screencopy_manager_v1> screencopy;
    Proxy<zwlr_output_power_manager_v1> outputPower;
    Proxy<zxdg_output_manager_v1> xdgOutputs;

    // These tell of what there is as soon as they are bound: whoever binds one has to listen at once. Null
    // where there is none.
    Proxy<wl_seat> bindSeat(); // the first one
    Proxy<zwlr_foreign_toplevel_manager_v1> bindToplevels();
    bool offersToplevels() const { return toplevels_.name != 0; }

    /// Called when there is a seat to be bound that was not there before.
    void setSeatOffered(std::function<void()> offered) { seatOffered_ = std::move(offered); }

    /// In the order in which they came.
    const std::vector<std::unique_ptr<Output>>& outputs() const { return outputs_; }
    /// Called after an output has come, changed or gone.
    void setOutputsChanged(std::function<void()> changed) { outputsChanged_ = std::move(changed); }

    /// To be called when everything that was there from the beginning has been announced.
    void beComplete();
    /// Called for each global, by the compositor's listener.
    void announced(std::uint32_t name, const std::string& interface, std::uint32_t version);
    void removed(std::uint32_t name);

private:
    struct Offer {
        std::uint32_t name = 0;
        std::uint32_t version = 0;
    };
    template <class Object>
    Proxy<Object> bindOffered(Offer offer, const wl_interface& wanted, std::uint32_t highest);
    void bindOutput(std::uint32_t name, std::uint32_t version);
    void describe(Output& output);

    Proxy<wl_registry> registry_;
    bool complete_ = false;
    std::vector<std::unique_ptr<Output>> outputs_;
    std::function<void()> outputsChanged_;
    std::function<void()> seatOffered_;
    Offer seat_;
    Offer toplevels_;
};

} // namespace session
