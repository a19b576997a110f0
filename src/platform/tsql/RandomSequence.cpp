#include "platform/tsql/RandomSequence.h"

#include <QRandomGenerator>

namespace zlx::tsql {
namespace {

constexpr std::int64_t kFirstModulus = 2147483563;
constexpr std::int64_t kSecondModulus = 2147483399;
constexpr std::int64_t kFirstMultiplier = 40014;
constexpr std::int64_t kSecondMultiplier = 40692;
constexpr std::int64_t kZeroSeedState = 12345;
constexpr std::int64_t kSecondState = 67890;
constexpr double kDivisor = 2147483589.4672801884116202;

} // namespace

RandomSequence::RandomSequence() {
    Seed(QRandomGenerator::global()->bounded(static_cast<qint64>(kFirstModulus)));
}

bool RandomSequence::KnowsSeed(std::int64_t seed) {
    return seed >= 0 && seed < kFirstModulus;
}

void RandomSequence::Seed(std::int64_t seed) {
    m_first = seed == 0 ? kZeroSeedState : seed;
    m_second = kSecondState;
}

double RandomSequence::Next() {
    m_first = m_first * kFirstMultiplier % kFirstModulus;
    m_second = m_second * kSecondMultiplier % kSecondModulus;
    std::int64_t difference = m_first - m_second;
    if (difference < 1) difference += kFirstModulus - 1;
    return static_cast<double>(difference) / kDivisor;
}

} // namespace zlx::tsql
