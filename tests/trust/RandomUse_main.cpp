// The random use at length: RandomUseLong [OPERATIONS [SEED]].

#include "RandomUse.h"

#include <cstdlib>
#include <iostream>
#include <stdexcept>

int main(int argc, char** argv)
{
    const long operations = argc > 1 ? std::atol(argv[1]) : 10000000;
    const auto seed = static_cast<std::uint64_t>(argc > 2 ? std::atoll(argv[2]) : 1);
    constexpr int kStepsOfOneUse = 50000;
    long done = 0;
    long refused = 0;
    for (std::uint64_t run = seed; done < operations; ++run) {
        SeededChoices choices(run);
        RandomUse use(choices);
        try {
            for (; use.Steps() < kStepsOfOneUse && done < operations; ++done) {
                use.Step();
            }
            use.CheckState();
        } catch (const std::logic_error& difference) {
            std::cerr << "seed " << run << ": " << difference.what() << '\n';
            return 1;
        }
        refused += use.Refused();
    }
    std::cout << done << " operations from seed " << seed << ", " << refused << " of them refused: no difference\n";
    return WatchedPrototype::s_alive == 0 ? 0 : 1;
}
