// One HTTP request on its way: what is asked, what has come so far, and how it ended.
//
// Made on any thread; then it belongs to the thread that HTTPThread runs it on until `ended` is called there,
// once, or the transfer is dropped without.
#pragma once

#include "platform/foundation/URLRequest.h"
#include "platform/foundation/URLSessionConfiguration.h"

#include <atomic>
#include <functional>
#include <memory>
#include <string_view>

typedef void CURL;

namespace foundation {

class HTTPTransfer {
public:
    using Ended = std::function<void(URLAnswer answer)>;

    /// Bytes a second; a server that is slower for as long as the request's time-out has stopped answering.
    static constexpr long leastSpeed = 64;
    static constexpr long mostRedirects = 5;
    static constexpr std::size_t largestHeaders = 256 * 1024; // bytes, those of all redirects together

    HTTPTransfer(const URLRequest& request, const URLSessionConfiguration& configuration,
                 std::uint64_t session);
    ~HTTPTransfer();
    HTTPTransfer(const HTTPTransfer&) = delete;
    HTTPTransfer& operator=(const HTTPTransfer&) = delete;

    /// Once, before the transfer is given to its thread.
    void setEnded(Ended ended) { ended_ = std::move(ended); }

    /// Any thread; HTTPThread then ends the transfer.
    void cancel() { cancelled_ = true; }
    bool isCancelled() const { return cancelled_; }

    /// Lets later transfers reach no other machine than this one.
    static void keepToThisMachine(bool keep);

    CURL* handle() const;
    /// Transfers of one session to one host share connections, and no more than mostConnections of them.
    bool sharesConnectionsWith(const HTTPTransfer& other) const {
        return session_ == other.session_ && host_ == other.host_;
    }
    int mostConnections() const { return mostConnections_; }

    /// Ends it as the library's code says, or as cancelled.
    void endWithCode(int code);
    void endAsCancelled();

private:
    struct Native;
    void configure(const URLRequest& request, const URLSessionConfiguration& configuration);
    void limitTime(const URLSessionConfiguration& configuration);
    void receive();
    void addHeaders(const std::map<std::string, std::string>& headers);
    bool receiveHeader(std::string_view line);
    bool receiveBody(std::string_view bytes);
    URLError errorOf(int code) const;
    void end(std::optional<URLError> error);

    std::unique_ptr<Native> native_;
    std::uint64_t session_;
    std::string host_;
    int mostConnections_;
    std::size_t maximumBytes_;
    std::size_t headerBytes_ = 0;
    bool tooLarge_ = false;
    bool outOfReach_ = false;
    std::atomic<bool> cancelled_ = false;
    URLAnswer answer_;
    Ended ended_;
};

} // namespace foundation
