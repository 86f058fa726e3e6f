// What a process uses, as the kernel counts it.
#pragma once

namespace tests {

class ProcessUse {
public:
    explicit ProcessUse(int process) : process_(process) {}

    /// Times that it has been woken, all of its threads together.
    long wakeUps() const;
    /// Memory that it has for itself and its share of what it shares with others; megabytes.
    double proportionalMemory() const;
    /// Memory that it has written to and nobody else sees; megabytes.
    double ownMemory() const;

private:
    double memory(const char* field) const;

    int process_;
};

} // namespace tests
