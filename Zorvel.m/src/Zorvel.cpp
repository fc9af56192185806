#include "Zorvel.h"

int QUORVEL_INTERNAL_Zorvel()
{
    return 1;
}
