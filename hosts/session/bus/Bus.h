// A message bus that may be missing, go away and come back.
//
// Main thread only, served by the main loop. While it is away it is asked for again every few seconds.
#pragma once

#include "platform/foundation/Handle.h"

#include <functional>
#include <list>
#include <memory>

typedef struct _GDBusConnection GDBusConnection;

namespace session {

class Bus {
public:
    enum class Kind { Session, System };

    explicit Bus(Kind kind);
    ~Bus();
    Bus(const Bus&) = delete;
    Bus& operator=(const Bus&) = delete;

    /// Null while the bus is away.
    GDBusConnection* connection() const { return connection_; }
    /// `changed` is called whenever the bus has come or gone.
    foundation::Handle observe(std::function<void()> changed);

private:
    void connect();
    void connected(GDBusConnection* connection);
    void lost();
    void tell() const;

    Kind kind_;
    GDBusConnection* connection_ = nullptr;
    unsigned long closedSignal_ = 0;
    bool reported_ = false;
    foundation::Handle retry_;
    std::shared_ptr<std::list<std::function<void()>>> observers_;
};

} // namespace session
