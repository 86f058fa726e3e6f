// The root of every class that takes part in messaging, and weak references to its instances.
//
// Objects are owned through std::shared_ptr by their parent. A back reference is a WeakPtr, which, unlike
// std::weak_ptr, may already be taken in the referenced object's constructor. Main thread only.
#pragma once

#include <any>
#include <memory>
#include <string>
#include <unordered_map>

namespace runtime {

class Class;

class Object : public std::enable_shared_from_this<Object> {
public:
    Object() = default;
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;
    virtual ~Object();

    static Class& staticClass();
    /// The object's class; its name is what logs and state dumps show.
    virtual Class& isa() const { return staticClass(); }

    /// Values that others hang on this object by key; they live as long as it does.
    void setAssociatedObject(const std::string& key, std::any value);
    /// The value under `key`, or an empty std::any.
    const std::any& associatedObject(const std::string& key) const;

private:
    template <class T>
    friend class WeakPtr;
    struct Life {};
    std::shared_ptr<Life> life_ = std::make_shared<Life>();
    std::unordered_map<std::string, std::any> associated_;
};

/// A reference that does not own and that answers null once its object is gone.
template <class T>
class WeakPtr {
public:
    WeakPtr() = default;
    WeakPtr(std::nullptr_t) {}
    WeakPtr(T* object) : object_(object) {
        if (object)
            life_ = static_cast<const Object*>(object)->life_;
    }
    WeakPtr(const std::shared_ptr<T>& object) : WeakPtr(object.get()) {}

    T* get() const { return life_.expired() ? nullptr : object_; }
    T* operator->() const { return get(); }
    explicit operator bool() const { return get() != nullptr; }

private:
    T* object_ = nullptr;
    std::weak_ptr<Object::Life> life_;
};

} // namespace runtime

/// Declares what a class needs to take part in messaging; its .cpp file defines `staticClass()` with a
/// ClassBuilder and announces it with RUNTIME_REGISTER_CLASS.
#define RUNTIME_CLASS()                                                                                      \
public:                                                                                                      \
    static runtime::Class& staticClass();                                                                    \
    runtime::Class& isa() const override {                                                                   \
        return staticClass();                                                                                \
    }
