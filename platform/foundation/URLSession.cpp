#include "platform/foundation/URLSession.h"

#include "platform/foundation/FileManager.h"
#include "platform/foundation/HTTPThread.h"
#include "platform/foundation/HTTPTransfer.h"

#include <atomic>
#include <future>
#include <random>

namespace foundation {

namespace {

constexpr const char* temporaryFolder = "/var/mobile/tmp";

std::uint64_t nextNumber() {
    static std::atomic<std::uint64_t> last = 0;
    return ++last;
}

/// Names of downloads of several processes on one device do not meet.
std::string temporaryLocation() {
    static const auto process = std::to_string(std::random_device()());
    return std::string(temporaryFolder) + "/download-" + process + "-" + std::to_string(nextNumber());
}

void completeDownload(const URLAnswer& answer, const URLSession::DownloadCompletion& completion) {
    if (answer.error)
        return completion({}, answer.response, answer.error);
    const auto& files = FileManager::shared();
    const std::string location = temporaryLocation();
    if (!files.createDirectories(temporaryFolder) || !files.writeAtomically(location, answer.body))
        return completion({}, answer.response,
                          URLError{URLErrorCode::CannotCreateFile, "the file cannot be written"});
    completion(location, answer.response, std::nullopt);
    files.removeFile(location);
}

} // namespace

void URLSession::setReach(Reach reach) {
    HTTPTransfer::keepToThisMachine(reach == Reach::ThisMachine);
}

URLSession::URLSession(URLSessionConfiguration configuration)
    : configuration_(std::move(configuration)), identifier_(nextNumber()) {}

URLSessionTask URLSession::dataTask(const URLRequest& request, DataCompletion completion) const {
    return {std::make_shared<HTTPTransfer>(request, configuration_, identifier_), std::move(completion)};
}

URLSessionTask URLSession::downloadTask(const URLRequest& request, DownloadCompletion completion) const {
    return dataTask(request, [completion = std::move(completion)](const URLAnswer& answer) {
        completeDownload(answer, completion);
    });
}

URLAnswer URLSession::loadSynchronously(const URLRequest& request) const {
    auto promise = std::make_shared<std::promise<URLAnswer>>();
    auto future = promise->get_future();
    auto transfer = std::make_shared<HTTPTransfer>(request, configuration_, identifier_);
    transfer->setEnded(
        [promise = std::move(promise)](URLAnswer answer) { promise->set_value(std::move(answer)); });
    HTTPThread::start(transfer);
    transfer.reset();
    try {
        return future.get();
    } catch (const std::future_error&) { // the thread was stopped, which drops the transfer and the promise
        return {{}, {}, URLError{URLErrorCode::Cancelled, "cancelled"}};
    }
}

} // namespace foundation
