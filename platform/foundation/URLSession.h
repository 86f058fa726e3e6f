// Loads URLs over HTTP: away from the main thread, bounded in size and time, over few redirects.
//
// Tasks that run when the session goes run on to their end. Each completion is called exactly once on the
// main loop's background queue, unless the loop ends first. An answer of any status is no error. Requests run
// in real time; a virtual loop waits for them before it moves its clock (see OutsideWork.h). Any thread.
#pragma once

#include "platform/foundation/URLRequest.h"
#include "platform/foundation/URLSessionConfiguration.h"
#include "platform/foundation/URLSessionTask.h"

#include <functional>
#include <string>

namespace foundation {

class URLSession {
public:
    using DataCompletion = URLSessionTask::Completion;
    /// `location` is the device path of the file, which is removed when the completion returns; empty with an
    /// error.
    using DownloadCompletion = std::function<void(const std::string& location, const URLResponse& response,
                                                  const std::optional<URLError>& error)>;

    /// Where requests may go. A run that shall be the same everywhere keeps to this machine: a request to any
    /// other fails at once with URLErrorCode::NotConnectedToInternet. Set once, before the first request.
    enum class Reach { Everywhere, ThisMachine };
    static void setReach(Reach reach);

    explicit URLSession(URLSessionConfiguration configuration = {});

    /// Tasks begin when they are resumed.
    URLSessionTask dataTask(const URLRequest& request, DataCompletion completion) const;
    URLSessionTask downloadTask(const URLRequest& request, DownloadCompletion completion) const;

    /// Loads while the calling thread waits. Any thread but the main one of a loop; it needs none.
    URLAnswer loadSynchronously(const URLRequest& request) const;

private:
    URLSessionConfiguration configuration_;
    /// Tells the sessions' connections apart.
    std::uint64_t identifier_;
};

} // namespace foundation
