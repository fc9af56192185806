// Reads a YUV4MPEG2 stream, measures its frames and prints what the components have published of it.

#include "Console.h"
#include "PropertyAccess.h"
#include "PropertyTable.h"
#include "Y4mClip.h"
#include "Y4mMeter.h"
#include "Y4mReader.h"
#include "ZrvFPSMeasure.h"

#include <cerrno>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <system_error>
#include <vector>

namespace {

constexpr char kUsage[] = "usage: y4m_meter [FILE|-]\n"
                          "Measures a YUV4MPEG2 stream: a file, standard input (-), or a clip of its own.\n";

// Frames travel from the reader to the meter as properties. The rate is that of the whole loop.
ZrvRC MeasureFrames(Y4mReader& ioReader, Y4mMeter& ioMeter, int& oRate)
{
    ZrvFPSMeasure latestRate;
    ZrvFPSMeasure overallRate(0); // measures when it is asked, however short the stream is
    ProgressLine progress;
    ZrvRC rc = ioReader.ReadFrame();
    for (; rc == ZrvRC::zrvEC_OK; rc = ioReader.ReadFrame()) {
        rc = ioMeter.TakeFrame(ioReader.GetProperties());
        if (rc.IsError()) {
            break;
        }
        latestRate.IncrementFrames();
        overallRate.IncrementFrames();
        if (latestRate.HasNewInstantFPS()) {
            progress.Show(std::to_string(Read<KELINT32>(ioMeter.GetProperties(), kY4mFrameCount)) + " frames, " +
                          std::to_string(latestRate.GetInstantFPS()) + " per second");
        }
    }
    overallRate.HasNewInstantFPS();
    oRate = overallRate.GetGlobalFPS();
    return rc;
}

ZrvRC Measure(std::istream& ioInput, const KELUnicodeString& iTitle)
{
    Y4mReader reader;
    Y4mMeter meter(*reader.GetPrototype());
    int rate = 0;
    ZrvRC rc = reader.Open(ioInput, iTitle);
    if (rc.IsValid()) {
        rc = meter.TakeStream(reader.GetProperties(), reader.GetStreamProperties());
    }
    if (rc.IsValid()) {
        rc = MeasureFrames(reader, meter, rate);
    }
    if (rc.IsError()) {
        return rc.AddTrace(" of ").AddTrace(iTitle);
    }
    PropertyTable table;
    table.Add(meter.GetProperties());
    table.Add(meter.GetStreamProperties(), "stream.");
    table.Print(std::cout);
    std::cout << "overall: " << Read<KELINT32>(meter.GetProperties(), kY4mFrameCount) << " frames, " << rate
              << " per second" << std::endl;
    return std::cout ? ZrvRC() : ZrvRC(ZrvRC::zrvEC_Error, "standard output can not be written");
}

ZrvRC MeasureFile(const std::string& iPath)
{
    std::ifstream file(iPath, std::ios::binary);
    if (!file) {
        return Y4mFailure(Y4mPrintable(iPath) + " can not be opened: " + std::generic_category().message(errno));
    }
    return Measure(file, Y4mPrintable(std::filesystem::path(iPath).filename().string()).c_str());
}

ZrvRC MeasureClip()
{
    std::istringstream clip(Y4mMakeClip());
    return Measure(clip, "the clip");
}

int Run(const std::vector<std::string>& iArguments)
{
    const std::string input = iArguments.empty() ? "" : iArguments.front();
    if (input == "-h" || input == "--help") {
        std::cout << kUsage;
        return 0;
    }
    if (iArguments.size() > 1 || (input.size() > 1 && input.front() == '-')) {
        std::cerr << kUsage;
        return 2;
    }
    ZrvRC rc = iArguments.empty() ? MeasureClip()
               : input == "-"     ? Measure(GetBinaryInput(), "standard input")
                                  : MeasureFile(input);
    if (rc.IsError()) {
        std::cerr << "y4m_meter: " << rc.Dump() << std::endl;
    }
    return rc.IsError() ? 1 : 0;
}

} // namespace

int main(int iCount, char** iArguments)
{
    try {
        return Run({iArguments + 1, iArguments + iCount});
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "y4m_meter: %s\n", failure.what()); // memory has run out
        return 1;
    }
}
