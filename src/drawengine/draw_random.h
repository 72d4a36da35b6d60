#pragma once

#include <cstddef>
#include <cstdint>
#include <random>

namespace qv {

// The random picks of a draw: an index from 0 to count - 1, each equally likely. Tests hand in a seeded source.
class DrawRandom
{
public:
    virtual ~DrawRandom() = default;
    virtual std::size_t pick(std::size_t count) = 0;
};

// A fresh, unrepeatable sequence for every draw the user makes; a fixed seed repeats one for tests.
class SeededDrawRandom final : public DrawRandom
{
public:
    SeededDrawRandom()
        : m_engine(fresh_seed())
    {
    }
    explicit SeededDrawRandom(std::uint64_t seed)
        : m_engine(seed)
    {
    }

    std::size_t pick(std::size_t count) override
    {
        if (count == 0)
            return 0;
        return std::uniform_int_distribution<std::size_t>(0, count - 1)(m_engine);
    }

private:
    static std::uint64_t fresh_seed()
    {
        std::random_device device;
        return (static_cast<std::uint64_t>(device()) << 32) ^ device();
    }

    std::mt19937_64 m_engine;
};

} // namespace qv
