#include "hosts/lyrics-gateway/GatewayServer.h"

#include "hosts/lyrics-gateway/LyricPage.h"
#include "hosts/lyrics-gateway/SongRequest.h"

#include <stdexcept>

#include <arpa/inet.h>
#include <microhttpd.h>
#include <netinet/in.h>

namespace gateway {

namespace {

constexpr unsigned mostConnections = 32;
constexpr unsigned connectionTimeout = 30; // seconds without a word

constexpr const char* page = "text/html; charset=utf-8";
constexpr const char* plainText = "text/plain; charset=utf-8";

/// Called with the whole target, before the library takes it apart; what is answered goes along with the
/// request.
void* keepTarget(void*, const char* target, MHD_Connection*) {
    return new std::string(target);
}

void requestEnded(void*, MHD_Connection*, void** target, MHD_RequestTerminationCode) {
    delete static_cast<std::string*>(*target);
    *target = nullptr;
}

MHD_Result queue(MHD_Connection* connection, const GatewayServer::Answer& answer) {
    MHD_Response* response = MHD_create_response_from_buffer(
        answer.body.size(), const_cast<char*>(answer.body.data()), MHD_RESPMEM_MUST_COPY);
    if (!response)
        return MHD_NO;
    MHD_add_response_header(response, MHD_HTTP_HEADER_CONTENT_TYPE, answer.contentType);
    const MHD_Result result = MHD_queue_response(connection, static_cast<unsigned>(answer.status), response);
    MHD_destroy_response(response);
    return result;
}

MHD_Result handleRequest(void* server, MHD_Connection* connection, const char*, const char* method,
                         const char*, const char*, std::size_t*, void** target) {
    const std::string_view name = method;
    if (name != MHD_HTTP_METHOD_GET && name != MHD_HTTP_METHOD_HEAD)
        return queue(connection, {MHD_HTTP_METHOD_NOT_ALLOWED, plainText, "only GET is understood\n"});
    const auto* asked = static_cast<const std::string*>(*target);
    return queue(connection, static_cast<const GatewayServer*>(server)->answerTo(*asked));
}

} // namespace

GatewayServer::GatewayServer(LyricSource& source, int port) : source_(source) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    daemon_ = MHD_start_daemon(MHD_USE_AUTO | MHD_USE_INTERNAL_POLLING_THREAD | MHD_USE_THREAD_PER_CONNECTION,
                               0, nullptr, nullptr, handleRequest, this, MHD_OPTION_SOCK_ADDR,
                               reinterpret_cast<sockaddr*>(&address), MHD_OPTION_URI_LOG_CALLBACK, keepTarget,
                               nullptr, MHD_OPTION_NOTIFY_COMPLETED, requestEnded, nullptr,
                               MHD_OPTION_CONNECTION_LIMIT, mostConnections, MHD_OPTION_CONNECTION_TIMEOUT,
                               connectionTimeout, MHD_OPTION_END);
    if (!daemon_)
        throw std::runtime_error("port " + std::to_string(port) + " of this machine cannot be listened at");
}

GatewayServer::~GatewayServer() {
    MHD_stop_daemon(daemon_);
}

int GatewayServer::port() const {
    const MHD_DaemonInfo* information = MHD_get_daemon_info(daemon_, MHD_DAEMON_INFO_BIND_PORT);
    return information ? information->port : 0;
}

GatewayServer::Answer GatewayServer::answerTo(std::string_view target) const {
    using Kind = LyricAnswer::Kind;
    const auto song = SongRequest::parse(target);
    if (!song)
        return {MHD_HTTP_NOT_FOUND, plainText, "ask for /wiki/ARTIST:TITLE\n"};
    const LyricAnswer lyric = source_.find(song->artist, song->title);
    if (song->form == SongRequest::Form::PlainText)
        // No lyric is an empty text there, and no failure.
        return {lyric.kind == Kind::Failed ? MHD_HTTP_BAD_GATEWAY : MHD_HTTP_OK, plainText, lyric.text};
    switch (lyric.kind) {
    case Kind::Text:
        return {MHD_HTTP_OK, page, lyricPage(song->artist, song->title, lyric.text)};
    case Kind::None:
        return {MHD_HTTP_NOT_FOUND, page, emptyPage(song->artist, song->title, "No lyric is known.")};
    default:
        return {MHD_HTTP_BAD_GATEWAY, page,
                emptyPage(song->artist, song->title, "The lyrics service cannot be reached.")};
    }
}

} // namespace gateway
