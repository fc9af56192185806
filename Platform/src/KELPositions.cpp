#include "KELPositions.h"

#include "KELCheckFailure.h"

bool KELHasPosition(int iPosition, int iSize)
{
    if (iPosition >= 1 && iPosition <= iSize) {
        return true;
    }
    Check_TRUE_Failed__("1<=iPosition && iPosition<=Size()", "KELPositions", __LINE__, nullptr);
    return false;
}
