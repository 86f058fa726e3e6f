#include "tests/support/http/LocalHttpServer.h"

#include <algorithm>
#include <cctype>
#include <chrono>
#include <optional>
#include <sstream>
#include <stdexcept>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace tests {

namespace {

int listeningSocket(int& port) {
    const int listening = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    auto* generic = reinterpret_cast<sockaddr*>(&address);
    if (listening < 0 || bind(listening, generic, length) != 0 || listen(listening, 64) != 0 ||
        getsockname(listening, generic, &length) != 0)
        throw std::runtime_error("no port of this machine can be listened at");
    port = ntohs(address.sin_port);
    return listening;
}

std::string lowerCase(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

LocalHttpServer::Request parse(const std::string& text) {
    LocalHttpServer::Request request;
    std::istringstream lines(text);
    lines >> request.method;
    // Targets may hold anything but line ends; the version stands behind the last space.
    std::string line;
    std::getline(lines, line);
    request.target = line.substr(1, line.rfind(' ') - 1);
    while (std::getline(lines, line)) {
        const auto colon = line.find(": ");
        if (colon != std::string::npos)
            request.headers[lowerCase(line.substr(0, colon))] =
                line.substr(colon + 2, line.find('\r') - colon - 2);
    }
    return request;
}

std::optional<std::string> receiveRequest(int socket) {
    std::string text;
    char buffer[4096];
    while (text.find("\r\n\r\n") == std::string::npos) {
        const ssize_t count = recv(socket, buffer, sizeof buffer, 0);
        if (count <= 0)
            return std::nullopt;
        text.append(buffer, static_cast<std::size_t>(count));
    }
    return text;
}

} // namespace

bool LocalHttpServer::Connection::send(const std::string& bytes) {
    std::size_t sent = 0;
    while (sent < bytes.size()) {
        const ssize_t count = ::send(socket_, bytes.data() + sent, bytes.size() - sent, MSG_NOSIGNAL);
        if (count <= 0)
            return false;
        sent += static_cast<std::size_t>(count);
    }
    return true;
}

void LocalHttpServer::Connection::answer(int status, const std::string& contentType,
                                         const std::string& body) {
    send("HTTP/1.1 " + std::to_string(status) + " Status\r\nContent-Type: " + contentType +
         "\r\nContent-Length: " + std::to_string(body.size()) + "\r\nConnection: close\r\n\r\n" + body);
}

void LocalHttpServer::Connection::redirect(const std::string& location) {
    send("HTTP/1.1 302 Found\r\nLocation: " + location +
         "\r\nContent-Length: 0\r\nConnection: close\r\n\r\n");
}

bool LocalHttpServer::Connection::isGoneWithin(double seconds) {
    pollfd waiting{socket_, POLLIN, 0};
    if (poll(&waiting, 1, static_cast<int>(seconds * 1000)) <= 0)
        return false;
    char byte;
    return recv(socket_, &byte, 1, MSG_PEEK) <= 0;
}

void LocalHttpServer::Connection::drip(const std::string& bytes, double pause) {
    for (const char byte : bytes)
        if (!send(std::string(1, byte)) || isGoneWithin(pause))
            return;
}

void LocalHttpServer::Connection::waitForEnd() {
    while (!isGoneWithin(60)) {
    }
}

LocalHttpServer::LocalHttpServer(Handler handler)
    : handler_(std::move(handler)), socket_(listeningSocket(port_)), accepting_([this] { accept(); }) {}

LocalHttpServer::~LocalHttpServer() {
    {
        std::lock_guard lock(mutex_);
        stopping_ = true;
        for (const int socket : open_)
            shutdown(socket, SHUT_RDWR);
    }
    shutdown(socket_, SHUT_RDWR);
    accepting_.join();
    for (auto& thread : threads_)
        thread.join();
    close(socket_);
}

void LocalHttpServer::accept() {
    for (;;) {
        const int connection = accept4(socket_, nullptr, nullptr, SOCK_CLOEXEC);
        if (connection < 0)
            return;
        std::lock_guard lock(mutex_);
        if (stopping_) {
            close(connection);
            return;
        }
        open_.push_back(connection);
        threads_.emplace_back([this, connection] { serve(connection); });
    }
}

void LocalHttpServer::serve(int socket) {
    if (const auto text = receiveRequest(socket)) {
        const Request request = parse(*text);
        {
            std::lock_guard lock(mutex_);
            requests_.push_back(request);
        }
        Connection connection(socket);
        handler_(request, connection);
    }
    std::lock_guard lock(mutex_);
    open_.remove(socket);
    close(socket);
}

std::string LocalHttpServer::address() const {
    return "http://127.0.0.1:" + std::to_string(port_);
}

std::vector<LocalHttpServer::Request> LocalHttpServer::requests() const {
    std::lock_guard lock(mutex_);
    return requests_;
}

std::vector<std::string> LocalHttpServer::targets() const {
    std::vector<std::string> targets;
    for (const Request& request : requests())
        targets.push_back(request.target);
    return targets;
}

int LocalHttpServer::unusedPort() {
    int port = 0;
    close(listeningSocket(port));
    return port;
}

} // namespace tests
