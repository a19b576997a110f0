#pragma once
// RAND as SQL Server draws it: L'Ecuyer's combined multiplicative generator, two states stepped
// by 40014 modulo 2147483563 and by 40692 modulo 2147483399, each value their difference (made
// positive) over 2147483589.4672801884116202. A seed sets the states (the first to the seed, or
// to 12345 for 0; the second to 67890); RAND() goes on from the last seed, as in SQL Server the
// connection's sequence does.

#include <cstdint>

namespace zlx::tsql {

class RandomSequence {
public:
    // A sequence from a seed of its own, as a new connection's.
    RandomSequence();

    // Whether SQL Server's values are known for `seed`: 0 up to the first modulus (a negative
    // seed's are not).
    static bool KnowsSeed(std::int64_t seed);
    // Starts again from `seed` (one KnowsSeed accepts).
    void Seed(std::int64_t seed);
    double Next();

private:
    std::int64_t m_first = 0;
    std::int64_t m_second = 0;
};

} // namespace zlx::tsql
