#ifndef Y4mClip_H
#define Y4mClip_H

#include <string>

/// The bytes of a short YUV4MPEG2 stream with moving bars: 250 frames of 64x48 pixels in 4:2:0, ten seconds long.
std::string Y4mMakeClip();

#endif
