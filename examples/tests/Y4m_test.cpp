#include "CheckRecorder.h"
#include "PropertyAccess.h"
#include "PropertyTable.h"
#include "Y4mMeter.h"
#include "Y4mReader.h"

#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>

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

TEST(Y4mMeter, MeasuresEveryPlaneOfOddSizes)
{
    struct Case {
        const char* colourSpace;
        std::size_t chroma;
    };
    for (const auto& [colourSpace, chroma] :
         {Case{"", 6}, Case{" C420", 6}, Case{" C420jpeg", 6}, Case{" C420mpeg2", 6}, Case{" C420paldv", 6},
          Case{" C422", 9}, Case{" C444", 15}, Case{" Cmono", 0}}) {
        SCOPED_TRACE(colourSpace);
        const auto planes = [size = chroma](char iLuma, char iCb, char iCr) {
            return std::string(15, iLuma) + std::string(size, iCb) + std::string(size, iCr);
        };
        std::istringstream input(std::string("YUV4MPEG2 W5 H3") + colourSpace + "\nFRAME Ippp Xnote\n" +
                                 planes(1, 2, 3) + "FRAME\n" + planes(char(100), char(150), char(255)));
        Chain chain;
        ASSERT_TRUE(chain.Open(input).IsValid());
        const ZrvProperties& measured = chain.meter.GetProperties();
        EXPECT_TRUE(measured.HasProperty(kY4mFrameCount)) << "also before the first frame";
        for (const auto& [luma, cb, cr] : {std::array{1.F, 2.F, 3.F}, std::array{100.F, 150.F, 255.F}}) {
            ASSERT_TRUE(chain.Step() == ZrvRC::zrvEC_OK);
            const auto means = Read<KELRawCollfloat>(measured, kY4mPlaneMeans);
            ASSERT_EQ(means.Size(), 3);
            EXPECT_EQ(means[1], luma);
            EXPECT_EQ(means[2], chroma == 0 ? 0.F : cb);
            EXPECT_EQ(means[3], chroma == 0 ? 0.F : cr);
            EXPECT_EQ(float(*Read<unsigned char*>(measured, kY4mFrameBytes)), luma);
        }
        EXPECT_EQ(Read<KELINT32>(measured, kY4mFrameCount), 2);
        EXPECT_TRUE(chain.Step() == ZrvRC::zrvEC_NothingDone);
    }
}

TEST(Y4mReader, PublishesWhatTheHeaderSays)
{
    struct Case {
        const char* tags;
        const char* values; // frame rate, pixel aspect, interlaced, colour space, title
    };
    for (const auto& [tags, values] : {
             Case{"", "0 0 0 420jpeg untitled"},
             Case{"F30000:1001 A10:11 Ip C422 XTITLE=Waves", "29.97 0.909091 0 422 Waves"},
             Case{"F0:0 A0:0 I? Cmono XYSCSS=none Q7", "0 0 0 mono untitled"},
             Case{" F4294967295:1  A1:1 It ", "4.29497e+09 1 1 420jpeg untitled"},
             Case{"F0:1 Ib", "0 0 1 420jpeg untitled"},
             Case{"F25:1 Im X XTITLE=", "25 0 1 420jpeg untitled"},
         }) {
        SCOPED_TRACE(tags);
        std::istringstream input(std::string("YUV4MPEG2 W16384 H1 ") + tags + "\n");
        Chain chain;
        ASSERT_TRUE(chain.Open(input).IsValid());
        const ZrvProperties& stream = chain.meter.GetStreamProperties();
        std::ostringstream text;
        text << Read<double>(stream, kY4mFrameRate) << ' ' << Read<float>(stream, kY4mPixelAspect) << ' '
             << int(Read<KELBoolean>(stream, kY4mInterlaced)) << ' '
             << Read<KELUnicodeString>(stream, kY4mColourSpace).ConvertToChar() << ' '
             << Read<KELUnicodeString>(stream, kY4mTitle).ConvertToChar();
        EXPECT_EQ(text.str(), values);
        EXPECT_EQ(Read<KELUINT32>(stream, kY4mWidth), 16384U);
        EXPECT_EQ(Read<KELUINT32>(stream, kY4mHeight), 1U);
        EXPECT_TRUE(chain.Step() == ZrvRC::zrvEC_NothingDone) << "a stream without frames is a good one";
    }
}

// What becomes of a stream: the frames that are good, and the sentence that says why there are no more.
std::string ReadAll(std::streambuf& ioBytes)
{
    std::istream input(&ioBytes);
    KELINT32 frames = -1;
    ZrvRC rc = Y4mReadAll(input, frames);
    EXPECT_TRUE(rc.IsError());
    return std::to_string(frames) + ": " + rc.Dump();
}

struct BadStream {
    std::string text;
    std::string message;
};

