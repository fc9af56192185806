#include "Y4mMeter.h"
#include "Y4mReader.h"
#include "ZrvPropertyAccess.h"

#include <gtest/gtest.h>

#include <memory>
#include <sstream>

namespace {

// All else can be told from the program's output.
TEST(Y4mMeter, KeepsTheStreamAliveForItsBytes)
{
    std::istringstream input("YUV4MPEG2 W2 H2 Cmono\nFRAME\nabcd");
    auto reader = std::make_unique<Y4mReader>();
    auto meter = std::make_unique<Y4mMeter>(*reader->GetPrototype());
    ASSERT_TRUE(reader->Open(input, "untitled").IsValid());
    EXPECT_STREQ(meter->TakeFrame(reader->GetProperties()).Dump(), "the meter cannot take a frame");
    ASSERT_TRUE(meter->TakeStream(reader->GetProperties(), reader->GetStreamProperties()).IsValid());
    ASSERT_TRUE(reader->ReadFrame().IsValid() && meter->TakeFrame(reader->GetProperties()).IsValid());
    const ZrvProperties kept(meter->GetProperties());
    meter.reset();
    reader.reset();
    EXPECT_EQ(ZrvReadProperty<unsigned char*>(kept, kY4mFrameBytes)[3], 'd');
}

} // namespace
