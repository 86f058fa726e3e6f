// A message bus, the session's or the system's, which may be missing, go away and come back.
//
// Main thread only, served by the real main loop. A bus that is away is asked for again every few seconds.
#pragma once

#include "platform/foundation/Observers.h"

#include <memory>
#include <string>

typedef struct _GDBusConnection GDBusConnection;
typedef struct _GCancellable GCancellable;

namespace bus {

class Bus {
public:
    enum class Kind { Session, System };

    /// Begins to connect. `whenAway`, unless it is empty, is logged whenever the bus is found to be away,
    /// once until it is back.
    explicit Bus(Kind kind, std::string whenAway = {});
    Bus(const Bus&) = delete;
    Bus& operator=(const Bus&) = delete;
    ~Bus();

    /// Null while there is none.
    GDBusConnection* connection() const { return connection_.get(); }
    /// Calls `changed` in a turn of the main loop whenever the connection has come or gone.
    foundation::Handle addObserver(std::function<void()> changed) {
        return observers_.add(std::move(changed));
    }

private:
    void connect();
    void connected(std::shared_ptr<GDBusConnection> connection);
    void lost();
    void tryLater();

    Kind kind_;
    std::string whenAway_;
    bool isAwaySaid_ = false;
    std::shared_ptr<GDBusConnection> connection_;
    std::shared_ptr<GCancellable> cancellable_;
    unsigned long closedHandler_ = 0;
    foundation::Handle retry_;
    foundation::Observers<> observers_;
};

} // namespace bus
