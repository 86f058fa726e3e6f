#include "platform/foundation/HTTPTransfer.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include <arpa/inet.h>
#include <curl/curl.h>
#include <glib.h>
#include <netinet/in.h>
#include <sys/socket.h>

namespace foundation {

namespace {

constexpr const char* allowedSchemes = "http,https";

std::atomic<bool> onlyThisMachine = false;

struct FreeList {
    void operator()(curl_slist* list) const { curl_slist_free_all(list); }
};
struct FreeHandle {
    void operator()(CURL* handle) const { curl_easy_cleanup(handle); }
};
struct FreeURL {
    void operator()(CURLU* url) const { curl_url_cleanup(url); }
};

/// The address's host and port in lower case; empty for one that has none.
std::string hostOf(const std::string& address) {
    const std::unique_ptr<CURLU, FreeURL> url(curl_url());
    char* host = nullptr;
    char* port = nullptr;
    std::string result;
    if (curl_url_set(url.get(), CURLUPART_URL, address.c_str(), 0) == CURLUE_OK &&
        curl_url_get(url.get(), CURLUPART_HOST, &host, 0) == CURLUE_OK &&
        curl_url_get(url.get(), CURLUPART_PORT, &port, CURLU_DEFAULT_PORT) == CURLUE_OK)
        result = std::string(host) + ":" + port;
    curl_free(host);
    curl_free(port);
    std::transform(result.begin(), result.end(), result.begin(), g_ascii_tolower);
    return result;
}

/// This machine's own services are never asked through a proxy.
bool isThisMachine(const std::string& hostAndPort) {
    const std::string host = hostAndPort.substr(0, hostAndPort.rfind(':'));
    in_addr number{};
    if (inet_pton(AF_INET, host.c_str(), &number) == 1)
        return ntohl(number.s_addr) >> 24 == IN_LOOPBACKNET;
    return host == "localhost" || host == "[::1]";
}

bool isThisMachine(const sockaddr& address) {
    if (address.sa_family == AF_INET)
        return ntohl(reinterpret_cast<const sockaddr_in&>(address).sin_addr.s_addr) >> 24 == IN_LOOPBACKNET;
    return address.sa_family == AF_INET6 &&
           IN6_IS_ADDR_LOOPBACK(&reinterpret_cast<const sockaddr_in6&>(address).sin6_addr);
}

/// Redirects may lead further than the request's own address. Programs that are started inherit no
/// connection.
curl_socket_t openSocket(void*, curlsocktype, curl_sockaddr* address) {
    if (onlyThisMachine && !isThisMachine(address->addr))
        return CURL_SOCKET_BAD;
    return socket(address->family, address->socktype | SOCK_CLOEXEC, address->protocol);
}

long milliseconds(double seconds) {
    return std::max(1L, std::lround(std::clamp(seconds, 0.0, 1e6) * 1000));
}

long wholeSeconds(double seconds) {
    return std::max(1L, std::lround(std::ceil(std::clamp(seconds, 0.0, 1e6))));
}

bool isHeaderText(const std::string& text) {
    return std::none_of(text.begin(), text.end(), [](char c) { return c == '\r' || c == '\n' || c == '\0'; });
}

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && g_ascii_isspace(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && g_ascii_isspace(text.back()))
        text.remove_suffix(1);
    return text;
}

URLErrorCode codeOf(CURLcode code) {
    switch (code) {
    case CURLE_OPERATION_TIMEDOUT:
        return URLErrorCode::TimedOut;
    case CURLE_URL_MALFORMAT:
        return URLErrorCode::BadURL;
    case CURLE_UNSUPPORTED_PROTOCOL:
        return URLErrorCode::UnsupportedURL;
    case CURLE_COULDNT_RESOLVE_HOST:
    case CURLE_COULDNT_RESOLVE_PROXY:
        return URLErrorCode::CannotFindHost;
    case CURLE_COULDNT_CONNECT:
        return URLErrorCode::CannotConnectToHost;
    case CURLE_GOT_NOTHING:
    case CURLE_PARTIAL_FILE:
    case CURLE_RECV_ERROR:
    case CURLE_SEND_ERROR:
        return URLErrorCode::NetworkConnectionLost;
    case CURLE_TOO_MANY_REDIRECTS:
        return URLErrorCode::TooManyRedirects;
    case CURLE_FILESIZE_EXCEEDED:
        return URLErrorCode::DataLengthExceedsMaximum;
    case CURLE_SSL_CONNECT_ERROR:
    case CURLE_PEER_FAILED_VERIFICATION:
    case CURLE_SSL_CACERT_BADFILE:
        return URLErrorCode::SecureConnectionFailed;
    case CURLE_WEIRD_SERVER_REPLY:
    case CURLE_BAD_CONTENT_ENCODING:
    case CURLE_HTTP2:
    case CURLE_HTTP2_STREAM:
        return URLErrorCode::BadServerResponse;
    default:
        return URLErrorCode::Unknown;
    }
}

} // namespace

