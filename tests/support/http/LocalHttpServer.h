// A real HTTP server on 127.0.0.1 that answers as a test says: well, slowly, wrongly or not at all.
//
// Each connection has a thread and one request. When the server goes, every connection is cut.
#pragma once

#include <functional>
#include <list>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace tests {

class LocalHttpServer {
public:
    struct Request {
        std::string method;
        /// What stands in the request line, query included.
        std::string target;
        /// By lower-case names.
        std::map<std::string, std::string> headers;
    };

    /// The other end of a request. What is sent to someone who has gone is lost.
    class Connection {
    public:
        explicit Connection(int socket) : socket_(socket) {}

        void answer(int status, const std::string& contentType, const std::string& body);
        void redirect(const std::string& location);
        /// Any bytes; false when the other side has gone.
        bool send(const std::string& bytes);
        /// One byte after the other with a pause in between, until the other side has gone.
        void drip(const std::string& bytes, double pause);
        /// Stays silent until the other side has gone.
        void waitForEnd();

    private:
        bool isGoneWithin(double seconds);
        int socket_;
    };
    using Handler = std::function<void(const Request&, Connection&)>;

    explicit LocalHttpServer(Handler handler);
    ~LocalHttpServer();
    LocalHttpServer(const LocalHttpServer&) = delete;
    LocalHttpServer& operator=(const LocalHttpServer&) = delete;

    /// "http://127.0.0.1:PORT"
    std::string address() const;
    int port() const { return port_; }
    /// The requests so far, in the order in which they came.
    std::vector<Request> requests() const;
    std::vector<std::string> targets() const;

    /// A port of this machine that nobody listens at.
    static int unusedPort();

private:
    void accept();
    void serve(int socket);

    Handler handler_;
    int port_ = 0;
    int socket_; // whose making sets the port
    mutable std::mutex mutex_;
    bool stopping_ = false;
    std::vector<Request> requests_;
    std::list<int> open_;
    std::list<std::thread> threads_;
    std::thread accepting_;
};

} // namespace tests
