// Gives the example's reader and meter any bytes for a stream.

#include "KELCheckFailure.h"
#include "Y4mMeter.h"
#include "Y4mReader.h"

#include <cstdlib>
#include <sstream>
#include <string>

namespace {

void Require(bool iHolds)
{
    iHolds ? void() : std::abort();
}

int CountFrames(std::istream& ioInput)
{
    Y4mReader reader;
    Y4mMeter meter(*reader.GetPrototype());
    if (reader.Open(ioInput, "untitled").IsError()) {
        return 0;
    }
    Require(meter.TakeStream(reader.GetProperties(), reader.GetStreamProperties()).IsValid());
    int frames = 0;
    for (; reader.ReadFrame() == ZrvRC::zrvEC_OK; ++frames) {
        Require(meter.TakeFrame(reader.GetProperties()).IsValid());
    }
    return frames;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* iData, std::size_t iSize)
{
    KELSetCheckFailureHandler([](const KELCheckFailure&) { std::abort(); }); // whatever the stream
    const std::string bytes(reinterpret_cast<const char*>(iData), iSize);
    std::istringstream once(bytes);
    std::istringstream again(bytes);
    KELINT32 frames = 0;
    Y4mReadAll(once, frames);
    Require(frames == CountFrames(again));
    return 0;
}
