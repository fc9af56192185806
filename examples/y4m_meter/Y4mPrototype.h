#ifndef Y4mPrototype_H
#define Y4mPrototype_H

#include "KELReference.h"
#include "KELUnicodeString.h"
#include "ZrvPrototypeImpl.h"

/// The names on which the reader and the meter meet.
/// @{
inline const KELUnicodeString kY4mStream = "stream";         ///< the stream object, described by the names below
inline const KELUnicodeString kY4mFrameCount = "frameCount"; ///< how many frames have been read
inline const KELUnicodeString kY4mFrameBytes = "frameBytes"; ///< the planes of the latest frame
inline const KELUnicodeString kY4mPlaneMeans = "planeMeans"; ///< the means of its planes Y, Cb, Cr; 0 without the plane

inline const KELUnicodeString kY4mTitle = "title";
inline const KELUnicodeString kY4mWidth = "width";
inline const KELUnicodeString kY4mHeight = "height";
inline const KELUnicodeString kY4mFrameRate = "frameRate";     ///< frames per second, or 0 when it is not known
inline const KELUnicodeString kY4mPixelAspect = "pixelAspect"; ///< width over height, or 0 when it is not known
inline const KELUnicodeString kY4mInterlaced = "interlaced";
inline const KELUnicodeString kY4mColourSpace = "colourSpace";
/// @}

/// Declares all of them; the stream property's own parameters are a nested prototype.
KELReference<ZrvPrototypeImpl> Y4mMakePrototype();

#endif
