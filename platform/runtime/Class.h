// Classes by name, and the tables of methods and instance variables that messages are looked up in.
//
// A class is described once, in its .cpp file:
//
//     runtime::Class& SBUIController::staticClass() {
//         static auto& cls = runtime::ClassBuilder<SBUIController>("SBUIController", &Object::staticClass())
//                                .method("clickedMenuButton", &SBUIController::hostClickedMenuButton)
//                                .build();
//         return cls;
//     }
//     RUNTIME_REGISTER_CLASS(SBUIController)
//
// Classes live until the process ends. Main thread only, after load.
#pragma once

#include "platform/runtime/Implementation.h"
#include "platform/runtime/Object.h"
#include "platform/runtime/Selector.h"

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

namespace runtime {

class Class {
public:
    using InstanceVariable = std::function<std::shared_ptr<Object>(const Object&)>;
    using Factory = std::function<std::shared_ptr<Object>()>;

    Class(std::string name, Class* superclass) : name_(std::move(name)), superclass_(superclass) {}

    const std::string& name() const { return name_; }
    Class* superclass() const { return superclass_; }
    bool isSubclassOf(const Class& other) const;

    /// The implementation that instances answer `selector` with, inherited ones included; empty when none.
    Implementation find(Selector selector) const;
    /// True when this very class, not an ancestor, holds a method of that name.
    bool hasOwnMethod(Selector selector) const { return methods_.contains(selector); }
    void setMethod(Selector selector, Implementation implementation);
    /// Takes a method away again; for tests that try a host which lacks it.
    void removeOwnMethod(Selector selector) { methods_.erase(selector); }

    void setInstanceVariable(const std::string& name, InstanceVariable read);
    /// The object that `object` keeps in the instance variable `name`; null when there is no such variable.
    std::shared_ptr<Object> instanceVariable(const Object& object, const std::string& name) const;

private:
    std::string name_;
    Class* superclass_;
    std::unordered_map<Selector, Implementation> methods_;
    std::unordered_map<std::string, InstanceVariable> instanceVariables_;
};

/// The classes of the process by name.
class Registry {
public:
    static Registry& shared();

    /// Adds a class; a name that is taken keeps its first class.
    void add(Class& cls);
    void remove(const std::string& name) { classes_.erase(name); }
    Class* find(const std::string& name) const;

private:
    std::unordered_map<std::string, Class*> classes_;
};

template <class T>
class ClassBuilder {
public:
    ClassBuilder(std::string name, Class* superclass) : class_(new Class(std::move(name), superclass)) {}

    template <class R, class... A>
    ClassBuilder& method(Selector selector, R (T::*member)(A...)) {
        return methodFunction<R, std::decay_t<A>...>(selector,
                                                     [member](T& self, std::decay_t<A>... arguments) -> R {
                                                         return (self.*member)(std::move(arguments)...);
                                                     });
    }
    template <class R, class... A>
    ClassBuilder& method(Selector selector, R (T::*member)(A...) const) {
        return methodFunction<R, std::decay_t<A>...>(selector,
                                                     [member](T& self, std::decay_t<A>... arguments) -> R {
                                                         return (self.*member)(std::move(arguments)...);
                                                     });
    }
    /// A recogniser's or control's action: `(self.*member)(sender)`, with the sender given by reference.
    template <class Sender>
    ClassBuilder& action(Selector selector, void (T::*member)(Sender&)) {
        return methodFunction<void, Object*>(selector, [member](T& self, Object* sender) {
            if (auto* typed = dynamic_cast<Sender*>(sender))
                (self.*member)(*typed);
        });
    }
    template <class V>
    ClassBuilder& instanceVariable(const std::string& name, std::shared_ptr<V> T::*member) {
        class_->setInstanceVariable(name, [member](const Object& object) -> std::shared_ptr<Object> {
            return static_cast<const T&>(object).*member;
        });
        return *this;
    }

    Class& build() {
        // Never torn down: objects with static storage may still be sent messages at exit.
        Class& cls = *class_.release();
        Registry::shared().add(cls);
        return cls;
    }

private:
    template <class R, class... A, class Function>
    ClassBuilder& methodFunction(Selector selector, Function function) {
        class_->setMethod(selector, Implementation::of(std::function<R(Object&, A...)>(
                                        [function](Object& self, A... arguments) -> R {
                                            return function(static_cast<T&>(self), std::move(arguments)...);
                                        })));
        return *this;
    }

    std::unique_ptr<Class> class_;
};

} // namespace runtime

/// Makes a class known by name as soon as its library is loaded. Once per class, in its .cpp file.
#define RUNTIME_REGISTER_CLASS(Type)                                                                         \
    namespace {                                                                                              \
    [[maybe_unused]] const runtime::Class& registered_##Type = Type::staticClass();                          \
    }
