#ifndef ReportingTest_H
#define ReportingTest_H

#include "CheckRecorder.h"

#include <gtest/gtest.h>

/// A test of operations that check their arguments. It fails when it leaves a report behind.
class ReportingTest : public ::testing::Test {
protected:
    ~ReportingTest() override { EXPECT_EQ(reports.Take(), ""); }

    /// What an operation has answered, in words, and what it has reported.
    template <class T>
    std::string Answer(const T& iAnswer)
    {
        return InWords<T>(iAnswer) + reports.Take();
    }

    CheckRecorder reports;
};

#endif
