#include "Y4mMeter.h"
#include "Y4mReader.h"
#include "ZrvPropertyAccess.h"

#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <utility>

namespace {

// A reader with a meter behind it.
struct Chain {
    Y4mReader reader;
    Y4mMeter meter{*reader.GetPrototype()};

    ZrvRC Open(std::istream& ioInput)
    {
        ZrvRC rc = reader.Open(ioInput, "untitled");
        return rc.IsValid() ? meter.TakeStream(reader.GetProperties(), reader.GetStreamProperties()) : rc;
    }

    ZrvRC Step()
    {
        ZrvRC rc = reader.ReadFrame();
        return rc == ZrvRC::zrvEC_OK ? meter.TakeFrame(reader.GetProperties()) : rc;
    }
};

// What becomes of a stream: the frames that are good, and the sentence that says why there are no more.
std::string ReadAll(std::streambuf& ioBytes)
{
    std::istream input(&ioBytes);
    KELINT32 frames = -1;
    ZrvRC rc = Y4mReadAll(input, frames);
    EXPECT_TRUE(rc.IsError());
    return std::to_string(frames) + ": " + rc.Dump();
}

using Case = std::pair<std::string, std::string>; // a text, and what is expected of it

TEST(Y4mReader, PublishesWhatTheHeaderSays)
{
    const Case headers[] = {
        {"", "unknown unknown unknown 420jpeg untitled"},
        {"F30000:1001 A10:11 Ip C422 XTITLE=Waves", "30000/1001 10/11 none 422 Waves"},
        {"F0:0 A0:0 I? Cmono16 XYSCSS=none Q7", "unknown unknown unknown mono16 untitled"},
        {" F4294967295:1  A1:1 It ", "4294967295/1 1/1 top field first 420jpeg untitled"},
        {"F0:1 Ib", "unknown unknown bottom field first 420jpeg untitled"},
        {"F25:1 Im X XTITLE=", "25/1 unknown mixed 420jpeg untitled"},
    };
    for (const auto& [tags, values] : headers) {
        std::istringstream input("YUV4MPEG2 W16777216 H1 " + tags + "\n");
        Chain chain;
        ASSERT_TRUE(chain.Open(input).IsValid()) << tags;
        const ZrvProperties& stream = chain.meter.GetStreamProperties();
        std::ostringstream text;
        text << ZrvReadProperty<KELUINT32>(stream, kY4mWidth) << 'x' << ZrvReadProperty<KELUINT32>(stream, kY4mHeight);
        for (const auto* name : {&kY4mFrameRate, &kY4mPixelAspect, &kY4mInterlacing, &kY4mColourSpace, &kY4mTitle}) {
            text << ' ' << ZrvReadProperty<KELUnicodeString>(stream, *name, "missing");
        }
        EXPECT_EQ(text.str(), "16777216x1 " + values);
        EXPECT_TRUE(chain.Step() == ZrvRC::zrvEC_NothingDone) << "a stream without frames is a good one";
    }
}

TEST(Y4mStream, SaysInOneSentenceWhatIsBroken)
{
    const std::string start = "YUV4MPEG2 W2 H2 ";
    const std::string good = start + "Cmono10\nFRAME\nabcdefgh";
    const Case streams[] = {
        {"", "0: the input is empty"},
        {"YUV4MPEG2 W2 H", "0: the header is cut short after 14 bytes"},
        {"YUV4MPEG2X W2 H2\n", "0: the input does not start as a YUV4MPEG2 stream, in the header"},
        {std::string(100000, 'Y'), "0: the input does not start as a YUV4MPEG2 stream, in the header"},
        {start + std::string(100000, 'x'), "0: the header is too long"},
        {"YUV4MPEG2 W2\n", "0: no height is given, in the header"},
        {start + "W0\n", "0: a width of '0' is not between 1 and 16777216, in the header"},
        {start + "H16777217\n", "0: a height of '16777217' is not between 1 and 16777216, in the header"},
        {start + "F25:0\n", "0: a frame rate of '25:0' is not a ratio of two numbers, in the header"},
        {start + "A1:x\x1B\n", "0: a pixel aspect of '1:x?' is not a ratio of two numbers, in the header"},
        {start + "I\n", "0: an interlacing of '' is not known, in the header"},
        {start + "C420p17\n",
         "0: the colour space '420p17' is not supported (only 420, 420jpeg, 420mpeg2, 420paldv, "
         "411, 422, 444, 444alpha, mono, 420p9..16, 422p9..16, 444p9..16, mono9..16), in the header"},
        {good + "FRAME I", "1: the stream is cut short within a line, in frame 2"},
        {good + "FRAME " + std::string(100000, 'x'), "1: a line is too long, in frame 2"},
        {good + "FRAMES\nabcdefgh", "1: 'FRAME' is not there, in frame 2"},
        {good + "FRAME\n", "1: the stream is cut short after 0 of 8 bytes, in frame 2"},
        {"YUV4MPEG2 W16777216 H16777216\nFRAME\nabc", // and takes no such memory
         "0: the stream is cut short after 3 of 422212465065984 bytes, in frame 1"},
    };
    for (const auto& [text, sentence] : streams) {
        std::stringbuf bytes(text);
        EXPECT_EQ(ReadAll(bytes), sentence);
    }
}

TEST(Y4mMeter, KeepsTheStreamAliveForItsBytes)
{
    std::istringstream input("YUV4MPEG2 W2 H2 Cmono\nFRAME\nabcd");
    auto chain = std::make_unique<Chain>();
    ASSERT_TRUE(chain->Open(input).IsValid());
    EXPECT_STREQ(chain->meter.TakeFrame(chain->reader.GetProperties()).Dump(), "the meter cannot take a frame");
    ASSERT_TRUE(chain->Step().IsValid());
    const ZrvProperties kept(chain->meter.GetProperties());
    chain.reset();
    EXPECT_EQ(ZrvReadProperty<unsigned char*>(kept, kY4mFrameBytes)[3], 'd');
}

} // namespace