struct HTTPTransfer::Native {
    std::unique_ptr<CURL, FreeHandle> handle{curl_easy_init()};
    std::unique_ptr<curl_slist, FreeList> headers;

    /// A function as the library calls it; what it did not take ends the transfer.
    template <bool (HTTPTransfer::*receive)(std::string_view)>
    static std::size_t call(char* bytes, std::size_t size, std::size_t count, void* transfer) {
        const std::size_t length = size * count;
        return (static_cast<HTTPTransfer*>(transfer)->*receive)({bytes, length}) ? length
                                                                                 : CURL_WRITEFUNC_ERROR;
    }
};

HTTPTransfer::HTTPTransfer(const URLRequest& request, const URLSessionConfiguration& configuration,
                           std::uint64_t session)
    : native_(std::make_unique<Native>()),
      session_(session),
      host_(hostOf(request.url)),
      mostConnections_(configuration.HTTPMaximumConnectionsPerHost),
      maximumBytes_(request.maximumBytes) {
    configure(request, configuration);
}

HTTPTransfer::~HTTPTransfer() = default;

void HTTPTransfer::keepToThisMachine(bool keep) {
    onlyThisMachine = keep;
}

CURL* HTTPTransfer::handle() const {
    return native_->handle.get();
}

void HTTPTransfer::configure(const URLRequest& request, const URLSessionConfiguration& configuration) {
    CURL* curl = handle();
    outOfReach_ = onlyThisMachine && !isThisMachine(host_);
    // A text that ends early for the library would be another address than the one that was asked for.
    const bool whole = request.url.find('\0') == std::string::npos;
    curl_easy_setopt(curl, CURLOPT_URL, whole && !outOfReach_ ? request.url.c_str() : "");
    curl_easy_setopt(curl, CURLOPT_OPENSOCKETFUNCTION, &openSocket);
    curl_easy_setopt(curl, CURLOPT_PATH_AS_IS, 1L);
    curl_easy_setopt(curl, CURLOPT_PROTOCOLS_STR, allowedSchemes);
    curl_easy_setopt(curl, CURLOPT_REDIR_PROTOCOLS_STR, allowedSchemes);
    curl_easy_setopt(curl, CURLOPT_FOLLOWLOCATION, 1L);
    curl_easy_setopt(curl, CURLOPT_MAXREDIRS, mostRedirects);
    curl_easy_setopt(curl, CURLOPT_ACCEPT_ENCODING, "");
    curl_easy_setopt(curl, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(curl, CURLOPT_QUICK_EXIT, 1L);
    if (isThisMachine(host_))
        curl_easy_setopt(curl, CURLOPT_PROXY, "");
    if (request.method == "HEAD")
        curl_easy_setopt(curl, CURLOPT_NOBODY, 1L);
    else if (request.method != "GET" && isHeaderText(request.method))
        curl_easy_setopt(curl, CURLOPT_CUSTOMREQUEST, request.method.c_str());
    curl_easy_setopt(curl, CURLOPT_PRIVATE, this);
    limitTime(configuration);
    receive();

    auto headers = request.headers;
    headers.insert(configuration.HTTPAdditionalHeaders.begin(), configuration.HTTPAdditionalHeaders.end());
    addHeaders(headers);
}

void HTTPTransfer::limitTime(const URLSessionConfiguration& configuration) {
    CURL* curl = handle();
    const double patience =
        std::min(configuration.timeoutIntervalForRequest, configuration.timeoutIntervalForResource);
    curl_easy_setopt(curl, CURLOPT_CONNECTTIMEOUT_MS, milliseconds(patience));
    curl_easy_setopt(curl, CURLOPT_LOW_SPEED_LIMIT, leastSpeed);
    curl_easy_setopt(curl, CURLOPT_LOW_SPEED_TIME, wholeSeconds(patience));
    curl_easy_setopt(curl, CURLOPT_TIMEOUT_MS, milliseconds(configuration.timeoutIntervalForResource));
}

void HTTPTransfer::receive() {
    CURL* curl = handle();
    curl_easy_setopt(curl, CURLOPT_MAXFILESIZE_LARGE, static_cast<curl_off_t>(maximumBytes_));
    curl_easy_setopt(curl, CURLOPT_HEADERFUNCTION, &Native::call<&HTTPTransfer::receiveHeader>);
    curl_easy_setopt(curl, CURLOPT_HEADERDATA, this);
    curl_easy_setopt(curl, CURLOPT_WRITEFUNCTION, &Native::call<&HTTPTransfer::receiveBody>);
    curl_easy_setopt(curl, CURLOPT_WRITEDATA, this);
}

void HTTPTransfer::addHeaders(const std::map<std::string, std::string>& headers) {
    for (const auto& [name, value] : headers) {
        if (!isHeaderText(name) || !isHeaderText(value))
            continue;
        curl_slist* longer = curl_slist_append(native_->headers.get(), (name + ": " + value).c_str());
        if (!longer)
            continue;
        native_->headers.release();
        native_->headers.reset(longer);
    }
    curl_easy_setopt(handle(), CURLOPT_HTTPHEADER, native_->headers.get());
}

bool HTTPTransfer::receiveHeader(std::string_view line) {
    headerBytes_ += line.size();
    if (headerBytes_ > largestHeaders) {
        tooLarge_ = true;
        return false;
    }
    // Each redirect begins with a status line of its own.
    if (line.starts_with("HTTP/"))
        answer_.response.headers.clear();
    const std::size_t colon = line.find(':');
    if (colon == std::string_view::npos)
        return true;
    std::string name(trimmed(line.substr(0, colon)));
    std::transform(name.begin(), name.end(), name.begin(), g_ascii_tolower);
    answer_.response.headers[std::move(name)] = trimmed(line.substr(colon + 1));
    return true;
}

bool HTTPTransfer::receiveBody(std::string_view bytes) {
    // The length that the server names was checked before; this is the one of what it sends, uncompressed.
    if (bytes.size() > maximumBytes_ - answer_.body.size()) {
        tooLarge_ = true;
        return false;
    }
    answer_.body.insert(answer_.body.end(), bytes.begin(), bytes.end());
    return true;
}

URLError HTTPTransfer::errorOf(int code) const {
    if (outOfReach_)
        return {URLErrorCode::NotConnectedToInternet, "only this machine may be reached"};
    const auto native = static_cast<CURLcode>(code);
    return {tooLarge_ ? URLErrorCode::DataLengthExceedsMaximum : codeOf(native), curl_easy_strerror(native)};
}

void HTTPTransfer::endWithCode(int code) {
    long status = 0;
    curl_easy_getinfo(handle(), CURLINFO_RESPONSE_CODE, &status);
    answer_.response.statusCode = static_cast<int>(status);
    end(code == CURLE_OK ? std::nullopt : std::optional(errorOf(code)));
}

void HTTPTransfer::endAsCancelled() {
    end(URLError{URLErrorCode::Cancelled, "cancelled"});
}

void HTTPTransfer::end(std::optional<URLError> error) {
    if (error)
        answer_.body.clear();
    answer_.error = std::move(error);
    if (auto ended = std::exchange(ended_, nullptr))
        ended(std::move(answer_));
}

} // namespace foundation
