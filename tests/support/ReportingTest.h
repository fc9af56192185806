#ifndef ReportingTest_H
#define ReportingTest_H

#include "CheckRecorder.h"
#include "ZrvRC.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>

/// A result in words: what became of it and, behind a colon, its trace.
inline std::string InWords(ZrvRC iRc)
{
    const std::string code = iRc == ZrvRC::zrvEC_OK            ? "ok"
                             : iRc == ZrvRC::zrvEC_NothingDone ? "nothing done"
                             : iRc == ZrvRC::zrvEC_Error       ? "error"
                                                               : std::to_string(iRc.GetRC());
    return iRc.GetTrace().GetLengthInChar() == 0 ? code : code + ": " + iRc.Dump();
}

/// A test of operations that check their arguments. It fails when it leaves a report behind.
class ReportingTest : public ::testing::Test {
protected:
    ~ReportingTest() override { EXPECT_EQ(reports.Take(), ""); }

    /// What an operation has answered, in words, and what it has reported.
    template <class T>
    std::string Answer(const T& iAnswer)
    {
        if constexpr (std::is_same_v<T, ZrvRC>) {
            return InWords(iAnswer) + reports.Take();
        } else if constexpr (std::is_same_v<T, KELUnicodeString>) {
            return "'" + std::string(iAnswer.ConvertToChar()) + "'" + reports.Take();
        } else if constexpr (std::is_pointer_v<T>) {
            return (iAnswer ? "there" : "null") + reports.Take();
        } else {
            return std::to_string(iAnswer) + reports.Take();
        }
    }

    CheckRecorder reports;
};

#endif
