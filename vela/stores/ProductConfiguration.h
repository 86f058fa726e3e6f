// Which services on the network the product talks to.
//
// One property list says so, read afresh on every call: whoever runs a lyrics wiki or a catalogue of their
// own names it there. An address that is missing there is empty, and whatever is asked of it fails. Base
// addresses are a scheme and a host without a slash at the end. Any thread.
#pragma once

#include <string>

namespace vela {

class ProductConfiguration {
public:
    static const ProductConfiguration& shared();

    /// Base address of the lyrics wiki.
    std::string lyrics() const;
    /// Base address of the music catalogue's search.
    std::string catalogue() const;
    /// Base address of the social network's pages.
    std::string socialWebHost() const;
    /// The document that teaches how to write plug-ins.
    std::string developerTutorial() const;
    /// The stream that the welcome screen leads to.
    std::string tutorialVideo() const;

private:
    ProductConfiguration() = default;
};

} // namespace vela
