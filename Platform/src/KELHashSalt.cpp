#if defined(_WIN32)
#define _CRT_RAND_S // so that the C library declares rand_s
#endif

#include "KELHashSalt.h"

#include <chrono>
#include <cstdlib>
#include <cstring>
#include <random>

namespace {

// The four words that SipHash stirs.
class SipState {
public:
    explicit SipState(const KELHashSalt& iSalt)
        : m_v0(iSalt.first ^ 0x736F6D6570736575U), m_v1(iSalt.second ^ 0x646F72616E646F6DU),
          m_v2(iSalt.first ^ 0x6C7967656E657261U), m_v3(iSalt.second ^ 0x7465646279746573U)
    {
    }

    void Add(std::uint64_t iWord)
    {
        m_v3 ^= iWord;
        Stir();
        m_v0 ^= iWord;
    }

    std::uint64_t Finish()
    {
        m_v2 ^= 0xFFU;
        Stir();
        Stir();
        Stir();
        return m_v0 ^ m_v1 ^ m_v2 ^ m_v3;
    }

private:
    static std::uint64_t Rotate(std::uint64_t iWord, unsigned int iBits)
    {
        return iWord << iBits | iWord >> (64U - iBits);
    }

    void Stir()
    {
        m_v0 += m_v1;
        m_v1 = Rotate(m_v1, 13) ^ m_v0;
        m_v0 = Rotate(m_v0, 32);
        m_v2 += m_v3;
        m_v3 = Rotate(m_v3, 16) ^ m_v2;
        m_v0 += m_v3;
        m_v3 = Rotate(m_v3, 21) ^ m_v0;
        m_v2 += m_v1;
        m_v1 = Rotate(m_v1, 17) ^ m_v2;
        m_v2 = Rotate(m_v2, 32);
    }

    std::uint64_t m_v0;
    std::uint64_t m_v1;
    std::uint64_t m_v2;
    std::uint64_t m_v3;
};

std::uint64_t LastWord(const char* iBytes, std::size_t iLeft, std::size_t iLength)
{
    std::uint64_t word = 0;
    std::memcpy(&word, iBytes, iLeft);
    return word | static_cast<std::uint64_t>(iLength) << 56U;
}

#if defined(_WIN32)
// std::random_device asks the same generator of the system's, but its failures weigh 50 KB.
class RandomDevice {
public:
    unsigned int operator()() const
    {
        unsigned int number = 0;
        static_cast<void>(rand_s(&number)); // one that fails leaves the salt less secret
        return number;
    }
};
#else
using RandomDevice = std::random_device;
#endif

} // namespace

KELUINT32 KELHashSalt::Hash(const char* iBytes, std::size_t iLength) const noexcept
{
    SipState state(*this);
    std::size_t left = iLength;
    for (; left >= sizeof(std::uint64_t); left -= sizeof(std::uint64_t), iBytes += sizeof(std::uint64_t)) {
        std::uint64_t word = 0;
        std::memcpy(&word, iBytes, sizeof(word));
        state.Add(word);
    }
    state.Add(LastWord(iBytes, left, iLength));
    return static_cast<KELUINT32>(state.Finish());
}

KELHashSalt KELHashSalt::Make() noexcept
{
    KELHashSalt salt;
    // Where a process lies and when it asks is unknown to others, should the system have nothing better.
    salt.first = static_cast<std::uint64_t>(std::chrono::steady_clock::now().time_since_epoch().count());
    salt.second = reinterpret_cast<std::uintptr_t>(&salt) * 0x9E3779B97F4A7C15U;
    try {
        RandomDevice random;
        salt.first ^= static_cast<std::uint64_t>(random()) << 32U | random();
        salt.second ^= static_cast<std::uint64_t>(random()) << 32U | random();
    } catch (...) { // NOLINT(bugprone-empty-catch): the salt is less secret then
    }
    return salt;
}