TEST(Y4mStream, RefusesBadHeadersWithOneSentence)
{
    const std::string notAStream = "the input does not start as a YUV4MPEG2 stream";
    const std::string start = "YUV4MPEG2 W2 H2 ";
    const BadStream headers[] = {
        {"", notAStream},
        {"YUV4MPEG2X W2 H2\n", notAStream},
        {std::string(100000, 'Y'), notAStream},
        {start, "the stream is cut short within a line"},
        {start + "X" + std::string(100000, 'x'), "a line is too long"},
        {"YUV4MPEG2 H2\n", "no width is given"},
        {"YUV4MPEG2 W2\n", "no height is given"},
        {start + "W0\n", "a width of '0' is not between 1 and 16384"},
        {start + "H-2\n", "a height of '-2' is not between 1 and 16384"},
        {start + "W16385\n", "a width of '16385' is not between 1 and 16384"},
        {start + "H4294967297\n", "a height of '4294967297' is not between 1 and 16384"},
        {start + "W2\x1B[\n", "a width of '2?[' is not between 1 and 16384"},
        {start + "F25\n", "a frame rate of '25' is not a ratio of two numbers"},
        {start + "F25:0\n", "a frame rate of '25:0' is not a ratio of two numbers"},
        {start + "A1:x\n", "a pixel aspect of '1:x' is not a ratio of two numbers"},
        {start + "Ix\n", "an interlacing of 'x' is not known"},
        {start + "I\n", "an interlacing of '' is not known"},
        {start + "C420p10\n", "the colour space '420p10' is not supported (only 420, 420jpeg, 420mpeg2, 420paldv, "
                              "422, 444, mono)"},
    };
    for (const auto& [text, message] : headers) {
        std::stringbuf bytes(text);
        EXPECT_EQ(ReadAll(bytes), "0: " + message + ", in the header") << text.substr(0, 100);
    }
}

TEST(Y4mStream, RefusesBadFramesWithOneSentence)
{
    const BadStream frames[] = {
        {"FRA", "0: the stream is cut short within a line, in frame 1"},
        {"FRAME I", "0: the stream is cut short within a line, in frame 1"},
        {"FRAME " + std::string(100000, 'x'), "0: a line is too long, in frame 1"},
        {"FRAMES\nabcd", "0: 'FRAME' is not there, in frame 1"},
        {"FRAME\nabc", "0: the stream is cut short after 3 of 4 bytes, in frame 1"},
        {"FRAME\nabcdFRAME\n", "1: the stream is cut short after 0 of 4 bytes, in frame 2"},
        {"FRAME\nabcd\n", "1: 'FRAME' is not there, in frame 2"},
        {"FRAME\nabcdEnd", "1: 'FRAME' is not there, in frame 2"},
    };
    for (const auto& [text, message] : frames) {
        std::stringbuf bytes("YUV4MPEG2 W2 H2 Cmono\n" + text);
        EXPECT_EQ(ReadAll(bytes), message);
    }
    std::stringbuf huge("YUV4MPEG2 W16384 H16384\nFRAME\nabc"); // and takes no such memory
    EXPECT_EQ(ReadAll(huge), "0: the stream is cut short after 3 of 402653184 bytes, in frame 1");
}

// Input that gives its text and breaks then, as a disk does.
class BrokenBuffer : public std::stringbuf {
public:
    using std::stringbuf::stringbuf;

protected:
    int_type underflow() override
    {
        const int_type next = std::stringbuf::underflow();
        return next == traits_type::eof() ? throw std::runtime_error("broken") : next;
    }
};

TEST(Y4mStream, TellsBrokenInputFromShortInput)
{
    const std::string header = "YUV4MPEG2 W2 H2 Cmono\n";
    for (const std::string& text : {std::string(), header, header + "FRAME\nabcd", header + "FRAME\na"}) {
        BrokenBuffer bytes(text);
        EXPECT_EQ(ReadAll(bytes).find("the input can not be read further"), 3U) << text;
    }
}

TEST(Y4mMeter, RefusesWhatIsNoFrame)
{
    std::istringstream input("YUV4MPEG2 W2 H2\n");
    Chain chain;
    ASSERT_TRUE(chain.Open(input).IsValid());
    EXPECT_STREQ(chain.meter.TakeFrame(chain.reader.GetProperties()).Dump(), "the meter can not take a frame");

    CheckRecorder recorder;
    ZrvProperties foreign;
    static_cast<void>(foreign.AddProperty("colour", "float", nullptr));
    EXPECT_TRUE(chain.meter.TakeFrame(foreign).IsError());
    EXPECT_STREQ(chain.meter.TakeStream(foreign, foreign).Dump(), "the meter can not take the stream's parameters");
}

TEST(Y4mMeter, KeepsTheStreamAliveForItsBytes)
{
    std::istringstream input("YUV4MPEG2 W2 H2 Cmono\nFRAME\nabcd");
    auto chain = std::make_unique<Chain>();
    ASSERT_TRUE(chain->Open(input).IsValid());
    ASSERT_TRUE(chain->Step().IsValid());
    const ZrvProperties kept(chain->meter.GetProperties());
    chain.reset();
    EXPECT_EQ(Read<unsigned char*>(kept, kY4mFrameBytes)[3], 'd');
}

TEST(PropertyTable, SortsAndKeepsTerminalsSafe)
{
    ZrvProperties set;
    for (const char* name : {"b", "c", "a"}) {
        static_cast<void>(set.AddProperty(name, "KELUnicodeString", nullptr));
    }
    static_cast<void>(set.SetProperty("a", ZrvPropertyValue<KELUnicodeString>("\x1B[2J \xC2\x9B \xC3\x9C\x7F")));
    static_cast<void>(set.SetProperty("c", ZrvPropertyValue<KELUnicodeString>(std::string(1000, 'x').c_str())));
    PropertyTable table;
    table.Add(set, "x.");
    std::ostringstream text;
    table.Print(text);
    const std::string type = "                 KELUnicodeString        ";
    EXPECT_EQ(text.str(), "name                type                    value\nx.a" + type +
                              "?[2J \xC2? \xC3\x9C?\nx.b" + type + "\nx.c" + type + std::string(60, 'x') + "...\n");
}

} // namespace
