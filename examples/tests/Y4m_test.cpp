#include "CheckRecorder.h"
#include "PropertyAccess.h"
#include "PropertyTable.h"
#include "Y4mMeter.h"
#include "Y4mReader.h"

#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>

namespace {

// A frame of three planes, each filled with one value.
std::string Frame(const std::string& iLine, std::array<std::size_t, 3> iSizes, std::array<char, 3> iValues)
{
    std::string frame = iLine;
    for (std::size_t plane = 0; plane < 3; ++plane) {
        frame += std::string(iSizes[plane], iValues[plane]);
    }
    return frame;
}

std::vector<float> Elements(const KELRawCollfloat& iList)
{
    std::vector<float> elements;
    for (int position = 1; position <= iList.Size(); ++position) {
        elements.push_back(iList[position]);
    }
    return elements;
}

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
        const std::array<std::size_t, 3> sizes = {15, chroma, chroma};
        std::istringstream input(std::string("YUV4MPEG2 W5 H3") + colourSpace + "\n" +
                                 Frame("FRAME Ippp Xnote\n", sizes, {1, 2, 3}) +
                                 Frame("FRAME\n", sizes, {char(100), char(150), char(255)}));
        Chain chain;
        ASSERT_TRUE(chain.Open(input).IsValid());
        const ZrvProperties& measured = chain.meter.GetProperties();
        EXPECT_TRUE(measured.HasProperty(kY4mFrameCount)) << "also before the first frame";
        for (const std::vector<float>& means : {std::vector{1.F, 2.F, 3.F}, std::vector{100.F, 150.F, 255.F}}) {
            ASSERT_TRUE(chain.Step() == ZrvRC::zrvEC_OK);
            const bool isMono = chroma == 0;
            EXPECT_EQ(Elements(Read<KELRawCollfloat>(measured, kY4mPlaneMeans)),
                      isMono ? (std::vector{means[0], 0.F, 0.F}) : means);
            EXPECT_EQ(float(*Read<unsigned char*>(measured, kY4mFrameBytes)), means[0]);
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

TEST(Y4mStream, RefusesBadStreamsWithOneSentence)
{
    struct Case {
        std::string stream;
        const char* message;
        KELINT32 goodFrames = 0;
    };
    const std::string header = "YUV4MPEG2 W2 H2 Cmono\n";
    const std::string notAStream = "the input does not start as a YUV4MPEG2 stream, in the header";
    const Case cases[] = {
        {"", notAStream.c_str()},
        {"RIFF\n", notAStream.c_str()},
        {"YUV4MPEG2X W2 H2\n", notAStream.c_str()},
        {std::string(100000, 'Y'), notAStream.c_str()},
        {"YUV4MPEG2 W2 H2", "the stream is cut short within a line, in the header"},
        {"YUV4MPEG2 W2 H2 X" + std::string(100000, 'x'), "a line is too long, in the header"},
        {"YUV4MPEG2 H2\n", "no width is given, in the header"},
        {"YUV4MPEG2 W2\n", "no height is given, in the header"},
        {"YUV4MPEG2 W0 H2\n", "a width of '0' is not between 1 and 16384, in the header"},
        {"YUV4MPEG2 W2 H-2\n", "a height of '-2' is not between 1 and 16384, in the header"},
        {"YUV4MPEG2 W16385 H2\n", "a width of '16385' is not between 1 and 16384, in the header"},
        {"YUV4MPEG2 W2 H4294967297\n", "a height of '4294967297' is not between 1 and 16384, in the header"},
        {"YUV4MPEG2 W2\x1B[ H2\n", "a width of '2?[' is not between 1 and 16384, in the header"},
        {"YUV4MPEG2 W2 H2 F25\n", "a frame rate of '25' is not a ratio of two numbers, in the header"},
        {"YUV4MPEG2 W2 H2 F25:0\n", "a frame rate of '25:0' is not a ratio of two numbers, in the header"},
        {"YUV4MPEG2 W2 H2 A1:x\n", "a pixel aspect of '1:x' is not a ratio of two numbers, in the header"},
        {"YUV4MPEG2 W2 H2 Ix\n", "an interlacing of 'x' is not known, in the header"},
        {"YUV4MPEG2 W2 H2 I\n", "an interlacing of '' is not known, in the header"},
        {"YUV4MPEG2 W2 H2 C420p10\n",
         "the colour space '420p10' is not supported (only 420, 420jpeg, 420mpeg2, 420paldv, "
         "422, 444, mono), in the header"},
        {"YUV4MPEG2 W16384 H16384\nFRAME\nabc",
         "the stream is cut short after 3 of 402653184 bytes, in frame 1"}, // and takes no such memory
        {header + "FRA", "the stream is cut short within a line, in frame 1"},
        {header + "FRAME I", "the stream is cut short within a line, in frame 1"},
        {header + "FRAME " + std::string(100000, 'x'), "a line is too long, in frame 1"},
        {header + "FRAMES\nabcd", "'FRAME' is not there, in frame 1"},
        {header + "FRAME\nabc", "the stream is cut short after 3 of 4 bytes, in frame 1"},
        {header + "FRAME\nabcdFRAME\n", "the stream is cut short after 0 of 4 bytes, in frame 2", 1},
        {header + "FRAME\nabcd\n", "'FRAME' is not there, in frame 2", 1},
        {header + "FRAME\nabcdEnd", "'FRAME' is not there, in frame 2", 1},
    };
    for (const auto& [stream, message, goodFrames] : cases) {
        std::istringstream input(stream);
        KELINT32 frames = -1;
        ZrvRC rc = Y4mReadAll(input, frames);
        EXPECT_TRUE(rc.IsError()) << stream.substr(0, 100);
        EXPECT_STREQ(rc.Dump(), message);
        EXPECT_EQ(frames, goodFrames) << message;
    }
}

TEST(Y4mStream, RefusesEveryColourSpaceThatItDoesNotRead)
{
    for (const char* colourSpace : {"411", "410", "422p10", "444p16", "444alpha", "mono10", "420JPEG", ""}) {
        Y4mFormat format;
        ZrvRC rc = Y4mFormat::Parse(std::string("YUV4MPEG2 W2 H2 C") + colourSpace, format);
        EXPECT_TRUE(rc.IsError());
        EXPECT_NE(std::string(rc.Dump()).find(std::string("'") + colourSpace + "'"), std::string::npos);
    }
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
        BrokenBuffer buffer(text);
        std::istream input(&buffer);
        KELINT32 frames = 0;
        ZrvRC rc = Y4mReadAll(input, frames);
        EXPECT_TRUE(rc.IsError());
        EXPECT_EQ(std::string(rc.Dump()).find("the input can not be read further"), 0U) << rc.Dump();
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
    foreign.AddProperty("colour", "float", nullptr);
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
        set.AddProperty(name, "KELUnicodeString", nullptr);
    }
    set.SetProperty("a", ZrvPropertyValue<KELUnicodeString>("\x1B[2J \xC2\x9B \xC3\x9C\x7F"));
    set.SetProperty("c", ZrvPropertyValue<KELUnicodeString>(std::string(1000, 'x').c_str()));
    PropertyTable table;
    table.Add(set, "x.");
    std::ostringstream text;
    table.Print(text);
    const std::string type = "                 KELUnicodeString        ";
    EXPECT_EQ(text.str(), "name                type                    value\nx.a" + type +
                              "?[2J \xC2? \xC3\x9C?\nx.b" + type + "\nx.c" + type + std::string(60, 'x') + "...\n");
}

} // namespace
