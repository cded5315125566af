// Dice: the same throws for the same seed.
#pragma once

#include <cstdlib>
#include <iterator>
#include <random>

namespace counter::test {

// How often a random walk acts: RANDOM_ACTS=1000000 in the environment makes a campaign of it.
inline int RandomActs(int usual) {
    const char* const campaign = std::getenv("RANDOM_ACTS");
    return campaign ? std::atoi(campaign) : usual;
}

class Dice {
  public:
    explicit Dice(unsigned seed) : random_(seed) {}
    int Below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }
    bool OneIn(int times) { return Below(times) == 0; }
    template <class Items>
    const auto& Pick(const Items& items) {
        return *(std::begin(items) + Below(static_cast<int>(std::size(items))));
    }

  private:
    std::mt19937 random_;
};

}  // namespace counter::test
