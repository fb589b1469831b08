#pragma once

#include <iterator>
#include <numeric>
#include <random>

/// The choices of one step of a walk: the same for the same seed and step, whatever the steps before have done.
class WalkDice
{
public:
    WalkDice(unsigned seed, unsigned step)
    {
        std::seed_seq sequence{seed, step};
        m_engine.seed(sequence);
    }

    /// From 0 to `end` - 1; 0 where `end` is less than 1.
    int below(int end) { return end < 1 ? 0 : static_cast<int>(m_engine() % static_cast<unsigned>(end)); }
    bool oneIn(int count) { return below(count) == 0; }
    /// One of the elements of an array or a list that is not empty.
    template <class Choices>
    auto oneOf(const Choices& choices)
    {
        return *(std::begin(choices) + below(static_cast<int>(std::size(choices))));
    }

    /// One of some kinds, the more often the greater its `weight`.
    template <class Kinds>
    const auto& kindOf(const Kinds& kinds)
    {
        const auto add = [](int sum, const auto& kind) { return sum + kind.weight; };
        int place = below(std::accumulate(std::begin(kinds), std::end(kinds), 0, add));
        auto kind = std::begin(kinds);
        for (; place >= kind->weight; ++kind)
            place -= kind->weight;
        return *kind;
    }

private:
    std::minstd_rand m_engine;
};
