// SPDX-License-Identifier: Apache-2.0
#ifndef TEST_PPS_VALUEGENERATOR_H
#define TEST_PPS_VALUEGENERATOR_H

#include "Value.h"

#include <cstdint>
#include <random>
#include <string>

namespace test {

/** Makes values that a message can carry, the odd ones more often than chance would. */
class ValueGenerator
{
public:
    explicit ValueGenerator(std::uint32_t seed) : m_random(seed) {}

    /** Members for the top level of a message in text mode. */
    Value::Object message();

private:
    std::size_t below(std::size_t limit);
    std::uint64_t bits();
    double real();
    std::string string();
    std::string attributeName();
    Value value(int depth);

    std::mt19937 m_random;
};

} // namespace test

#endif
