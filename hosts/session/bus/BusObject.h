// An object of a service on a bus: its properties, as last told, its signals and its methods.
//
// The service may be missing, start later and end. Main thread only.
#pragma once

#include "hosts/bus/Bus.h"

#include <string>

typedef struct _GDBusProxy GDBusProxy;
typedef struct _GVariant GVariant;

namespace session {

class BusObject {
public:
    struct Address {
        std::string name;
        std::string path;
        std::string interface;
    };
    struct Callbacks {
        /// A property has changed, or the service has come or gone.
        std::function<void()> changed;
        std::function<void(const std::string& signal)> signalled = {};
    };
    /// `bus` outlives this object.
    BusObject(bus::Bus& bus, Address address, Callbacks callbacks);
    ~BusObject();
    BusObject(const BusObject&) = delete;
    BusObject& operator=(const BusObject&) = delete;

    bool isThere() const;
    /// `otherwise` where the service does not tell, or tells something of another type.
    bool booleanProperty(const char* name, bool otherwise) const;
    std::string stringProperty(const char* name, const std::string& otherwise) const;
    /// Calls a method with `arguments`, which may be null and are taken over. `answered` gets the answer's
    /// first value as an object path or string, empty when there is none.
    void call(const char* method, GVariant* arguments, std::function<void(const std::string&)> answered = {});
    /// Asks the service for a property that it may have changed without telling.
    void readAgain(const char* property);

private:
    void open();
    void close();
    void opened(GDBusProxy* proxy);
    void ask(const char* method, GVariant* arguments, std::function<void(GVariant*)> answered);

    bus::Bus& bus_;
    Address address_;
    Callbacks callbacks_;
    GDBusProxy* proxy_ = nullptr;
    std::shared_ptr<BusObject*> self_; // for answers that come when this object may be gone
    foundation::Handle busObserver_;
};

} // namespace session
