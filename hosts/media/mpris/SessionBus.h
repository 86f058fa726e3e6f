// The session's message bus, which may be missing, go away and come back.
//
// Main thread only, served by the real main loop. A bus that has gone is asked for again every few seconds.
#pragma once

#include "hosts/media/Observers.h"

#include <memory>

typedef struct _GDBusConnection GDBusConnection;
typedef struct _GAsyncResult GAsyncResult;
typedef struct _GCancellable GCancellable;

namespace playback {

class SessionBus {
public:
    /// Begins to connect.
    SessionBus();
    SessionBus(const SessionBus&) = delete;
    SessionBus& operator=(const SessionBus&) = delete;
    ~SessionBus();

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

    std::shared_ptr<GDBusConnection> connection_;
    std::shared_ptr<GCancellable> cancellable_;
    unsigned long closedHandler_ = 0;
    foundation::Handle retry_;
    Observers<> observers_;
};

} // namespace playback
