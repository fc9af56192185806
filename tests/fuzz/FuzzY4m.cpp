// Gives the example's reader and meter any bytes for a stream.

#include "FuzzInput.h"
#include "KELCheckFailure.h"
#include "Y4mMeter.h"
#include "Y4mReader.h"

#include <sstream>
#include <string>

namespace {

int CountFrames(std::istream& ioInput)
{
    Y4mReader reader;
    Y4mMeter meter(*reader.GetPrototype());
    if (reader.Open(ioInput, "untitled").IsError()) {
        return 0;
    }
    Require(meter.TakeStream(reader.GetProperties(), reader.GetStreamProperties()).IsValid(), "TakeStream");
    int frames = 0;
    while (reader.ReadFrame() == ZrvRC::zrvEC_OK) {
        Require(meter.TakeFrame(reader.GetProperties()).IsValid(), "TakeFrame");
        ++frames;
    }
    return frames;
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* iData, std::size_t iSize)
{
    // Whatever the stream, the components keep to the preconditions of the library.
    KELSetCheckFailureHandler([](const KELCheckFailure& iFailure) { Require(false, iFailure.text); });
    const std::string bytes(reinterpret_cast<const char*>(iData), iSize);
    std::istringstream once(bytes);
    std::istringstream again(bytes);
    KELINT32 frames = 0;
    static_cast<void>(Y4mReadAll(once, frames));
    Require(frames == CountFrames(again), "the components see the frames that the parser sees");
    return 0;
}
