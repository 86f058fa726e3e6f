#include "tests/session/FilteredLine.h"

#include <cstring>

namespace tests {

namespace {

constexpr std::size_t headerBytes = 8;
constexpr std::uint32_t displayObject = 1;
constexpr std::uint32_t getRegistry = 1; // a request of the display
constexpr std::uint32_t global = 0;      // events of a registry
constexpr std::uint32_t globalRemove = 1;
constexpr std::uint32_t bindGlobal = 0;     // a request of a registry
constexpr std::uint32_t getOutputPower = 0; // a request of a power manager
constexpr std::uint32_t destroyPower = 1;   // a request of an output's power
constexpr std::uint32_t powerMode = 0;      // events of an output's power
constexpr std::uint32_t powerFailed = 1;

/// The word at a place that lies within the message; 0 when it does not.
std::uint32_t word(std::string_view message, std::size_t index) {
    std::uint32_t value = 0;
    if (message.size() >= (index + 1) * sizeof value)
        std::memcpy(&value, message.data() + index * sizeof value, sizeof value);
    return value;
}

std::uint32_t objectOf(std::string_view message) {
    return word(message, 0);
}

std::uint32_t operationOf(std::string_view message) {
    return word(message, 1) & 0xFFFF;
}

std::size_t sizeOf(std::string_view message) {
    return word(message, 1) >> 16;
}

/// The text argument whose length stands at a place; empty for one that does not lie within the message.
std::string_view text(std::string_view message, std::size_t index) {
    const std::size_t start = (index + 1) * sizeof(std::uint32_t), length = word(message, index);
    if (length == 0 || start > message.size() || length > message.size() - start)
        return {};
    return message.substr(start, length - 1); // without the zero at its end
}

} // namespace

FilteredLine::FilteredLine(WireSocket client, WireSocket compositor, std::set<std::string> hidden)
    : client_(std::move(client)),
      compositor_(std::move(compositor)),
      hidden_(std::move(hidden)),
      requests_([this] { serve(client_, compositor_, &FilteredLine::request); }),
      events_([this] { serve(compositor_, client_, &FilteredLine::event); }) {}

FilteredLine::~FilteredLine() {
    client_.shutDown();
    compositor_.shutDown();
}

void FilteredLine::tell(Power power) {
    const auto append = [](std::string& bytes, std::uint32_t value) {
        bytes.append(reinterpret_cast<const char*>(&value), sizeof value);
    };
    WireParcel parcel;
    {
        const std::lock_guard lock(mutex_);
        for (const std::uint32_t object : powers_) {
            const bool known = power != Power::Unknown;
            const std::size_t size = headerBytes + (known ? sizeof(std::uint32_t) : 0);
            append(parcel.bytes, object);
            append(parcel.bytes, static_cast<std::uint32_t>(size) << 16 | (known ? powerMode : powerFailed));
            if (known)
                append(parcel.bytes, power == Power::On ? 1 : 0);
        }
    }
    const std::lock_guard lock(saying_);
    client_.send(parcel);
}

FilteredLine::Passes FilteredLine::request(std::string_view message) {
    const std::uint32_t object = objectOf(message), operation = operationOf(message);
    const std::lock_guard lock(mutex_);
    if (object == displayObject && operation == getRegistry)
        registries_.insert(word(message, 2));
    else if (registries_.contains(object) && operation == bindGlobal)
        noteBinding(message);
    else if (powerManagers_.contains(object) && operation == getOutputPower)
        powers_.insert(word(message, 2));
    else if (operation == destroyPower)
        powers_.erase(object);
    return Passes::Yes;
}

/// A global's name, its interface, its version and the new object's number.
void FilteredLine::noteBinding(std::string_view message) {
    const std::size_t textWords = (word(message, 3) + std::size_t{3}) / sizeof(std::uint32_t);
    if (text(message, 3) == "zwlr_output_power_manager_v1")
        powerManagers_.insert(word(message, 3 + 1 + textWords + 1));
}

FilteredLine::Passes FilteredLine::event(std::string_view message) {
    {
        const std::lock_guard lock(mutex_);
        if (!registries_.contains(objectOf(message)))
            return Passes::Yes;
    }
    const std::uint32_t name = word(message, 2);
    if (operationOf(message) == global && hidden_.contains(std::string(text(message, 3)))) {
        names_.insert(name);
        return Passes::No;
    }
    return operationOf(message) == globalRemove && names_.contains(name) ? Passes::No : Passes::Yes;
}

void FilteredLine::serve(const WireSocket& from, const WireSocket& to, Look look) {
    WireParcel parcel;
    while (from.receive(parcel) && passOn(parcel, to, look)) {
    }
    from.shutDown();
    to.shutDown();
}

/// Passes on every message that is complete, and leaves the rest; false when the line is broken.
bool FilteredLine::passOn(WireParcel& parcel, const WireSocket& to, Look look) {
    WireParcel passed;
    std::string_view rest = parcel.bytes;
    while (rest.size() >= headerBytes && sizeOf(rest) <= rest.size()) {
        if (sizeOf(rest) < headerBytes)
            return false;
        const std::string_view message = rest.substr(0, sizeOf(rest));
        if ((this->*look)(message) == Passes::Yes)
            passed.bytes.append(message);
        rest.remove_prefix(message.size());
    }
    parcel.bytes.erase(0, parcel.bytes.size() - rest.size());
    if (passed.bytes.empty())
        return true;
    passed.files.swap(parcel.files);
    std::unique_lock lock(saying_, std::defer_lock);
    if (&to == &client_)
        lock.lock();
    return to.send(passed);
}

} // namespace tests
