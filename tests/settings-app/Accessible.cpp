#include "tests/settings-app/Accessible.h"

namespace support {

namespace {

/// A program that has just ended, or an object that has just gone, answers with an error: that is nothing.
class Quietly {
public:
    ~Quietly() { g_clear_error(&error_); }
    operator GError**() {
        g_clear_error(&error_);
        return &error_;
    }

private:
    GError* error_ = nullptr;
};

std::string taken(gchar* text) {
    std::string result = text ? text : "";
    g_free(text);
    return result;
}

template <class Interface, class Work>
auto with(Interface* interface, Work work) -> decltype(work(interface)) {
    if (!interface)
        return {};
    auto result = work(interface);
    g_object_unref(interface);
    return result;
}

} // namespace

std::string Accessible::name() const {
    return taken(atspi_accessible_get_name(object_.get(), Quietly()));
}

std::string Accessible::description() const {
    return taken(atspi_accessible_get_description(object_.get(), Quietly()));
}

std::string Accessible::role() const {
    return taken(atspi_accessible_get_role_name(object_.get(), Quietly()));
}

bool Accessible::has(AtspiStateType state) const {
    if (!object_)
        return false;
    return with(atspi_accessible_get_state_set(object_.get()),
                [state](AtspiStateSet* states) -> bool { return atspi_state_set_contains(states, state); });
}

bool Accessible::isShown() const {
    const Frame place = frame();
    return place.width > 0 && place.height > 0;
}

Accessible Accessible::parent() const {
    return Accessible(atspi_accessible_get_parent(object_.get(), Quietly()));
}

std::vector<Accessible> Accessible::children() const {
    std::vector<Accessible> result;
    if (!object_)
        return result;
    const int count = atspi_accessible_get_child_count(object_.get(), Quietly());
    for (int index = 0; index < count; ++index)
        if (Accessible child(atspi_accessible_get_child_at_index(object_.get(), index, Quietly())); child)
            result.push_back(std::move(child));
    return result;
}

std::string Accessible::text() const {
    return with(atspi_accessible_get_text_iface(object_.get()), [](AtspiText* text) {
        return taken(
            atspi_text_get_text(text, 0, atspi_text_get_character_count(text, Quietly()), Quietly()));
    });
}

std::optional<double> Accessible::value() const {
    return with(atspi_accessible_get_value_iface(object_.get()),
                [](AtspiValue* value) -> std::optional<double> {
                    return atspi_value_get_current_value(value, Quietly());
                });
}

bool Accessible::setValue(double value) const {
    return with(atspi_accessible_get_value_iface(object_.get()), [value](AtspiValue* interface) -> bool {
        return atspi_value_set_current_value(interface, value, Quietly());
    });
}

bool Accessible::activate() const {
    return with(atspi_accessible_get_action_iface(object_.get()),
                [](AtspiAction* action) -> bool { return atspi_action_do_action(action, 0, Quietly()); });
}

Accessible::Frame Accessible::frame() const {
    return with(atspi_accessible_get_component_iface(object_.get()), [](AtspiComponent* component) -> Frame {
        AtspiRect* rect = atspi_component_get_extents(component, ATSPI_COORD_TYPE_WINDOW, Quietly());
        if (!rect)
            return {};
        const Frame frame{rect->x, rect->y, rect->width, rect->height};
        g_free(rect);
        return frame;
    });
}

std::vector<Accessible> Accessible::all(const std::function<bool(const Accessible&)>& accepts) const {
    std::vector<Accessible> result;
    for (const Accessible& child : children()) {
        if (!child.has(ATSPI_STATE_VISIBLE))
            continue;
        if (accepts(child))
            result.push_back(child);
        const auto below = child.all(accepts);
        result.insert(result.end(), below.begin(), below.end());
    }
    return result;
}

Accessible Accessible::find(const std::string& role, const std::string& name) const {
    for (const Accessible& child : children()) {
        if (!child.has(ATSPI_STATE_VISIBLE))
            continue;
        if (child.role() == role && child.name() == name && child.isShown())
            return child;
        if (Accessible below = child.find(role, name))
            return below;
    }
    return {};
}

} // namespace support
