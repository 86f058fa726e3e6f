// A program's window as assistive technology sees it: one object of its tree.
//
// Objects are read afresh with every call: nothing is kept between them. There must be an AccessibleDesktop.
#pragma once

#include <atspi/atspi.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace support {

class Accessible {
public:
    Accessible() = default;
    /// Takes over the reference.
    explicit Accessible(AtspiAccessible* object) : object_(object, Unref{}) {}

    /// For a program, or the desktop: nothing is kept of it. What is kept is brought up to date by a main
    /// loop, which a test has none of.
    void keepNothing() const { atspi_accessible_set_cache_mask(object_.get(), ATSPI_CACHE_NONE); }

    explicit operator bool() const { return object_ != nullptr; }
    std::string name() const;
    std::string description() const;
    /// "push button", "slider".
    std::string role() const;
    bool has(AtspiStateType state) const;
    /// Whether it takes up room in its window.
    bool isShown() const;
    Accessible parent() const;
    std::vector<Accessible> children() const;
    std::string text() const;
    std::optional<double> value() const;
    bool setValue(double value) const;
    /// Does the first action that it offers: a click.
    bool activate() const;
    /// In the window.
    struct Frame {
        int x = 0, y = 0, width = 0, height = 0;
    };
    Frame frame() const;

    /// Every object below that `accepts` takes, in the tree's order.
    std::vector<Accessible> all(const std::function<bool(const Accessible&)>& accepts) const;
    /// The first shown one of that role and name.
    Accessible find(const std::string& role, const std::string& name) const;

private:
    struct Unref {
        void operator()(gpointer object) const {
            if (object)
                g_object_unref(object);
        }
    };
    std::shared_ptr<AtspiAccessible> object_;
};

} // namespace support
