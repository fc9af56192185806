// Drives the property system by the bytes of the input and compares it with the model; the first byte says what memory
// does meanwhile.

#include "FuzzInput.h"
#include "RandomUse.h"

namespace {

// Zeros when the bytes have run out.
class ByteChoices : public Choices {
public:
    ByteChoices(const std::uint8_t* iData, std::size_t iSize) : m_data(iData), m_left(iSize) {}

    std::size_t Below(std::size_t iCount) override
    {
        std::size_t number = Next();
        for (std::size_t range = 256; range < iCount; range *= 256) {
            number = number * 256 + Next();
        }
        return number % iCount;
    }
    bool AreLeft() override { return m_left > 0; }

private:
    std::size_t Next() { return m_left > 0 ? (--m_left, *m_data++) : 0; }

    const std::uint8_t* m_data;
    std::size_t m_left;
};

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* iData, std::size_t iSize)
{
    ByteChoices choices(iData, iSize);
    const std::size_t memory = choices.Below(12); // behaves mostly: failing takes long
    UseAtRandom(choices, memory < 3 ? static_cast<Memory>(memory) : Memory::Behaves); // a difference ends the process
    return 0;
}
