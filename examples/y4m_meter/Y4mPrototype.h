#ifndef Y4mPrototype_H
#define Y4mPrototype_H

#include "KELReference.h"
#include "KELUnicodeString.h"
#include "ZrvPrototypeImpl.h"

/// The names on which the reader and the meter meet.
/// @{
inline const KELUnicodeString kY4mStream = "stream";             ///< the stream object, described by the names below
inline const KELUnicodeString kY4mFrameCount = "frameCount";     ///< how many frames have been read
inline const KELUnicodeString kY4mFrameBytes = "lastFrameBytes"; ///< the planes of the frame that was read last
inline const KELUnicodeString kY4mPlaneMeans = "lastFrameMeans"; ///< the means of its planes, on the samples' scale

inline const KELUnicodeString kY4mTitle = "title";
inline const KELUnicodeString kY4mWidth = "width";
inline const KELUnicodeString kY4mHeight = "height";
inline const KELUnicodeString kY4mFrameRate = "frameRate";     ///< "30000/1001" frames per second, or "unknown"
inline const KELUnicodeString kY4mPixelAspect = "pixelAspect"; ///< width over height: "10/11", or "unknown"
inline const KELUnicodeString kY4mInterlacing = "interlacing"; ///< which field of a frame comes first, for people
inline const KELUnicodeString kY4mColourSpace = "colourSpace";
inline const KELUnicodeString kY4mBitDepth = "bitDepth"; ///< bits of each sample
/// @}

/// Declares all of them; the stream property's own parameters are a nested prototype.
KELReference<ZrvPrototypeImpl> Y4mMakePrototype();

#endif
