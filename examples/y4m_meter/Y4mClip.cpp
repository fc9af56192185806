#include "Y4mClip.h"

namespace {

constexpr int kWidth = 64;
constexpr int kHeight = 48;
constexpr int kFrames = 250;

// Bars with a slope in both directions, which move on by iShift.
void AddPlane(std::string& ioClip, int iColumns, int iRows, int iShift)
{
    for (int row = 0; row < iRows; ++row) {
        for (int column = 0; column < iColumns; ++column) {
            ioClip += static_cast<char>(static_cast<unsigned char>(4 * column + 2 * row + iShift));
        }
    }
}

} // namespace

std::string Y4mMakeClip()
{
    std::string clip = "YUV4MPEG2 W" + std::to_string(kWidth) + " H" + std::to_string(kHeight) +
                       " F25:1 Ip A1:1 C420jpeg XTITLE=Moving_bars\n";
    for (int frame = 0; frame < kFrames; ++frame) {
        clip += "FRAME\n";
        AddPlane(clip, kWidth, kHeight, 3 * frame);
        AddPlane(clip, kWidth / 2, kHeight / 2, frame);
        AddPlane(clip, kWidth / 2, kHeight / 2, -frame);
    }
    return clip;
}
