#include "Declarations.h"

#include <algorithm>
#include <random>

const std::vector<Declaration>& MediaDeclarations()
{
    static const std::vector<Declaration> declarations = {
        {"width", Kind::Uint32},
        {"height", Kind::Uint32},
        {"level", Kind::Int32},
        {"title", Kind::Text},
        {"frameRate", Kind::Double},
        {"frameCount", Kind::Int32},
        {"interlaced", Kind::Boolean},
        {"planeMeans", Kind::FloatList},
        {"frameBytes", Kind::Bytes},
        {"pixelAspect", Kind::Float},
        {"colourSpace", Kind::Text},
        {"streamObject", Kind::Object},
        {"audioDelayMilliseconds", Kind::Int32},
        {"hardwareDecodingIsEnabled", Kind::Boolean},
        {"originalRecordingDescription", Kind::Text},
        {"droppedFramesSinceLastKeyFrame", Kind::Int32},
    };
    return declarations;
}

std::vector<Declaration> ManyDeclarations(std::size_t iCount)
{
    static const std::string padding = "ParameterOfTheStreamTrack";
    std::vector<Declaration> declarations;
    declarations.reserve(iCount);
    for (std::size_t i = 0; i < iCount; ++i) {
        std::string name = std::to_string(i).insert(0, 1, 'p');
        const std::size_t length = 5 + i * 7 % 26;
        if (name.size() < length) {
            name += padding.substr(0, length - name.size());
        }
        declarations.push_back({std::move(name), Kind::Int32});
    }
    std::mt19937 random(16); // NOLINT: the same order in every run
    std::shuffle(declarations.begin(), declarations.end(), random);
    return declarations;
}

std::string MakeText(std::size_t iLength, char iFirst)
{
    static const std::string filler = "YCbCr 4:2:0, chroma siting as in MPEG-2. ";
    std::string text(1, iFirst);
    while (text.size() < iLength) {
        text += filler.substr(0, iLength - text.size());
    }
    return text;
}
