#pragma once
#include "common/COM_Out.h"

#include <string>
#include <vector>

/// A sink that keeps what it is told and prints nothing.
class TestOut : public COM_Out
{
    COM_CLASS(TestOut)
public:
    void printInt(int value) override { mInts.push_back(value); }
    void printReal(double value) override { mReals.push_back(value); }
    void printString(const std::string& text) override { mTexts.push_back(text); }

    std::vector<int> mInts;
    std::vector<double> mReals;
    std::vector<std::string> mTexts;

protected:
    TestOut() { COM_TYPE(TestOut); }
    ~TestOut() override = default;
};
