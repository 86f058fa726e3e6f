// How many times this process has asked for memory.
#pragma once

#include <cstddef>

namespace tests {

std::size_t allocationCount();

} // namespace tests
