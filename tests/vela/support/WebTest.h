// A product whose lyrics wiki and music catalogue are a server of the test's own.
#pragma once

#include "platform/foundation/FileManager.h"
#include "tests/support/http/LocalHttpServer.h"
#include "tests/vela/support/ProductTest.h"
#include "vela/nowplaying/velaWebManager.h"
#include "vela/stores/Paths.h"
#include "vela/stores/VelaSettingsManager.h"

namespace tests {

class WebTest : public ProductTest {
protected:
    using Connection = LocalHttpServer::Connection;
    using Request = LocalHttpServer::Request;

    WebTest() { foundation::FileManager::shared().createDirectories(vela::paths::artworks); }

    void serve(LocalHttpServer::Handler handler) {
        server = std::make_unique<LocalHttpServer>(std::move(handler));
        configure(server->address());
    }
    static void configure(const std::string& address) {
        foundation::FileManager::shared().writeDictionaryAtomically(
            vela::paths::configuration, {{"Lyrics", address}, {"Catalogue", address}});
    }
    /// Nobody answers there.
    static std::string deadAddress() {
        return "http://127.0.0.1:" + std::to_string(LocalHttpServer::unusedPort());
    }

    vela::VelaSettingsManager& store = vela::VelaSettingsManager::sharedInstance();
    vela::velaWebManager& web = vela::velaWebManager::sharedInstance();
    std::unique_ptr<LocalHttpServer> server;
};

} // namespace tests
