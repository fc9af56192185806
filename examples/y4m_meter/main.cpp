// Reads a YUV4MPEG2 stream, measures its frames and prints what the components have published of it.

#include "Console.h"
#include "InputFile.h"
#include "System.h"
#include "Y4mClip.h"
#include "Y4mMeter.h"
#include "Y4mReader.h"
#include "Y4mText.h"
#include "ZrvFPSMeasure.h"
#include "ZrvPropertyAccess.h"

#include <exception>
#include <filesystem>
#include <istream>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

namespace {

constexpr char kUsage[] = "usage: y4m_meter [--] [FILE|-]\n"
                          "       y4m_meter --help | --version\n"
                          "Measures a YUV4MPEG2 stream: a file, standard input (-), or a clip of its own.";

enum ExitCode { kSuccess = 0, kFailure = 1, kUsageError = 2, kInterrupted = 130 };

// Frames travel from the reader to the meter as properties. The rate is that of the whole loop.
ZrvRC MeasureFrames(Y4mReader& ioReader, Y4mMeter& ioMeter, int& oRate)
{
    ZrvFPSMeasure latestRate;
    ZrvFPSMeasure overallRate(0); // measures when it is asked, however short the stream is
    ProgressLine progress;
    ZrvRC rc = ioReader.ReadFrame();
    for (; rc == ZrvRC::zrvEC_OK && !System::WasInterrupted(); rc = ioReader.ReadFrame()) {
        rc = ioMeter.TakeFrame(ioReader.GetProperties());
        if (rc.IsError()) {
            break;
        }
        latestRate.IncrementFrames();
        overallRate.IncrementFrames();
        if (latestRate.HasNewInstantFPS()) {
            progress.Show(ZrvReadProperty<KELINT32>(ioMeter.GetProperties(), kY4mFrameCount),
                          latestRate.GetInstantFPS());
        }
    }
    overallRate.HasNewInstantFPS();
    oRate = overallRate.GetGlobalFPS();
    return rc;
}

bool PrintMeasured(const Y4mMeter& iMeter, int iRate)
{
    std::ostringstream lines;
    lines << "stream:\n" << iMeter.GetStreamProperties() << "frames:\n" << iMeter.GetProperties();
    lines << "overall: " << ZrvReadProperty<KELINT32>(iMeter.GetProperties(), kY4mFrameCount) << " frames, " << iRate
          << " per second\n";
    return PrintLines(lines.str());
}

// Prints what could be measured, then why there is no more.
ExitCode Measure(std::streambuf& ioBytes, const std::string& iName, const std::string& iTitle,
                 const InputFile* iFile = nullptr)
{
    std::istream input(&ioBytes);
    Y4mReader reader;
    Y4mMeter meter(*reader.GetPrototype());
    bool isPrinted = true;
    ZrvRC rc = reader.Open(input, ZrvPrintable(iTitle).c_str());
    if (rc.IsValid()) {
        rc = meter.TakeStream(reader.GetProperties(), reader.GetStreamProperties());
    }
    if (rc.IsValid()) {
        int rate = 0;
        rc = MeasureFrames(reader, meter, rate);
        isPrinted = PrintMeasured(meter, rate);
    }
    if (System::WasInterrupted()) {
        PrintFailure(ZrvPrintable(iName) + ": interrupted");
        return kInterrupted;
    }
    if (rc.IsError()) {
        const std::string reason = iFile ? iFile->GetFailure() : "";
        PrintFailure(ZrvPrintable(iName) + ": " + rc.Dump() + (reason.empty() ? "" : ": " + reason));
    }
    return rc.IsValid() && isPrinted ? kSuccess : kFailure;
}

ExitCode MeasureFile(const std::string& iPath)
{
    InputFile file(iPath);
    if (iPath == InputFile::kStandardInput) {
        return Measure(file, "standard input", "standard input", &file);
    }
    const auto title = std::filesystem::path(std::u8string(iPath.begin(), iPath.end())).filename().u8string();
    return Measure(file, iPath.empty() ? "''" : iPath, std::string(title.begin(), title.end()), &file);
}

ExitCode MeasureClip()
{
    std::stringbuf clip(Y4mMakeClip());
    return Measure(clip, "the clip", "the clip");
}

ExitCode PrintAnswer(const std::string& iText)
{
    return PrintLines(iText + "\n") ? kSuccess : kFailure;
}

ExitCode RefuseArguments(const std::string& iReason)
{
    PrintFailure(iReason + "\n" + kUsage);
    return kUsageError;
}

ExitCode Run(const std::vector<std::string>& iArguments)
{
    std::optional<std::string> path;
    bool areOptionsOver = false;
    for (const std::string& argument : iArguments) {
        const bool isOption = !areOptionsOver && argument.size() > 1 && argument.front() == '-';
        if (isOption && argument == "--") {
            areOptionsOver = true;
        } else if (isOption && (argument == "-h" || argument == "--help")) {
            return PrintAnswer(kUsage);
        } else if (isOption && argument == "--version") {
            return PrintAnswer("y4m_meter " Y4M_METER_VERSION);
        } else if (isOption) {
            return RefuseArguments("the option " + Y4mQuote(argument) + " is not known");
        } else if (path) {
            return RefuseArguments("one stream at a time is measured");
        } else {
            path = argument;
        }
    }
    System::CatchInterruption();
    return path ? MeasureFile(*path) : MeasureClip();
}

} // namespace

int main(int iCount, char** iArguments)
{
    try {
        return Run(System::GetArguments(iCount, iArguments));
    } catch (const std::exception& failure) {
        System::PrintError(std::string("y4m_meter: ") + failure.what() + "\n"); // memory has run out
        return kFailure;
    }
}
